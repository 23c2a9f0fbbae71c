#pragma once

#include <QtDesigner/QExtensionFactory>

namespace OrrinQuiver {

// Gives every Quiver on a Designer form its "Styles..." task menu; other
// objects and other extensions get nothing from it.
class StyleTaskMenuFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    explicit StyleTaskMenuFactory(QExtensionManager *parent);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;
};

} // namespace OrrinQuiver
