#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>

namespace OrrinQuiver {

// Paints a newly placed control of `controlSize` that has read the XML
// document in `documentFile`, with the classic desktop colours so that the
// picture is the same on every machine, into the PNG file `pngFile` (the
// document's path with ".png" when empty). Prints the PNG's path on success;
// on failure prints why to stderr (a file that cannot be read, the document's
// own error with its number, a PNG that cannot be written) and returns 1.
int renderDocument(const QString &documentFile, const QSize &controlSize, const QString &pngFile);

} // namespace OrrinQuiver
