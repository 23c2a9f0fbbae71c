// The scroll arrows as a script sees them: where they are, how they look,
// and what a press on them and the wheel do.
function check(what, actual, expected) {
    if (actual !== expected)
        throw new Error(what + ": got " + actual + ", expected " + expected);
}

Quiver1.SmoothScroll = false;
Quiver1.DkShadowColor = 0x302010;
var items = Quiver1.Headers.Item(1).Items;
for (var i = 1; i <= 40; i++)
    items.Add(0, "", "Item " + i);
Test.wait(1);

check("no up arrow at the top", Test.arrow(0), null);
var down = Test.arrow(1);
check("a down arrow", down !== null && down.width > 0 && down.height > 0, true);
// The outer frame's right side, which starts at the top-right corner.
check("raised frame", Test.pixel(down.x + down.width - 1, down.y), 0x302010);

Test.press(down.x + down.width / 2, down.y + down.height / 2);
// Pressed, the inner frame's top-left takes the dark shadow.
check("sunken frame", Test.pixel(down.x + 1, down.y + 1), 0x302010);
Test.wait(20);
Test.release(down.x + down.width / 2, down.y + down.height / 2);
var top = Quiver1.GetFirstVisible().Index;
check("scrolled by the press", top >= 2, true);
check("an up arrow", Test.arrow(0) !== null, true);

Test.wheel(down.x - 20, down.y - 20, -120);
check("a wheel notch scrolls on", Quiver1.GetFirstVisible().Index > top, true);
Test.wheel(down.x - 20, down.y - 20, 12000);
check("back at the top", Quiver1.GetFirstVisible().Index, 1);
check("the up arrow has gone", Test.arrow(0), null);
print("ok");
