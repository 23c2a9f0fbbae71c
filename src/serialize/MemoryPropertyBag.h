#pragma once

#include "core/OrrinQuiverExport.h"
#include "serialize/PropertyBag.h"

#include <QtCore/QHash>
#include <QtCore/QVariantMap>

namespace OrrinQuiver {

// A property bag held in memory. It keeps its names in the order they were
// first written, so a test or a script sees exactly what a save stored and
// in which order.
class ORRINQUIVER_EXPORT MemoryPropertyBag : public PropertyBag
{
public:
    MemoryPropertyBag() = default;
    // A bag holding `values` as they are (a script's plain object, say);
    // values that are not plain read as the defaults they are read with.
    explicit MemoryPropertyBag(const QVariantMap &values);

    QStringList names() const override;
    // The stored names and values (bool, int or QString for written ones).
    QVariantMap toVariantMap() const;
    // Removes every name.
    void clear();

protected:
    std::optional<QVariant> storedValue(const QString &name) const override;
    void store(const QString &name, const QVariant &value) override;
    void remove(const QString &name) override;

private:
    QStringList m_order;
    QHash<QString, QVariant> m_values;
};

} // namespace OrrinQuiver
