#pragma once

#include <QtCore/QString>

QT_FORWARD_DECLARE_CLASS(QObject)

// The readers of the control document and of the header fragment. Both throw
// QuiverError for a text they cannot use at all:
//   qvErrorXMLInvalidContent   the text does not parse, or has no
//                              "orrinquiver" root (or no header element in a
//                              fragment);
//   qvErrorXMLInvalidVersion   a control document whose version is not 200
//                              or 201 (also a missing or non-numeric one);
//   qvErrorXMLParserNotPresent no memory was left to build the document.
// They throw before changing anything. Once reading has begun nothing is
// thrown: a header or item attribute that names no property of its object,
// or whose value does not convert, ends the reading there and keeps what was
// read (see docs/xml.md for the exact stop rules).
namespace OrrinQuiver {

class Header;
class Headers;
class Navigation;

namespace XmlReader {

// Reads a control document into `control` (the Quiver, written through its
// properties by name), its `headers` and its `navigation`. A root whose
// "data" is "items" replaces every header, any other adds after them; the
// style on the root is applied only from version 201 on, and unknown style
// attributes or unreadable style values are skipped.
void readControlDocument(QObject &control, Headers &headers, Navigation &navigation, const QString &xml);

// Replaces the items of `header` with those of the fragment's first header
// element; that element's own attributes are not read, nor is the version.
void readHeaderFragment(Header &header, const QString &xml);

} // namespace XmlReader
} // namespace OrrinQuiver
