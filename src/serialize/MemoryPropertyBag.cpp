#include "serialize/MemoryPropertyBag.h"

namespace OrrinQuiver {

MemoryPropertyBag::MemoryPropertyBag(const QVariantMap &values)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        store(it.key(), it.value());
}

QStringList MemoryPropertyBag::names() const { return m_order; }

QVariantMap MemoryPropertyBag::toVariantMap() const
{
    QVariantMap map;
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

void MemoryPropertyBag::clear()
{
    m_order.clear();
    m_values.clear();
}

std::optional<QVariant> MemoryPropertyBag::storedValue(const QString &name) const
{
    const auto it = m_values.constFind(name);
    if (it == m_values.cend())
        return std::nullopt;
    return *it;
}

void MemoryPropertyBag::store(const QString &name, const QVariant &value)
{
    auto it = m_values.find(name);
    if (it == m_values.end()) {
        m_order.append(name);
        m_values.insert(name, value);
    } else {
        *it = value;
    }
}

void MemoryPropertyBag::remove(const QString &name)
{
    if (m_values.remove(name))
        m_order.removeOne(name);
}

} // namespace OrrinQuiver
