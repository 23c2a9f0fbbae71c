// The Test object: sizes, more controls, pictures and input that reaches the
// control without harming it.
function check(what, actual, expected) {
    if (actual !== expected)
        throw new Error(what + ": got " + actual + ", expected " + expected);
}

check("--size", Quiver1.width + "x" + Quiver1.height, "300x200");

var second = Test.newControl();
check("a new control", second.Headers.Item(1).Caption, "Header 1");
second.Style = qvStyleVisualStudio;
check("controls are apart", Quiver1.Style, qvStyleOutlook);

Test.resize(180, 400);
check("resize", Quiver1.width + "x" + Quiver1.height, "180x400");
Test.grab("bar.png");

Test.move(20, 10);
Test.click(20, 10);
Test.press(20, 100, 2);
Test.move(20, 120);
Test.release(20, 120, 2);
Test.wheel(20, 100, -120);
Test.key("Down");
Test.key("F2", "Ctrl+Shift");
Test.wait(20);
print("ok");
