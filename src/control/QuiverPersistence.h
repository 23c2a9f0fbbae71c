#pragma once

namespace OrrinQuiver {

class PropertyBag;
class QuiverPrivate;

// Saving a control into a property bag and restoring it from one: the
// control's properties as the property table lists them, then every header
// with its items, then the open header and its current item.
namespace QuiverPersistence {

// Writes the control keys in the table's order, each against its default,
// then for every header its keys followed by its items' keys.
void write(const QuiverPrivate &d, PropertyBag &bag);
// Reads the control keys in the table's read order through their setters,
// adds the stored headers and items, and opens the stored place. A missing,
// wrong-typed or garbage value reads as the default it was saved against.
void read(QuiverPrivate &d, const PropertyBag &bag);

} // namespace QuiverPersistence
} // namespace OrrinQuiver
