// Drives every kind of member of the object model by its own name.
function check(what, actual, expected) {
    if (actual !== expected)
        throw new Error(what + ": got " + actual + ", expected " + expected);
}

// A newly placed control.
check("Version()", Quiver1.Version(), "2.0.1");
check("first header", Quiver1.Headers.Item(1).Caption, "Header 1");
check("Style starts at", Quiver1.Style, qvStyleOutlook);

// Properties: enumerations by constant, clamped numbers, colours.
var changed = [];
Quiver1.PropertyChanged.connect(function (name) { changed.push(name); });
Quiver1.Style = qvStyleWindowsXP;
check("Style", Quiver1.Style, 3);
Quiver1.FlashDelay = 50;
check("FlashDelay clamps", Quiver1.FlashDelay, 100);
Quiver1.ShadowColor = 0x00FF00;
check("ShadowColor sets HighlightColor", Quiver1.HighlightColor, 0x00FF00);
check("PropertyChanged names", changed.join(","), "Style,FlashDelay,ShadowColor");

// Methods with default arguments, collections by position and by key.
var headers = Quiver1.Headers;
headers.Clear();
var mail = headers.Add();
check("generated header key", mail.Key, "NEW_HEADER00002");
var tools = headers.Add(0, "tools", "Tools", qvViewSmallIcons);
check("View from a constant", tools.View, qvViewSmallIcons);
tools.Items.Add(0, "hammer", "Hammer");
tools.Items.Add(0, "", "Saw");
tools.Items.Add(0, "drill", "Drill");
check("item by position", tools.Items.Item(2).Key, "NEW_ITEM00001");
check("item by key", tools.Items.Item("HAMMER").Caption, "Hammer");
check("item by caption only", tools.Items.Item("Saw"), null);
check("Exists by caption", tools.Items.Exists("saw"), true);
check("header by key", headers.Item("tools").Index, 2);
check("Parent", tools.Items.Item(1).Parent.Key, "tools");
var captions = tools.Items.NewEnum().map(function (item) { return item.Caption; });
check("NewEnum", captions.join(","), "Hammer,Saw,Drill");
check("Remove by key", tools.Items.Remove("drill"), true);
check("Count after Remove", tools.Items.Count, 2);
check("out of range", headers.Item(9), null);

// Objects handed to the script stay owned by their collections.
gc();
check("after collecting garbage", headers.Item(2).Items.Item(2).Caption, "Saw");

// Selection, the history of it and its event.
var moves = [];
Quiver1.Navigation.ChangePosition.connect(function (header, item) { moves.push(header + "/" + item); });
tools.Items.Item(2).Selected = false;
check("SelectedHeader", Quiver1.SelectedHeader.Key, "tools");
check("SelectedItem", Quiver1.SelectedItem.Key, "NEW_ITEM00001");
tools.Items.Item("hammer").Selected = true;
check("CanGoBack", Quiver1.Navigation.CanGoBack, true);
Quiver1.Navigation.GoBack();
check("ChangePosition", moves.join(","), "tools/hammer");

print("ok", headers.Count, Quiver1.HitTest(-1, 0));
