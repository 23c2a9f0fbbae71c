// An error that the control raises arrives as a JavaScript error with its
// number; the one left uncaught ends the script.
try {
    Quiver1.XML = "<notquiver/>";
    print("not thrown");
} catch (e) {
    print(e.number === qvErrorXMLInvalidContent, e.message);
}
Quiver1.XML = '<?xml version="1.0"?><orrinquiver version="199" data="items"/>';
print("not reached");
