#pragma once

#include "core/OrrinQuiverExport.h"
#include "serialize/PropertyBag.h"

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace OrrinQuiver {

// A property bag in a QSettings store, normally an INI file
// (QSettings::IniFormat), under one group, so that several controls can
// share a file. The settings object stays the caller's: it must outlive the
// bag, and the caller calls sync() and checks status() to learn whether a
// save reached the disk. An INI file lists its names alphabetically, not in
// the order written.
class ORRINQUIVER_EXPORT SettingsPropertyBag : public PropertyBag
{
public:
    // `group` empty: the names sit at the top level of the store.
    explicit SettingsPropertyBag(QSettings &settings, const QString &group = {});

    QStringList names() const override;

protected:
    std::optional<QVariant> storedValue(const QString &name) const override;
    void store(const QString &name, const QVariant &value) override;
    void remove(const QString &name) override;

private:
    QString key(const QString &name) const;

    QSettings &m_settings;
    QString m_group;
};

} // namespace OrrinQuiver
