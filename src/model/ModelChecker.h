#pragma once

#include <QtCore/QStringList>

namespace OrrinQuiver {

class Headers;
class Items;

// Checks the content model's invariants and returns one line per violation
// (empty when the model is sound): cached indexes against positions (allowing
// the documented early stops of renumbering), unique keys compared
// case-insensitively, the key tables against the members, back-links to the
// collections, unique view ids per item view, and the owning header's key
// stored in each header's items.
QStringList checkModel(const Headers &headers);
// The same checks for one item collection.
QStringList checkItems(const Items &items);

} // namespace OrrinQuiver
