#pragma once

#include <QtCore/QString>

QT_FORWARD_DECLARE_CLASS(QObject)

// The writers of the three XML documents: the whole control, one header with
// its items, and the navigation history. `control` is the Quiver, read through
// its properties by name (the style, Font, palette, SelectedHeader,
// SelectedItem, ItemForeColor, DefaultMaskColor, Icons, SmallIcons); a property
// it lacks is written from an empty value. None of them fails.
namespace OrrinQuiver {

class Header;
class Headers;
class Navigation;

namespace XmlWriter {

// The control document: the style on the root, then every header with its
// items in position order. System colours are written as their current RGB.
QString controlDocument(const QObject &control, const Headers &headers, const Navigation &navigation);

// The header fragment: one header element carrying only the header's key as
// "filter-src", with the header's items below it.
QString headerFragment(const QObject &control, const Header &header);

// The history document: one element per entry of the history's lists.
QString historyDocument(const Navigation &navigation);

} // namespace XmlWriter
} // namespace OrrinQuiver
