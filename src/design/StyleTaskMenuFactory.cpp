#include "design/StyleTaskMenuFactory.h"

#include "control/Quiver.h"
#include "design/StyleTaskMenu.h"

namespace OrrinQuiver {

StyleTaskMenuFactory::StyleTaskMenuFactory(QExtensionManager *parent)
    : QExtensionFactory(parent)
{ }

QObject *StyleTaskMenuFactory::createExtension(QObject *object, const QString &iid, QObject *parent) const
{
    auto *control = qobject_cast<Quiver *>(object);
    if (!control || iid != QLatin1String(Q_TYPEID(QDesignerTaskMenuExtension)))
        return nullptr;
    return new StyleTaskMenu(control, parent);
}

} // namespace OrrinQuiver
