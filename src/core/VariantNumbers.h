#pragma once

class QVariant;

namespace OrrinQuiver {

// Whether `value` holds a whole-number type, the character types included;
// false for Bool, for texts and for an empty variant.
bool isIntegralVariant(const QVariant &value);

// Whether `value` holds a Float or a Double; false for anything else.
bool isFloatingVariant(const QVariant &value);

// Whether `value` holds a whole-number or a floating type; false for Bool,
// for texts and for an empty variant.
bool isNumericVariant(const QVariant &value);

// Whether `value` holds a char, signed char or unsigned char; false for
// anything else, QChar included.
bool isCharVariant(const QVariant &value);

} // namespace OrrinQuiver
