// The host events by name: object arguments arrive as Header and Item
// objects, a by-reference argument as a box whose value the handler sets.
function check(what, actual, expected) {
    if (actual !== expected)
        throw new Error(what + ": got " + actual + ", expected " + expected);
}

var log = [];
var names = ["HeaderClick", "HeaderRenamed", "HeaderMouseDown", "HeaderMouseMove", "HeaderMouseUp",
             "HeaderOLEDragDrop", "HeaderOLEDragOver", "HeaderOLEStartDrag", "HeaderOLECompleteDrag",
             "ItemClick", "ItemRenamed", "ItemMouseDown", "ItemMouseMove", "ItemMouseUp", "ItemOLEDragDrop",
             "ItemOLEDragOver", "ItemOLEStartDrag", "ItemOLECompleteDrag", "ScrollUp", "ScrollDown",
             "IconDownloaded", "SmallIconDownloaded"];
names.forEach(function (name) {
    Quiver1[name].connect(function (first) {
        if (name.indexOf("Move") < 0)
            log.push(name + " " + (first && first.Key !== undefined ? first.Key : first));
    });
});

var items = Quiver1.Headers.Item(1).Items;
["a", "b", "c"].forEach(function (key) { items.Add(0, key, key); });
Test.wait(10);

// The middle of item b, found by hit tests down the control.
var rows = [];
for (var y = 0; y < Quiver1.height; ++y) {
    var hit = Quiver1.HitTest(10, y);
    if (hit && hit.Key === "b")
        rows.push(y);
}
Test.click(10, rows[rows.length >> 1]);
check("item click", log.join(","), "ItemMouseDown b,ItemClick b,ItemMouseUp b");
check("selected", Quiver1.SelectedItem.Key, "b");

log = [];
Test.click(10, Quiver1.height - 10);
var open = Quiver1.SelectedHeader.Key;
check("empty space", log.join(","), "HeaderMouseDown " + open + ",HeaderMouseUp " + open);

// A handler that allows no effect cancels the drag before it starts.
log = [];
var offered;
Quiver1.ItemOLEStartDrag.connect(function (item, data, allowed) {
    offered = allowed.value;
    allowed.value = 0;
});
var ended = -1;
Quiver1.ItemOLECompleteDrag.connect(function (item, effect) { ended = effect; });
items.Item("c").OLEDrag();
check("drag", log.join(","), "ItemOLEStartDrag c,ItemOLECompleteDrag c");
check("effects offered", offered, 3);
check("effect at the end", ended, 0);

print("ok");
