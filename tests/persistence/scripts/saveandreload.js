// A script saves a control into a plain object and loads a new control from it.
function check(what, actual, expected) {
    if (actual !== expected)
        throw new Error(what + ": got " + actual + ", expected " + expected);
}

// A newly placed control stores exactly these names.
var bag = Test.writeProperties(Quiver1);
check("names of a new control", Object.keys(bag).sort().join(","),
      "Caption1,CurrentItem,Enabled1,HeaderMouseIcon,ItemMouseIcon,NumHeaders,OLEDropMode,ToolTip1,"
      + "TrackNavigation,View1");
check("drop mode stored", bag.OLEDropMode, 3);
check("recording stored", bag.TrackNavigation, true);

Quiver1.OLEDropMode = qvOLEDropNone;
Quiver1.Style = qvStyleVisualStudio;
Quiver1.ShadowColor = 0x00FF00;
Quiver1.HighlightColor = 0x0000FF;
var notes = Quiver1.Headers.Add(0, "notes", "Notes", qvViewSmallIcons);
notes.Items.Add(0, "", "Today");
notes.Items.Add(0, "", "Later").URLIcon = "https://example.invalid/later.png";
bag = Test.writeProperties(Quiver1);
check("drop mode at its default", "OLEDropMode" in bag, false);
check("item key", bag.Header2Item2URLIcon, "https://example.invalid/later.png");
check("no image-list icon beside a URL icon", "Header2Item2Icon" in bag, false);

var copy = Test.readProperties(bag);
check("headers", copy.Headers.Count, 2);
check("restored caption", copy.Headers.Item(2).Items.Item(1).Caption, "Today");
check("restored view", copy.Headers.Item(2).View, qvViewSmallIcons);
check("restored style", copy.Style, qvStyleVisualStudio);
check("highlight read after shadow", copy.HighlightColor, 0x0000FF);
check("drop mode", copy.OLEDropMode, qvOLEDropNone);
check("keys are not stored", copy.Headers.Item(2).Key !== "notes", true);
check("same save", JSON.stringify(Test.writeProperties(copy)), JSON.stringify(bag));

// Garbage reads as the defaults.
var odd = Test.readProperties({ NumHeaders: "many", Style: {}, PlaySounds: "perhaps", ScrollDelay: 1e9 });
check("garbage header count", odd.Headers.Count, 0);
check("garbage style", odd.Style, qvStyleOutlook);
check("garbage flag", odd.PlaySounds, true);
check("garbage delay", odd.ScrollDelay, 120);

try {
    Test.writeProperties(notes);
    throw new Error("writeProperties took a header");
} catch (e) {
    check("error for a non-control", e.message, "Test.writeProperties: the argument is not a control");
}
print("saved and reloaded");
