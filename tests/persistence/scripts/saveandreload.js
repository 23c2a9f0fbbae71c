// A script saves a control into a plain object and loads a new control from it.
function check(what, actual, expected) {
    if (actual !== expected)
        throw new Error(what + ": got " + actual + ", expected " + expected);
}

Quiver1.OLEDropMode = qvOLEDropNone;
Quiver1.Style = qvStyleVisualStudio;
var notes = Quiver1.Headers.Add(0, "notes", "Notes", qvViewSmallIcons);
notes.Items.Add(0, "", "Today");
var bag = Test.writeProperties(Quiver1);
check("numbers stay numbers", bag.Style, qvStyleVisualStudio);
check("drop mode at its default", "OLEDropMode" in bag, false);

var copy = Test.readProperties(bag);
check("restored caption", copy.Headers.Item(2).Items.Item(1).Caption, "Today");
check("restored view", copy.Headers.Item(2).View, qvViewSmallIcons);
check("drop mode", copy.OLEDropMode, qvOLEDropNone);
check("keys are not stored", copy.Headers.Item(2).Key !== "notes", true);
check("same save", JSON.stringify(Test.writeProperties(copy)), JSON.stringify(bag));
check("garbage reads as the default", Test.readProperties({ ScrollDelay: 1e9 }).ScrollDelay, 120);

try {
    Test.writeProperties(notes);
    throw new Error("writeProperties took a header");
} catch (e) {
    check("error for a non-control", e.message, "Test.writeProperties: the argument is not a control");
}
print("saved and reloaded");
