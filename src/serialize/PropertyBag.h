#pragma once

#include "core/OrrinQuiverExport.h"

#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <optional>

namespace OrrinQuiver {

// A keyed store of named values in which a host keeps a control's settings
// between sessions. Names are case-sensitive. Values are plain: Boolean
// (bool), Integer (qint16), Long (int), String (QString) and Font (QFont,
// kept as its QFont::toString() text); every backend can hold them, so a
// bag written to one backend reads back the same from any other.
//
// Reading converts the stored value to the type of the default it is read
// with, and a value that does not fit that type reads as the default: a
// missing key, a wrong-typed value and garbage all give the default.
class ORRINQUIVER_EXPORT PropertyBag
{
public:
    virtual ~PropertyBag();

    // The value under `name` as the type of `defaultValue` (see the class
    // comment for what each type accepts); `defaultValue` when the name is
    // missing or the value does not convert. With an invalid `defaultValue`
    // the stored value is returned as stored, invalid when missing.
    QVariant ReadProperty(const QString &name, const QVariant &defaultValue = {}) const;

    // Stores `value` under `name`. A value equal to `defaultValue` is not
    // stored, and an earlier value under that name is removed; with no
    // default (an invalid QVariant) the value is always stored. A value of a
    // type other than the plain ones is stored as its text.
    void WriteProperty(const QString &name, const QVariant &value, const QVariant &defaultValue = {});

    // The stored names, in the backend's own order.
    virtual QStringList names() const = 0;

protected:
    // The raw value under `name`, nothing when missing.
    virtual std::optional<QVariant> storedValue(const QString &name) const = 0;
    // Stores a plain value: bool, int or QString.
    virtual void store(const QString &name, const QVariant &value) = 0;
    virtual void remove(const QString &name) = 0;
};

} // namespace OrrinQuiver
