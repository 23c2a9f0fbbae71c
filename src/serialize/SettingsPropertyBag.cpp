#include "serialize/SettingsPropertyBag.h"

#include <QtCore/QSettings>

namespace OrrinQuiver {

SettingsPropertyBag::SettingsPropertyBag(QSettings &settings, const QString &group)
    : m_settings(settings)
    , m_group(group)
{ }

QStringList SettingsPropertyBag::names() const
{
    m_settings.beginGroup(m_group);
    QStringList result = m_settings.childKeys();
    m_settings.endGroup();
    return result;
}

std::optional<QVariant> SettingsPropertyBag::storedValue(const QString &name) const
{
    const QString k = key(name);
    if (!m_settings.contains(k))
        return std::nullopt;
    return m_settings.value(k);
}

void SettingsPropertyBag::store(const QString &name, const QVariant &value)
{
    m_settings.setValue(key(name), value);
}

void SettingsPropertyBag::remove(const QString &name) { m_settings.remove(key(name)); }

QString SettingsPropertyBag::key(const QString &name) const
{
    return m_group.isEmpty() ? name : m_group + u'/' + name;
}

} // namespace OrrinQuiver
