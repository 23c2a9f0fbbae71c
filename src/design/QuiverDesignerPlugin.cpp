#include "design/QuiverDesignerPlugin.h"

#include "control/Quiver.h"
#include "design/StyleTaskMenuFactory.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>
#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace OrrinQuiver {

using namespace Qt::StringLiterals;

namespace {

// The widget-box picture: a bar with two headers at the top, one at the
// bottom, and two items between them.
constexpr int IconSize = 32;
constexpr int IconBarLeft = 4;
constexpr int IconBarWidth = 24;
constexpr int IconHeaderHeight = 6;
constexpr int IconItemSize = 6;
constexpr int IconItemTops[] = { 14, 21 };
const QColor IconBarColor(128, 128, 128);
const QColor IconHeaderColor(212, 208, 200);
const QColor IconEdgeColor(64, 64, 64);
const QColor IconItemColor(255, 255, 255);

// The size a control placed from the widget box starts with.
constexpr int PlacedWidth = 140;
constexpr int PlacedHeight = 320;

QIcon drawIcon()
{
    QPixmap pixmap(IconSize, IconSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.fillRect(IconBarLeft, 0, IconBarWidth, IconSize, IconBarColor);
    painter.setPen(IconEdgeColor);
    for (const int top : { 0, IconHeaderHeight, IconSize - IconHeaderHeight }) {
        painter.fillRect(IconBarLeft, top, IconBarWidth, IconHeaderHeight, IconHeaderColor);
        painter.drawRect(IconBarLeft, top, IconBarWidth - 1, IconHeaderHeight - 1);
    }
    for (const int top : IconItemTops)
        painter.fillRect((IconSize - IconItemSize) / 2, top, IconItemSize, IconItemSize, IconItemColor);
    return QIcon(pixmap);
}

} // namespace

QuiverDesignerPlugin::QuiverDesignerPlugin(QObject *parent)
    : QObject(parent)
{ }

QString QuiverDesignerPlugin::name() const
{
    return QString::fromLatin1(Quiver::staticMetaObject.className());
}

QString QuiverDesignerPlugin::group() const { return u"OrrinQuiver"_s; }

QString QuiverDesignerPlugin::toolTip() const { return u"Outlook-style navigation bar"_s; }

QString QuiverDesignerPlugin::whatsThis() const
{
    return u"A vertical bar of headers, one of them open, whose items fill the space between the headers "
           "above and below it."_s;
}

QString QuiverDesignerPlugin::includeFile() const { return u"control/Quiver.h"_s; }

QIcon QuiverDesignerPlugin::icon() const { return drawIcon(); }

bool QuiverDesignerPlugin::isContainer() const { return false; }

QWidget *QuiverDesignerPlugin::createWidget(QWidget *parent)
{
    auto *control = new Quiver(parent);
    control->setDesignMode(QDesignerFormWindowInterface::findFormWindow(parent) != nullptr);
    return control;
}

bool QuiverDesignerPlugin::isInitialized() const { return m_initialized; }

void QuiverDesignerPlugin::initialize(QDesignerFormEditorInterface *core)
{
    if (m_initialized)
        return;
    // Designer's own core gets the "Styles..." task menu; a loader without
    // one has no menus to extend.
    if (QExtensionManager *extensions = core ? core->extensionManager() : nullptr)
        extensions->registerExtensions(new StyleTaskMenuFactory(extensions),
                                       Q_TYPEID(QDesignerTaskMenuExtension));
    m_initialized = true;
}

QString QuiverDesignerPlugin::domXml() const
{
    Quiver fresh;
    fresh.InitProperties();
    return uR"(<ui language="c++" displayname="Quiver">
 <widget class="%1" name="quiver">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>%2</width><height>%3</height></rect>
  </property>
  <property name="PropertyBagText">
   <string notr="true">%4</string>
  </property>
 </widget>
</ui>
)"_s.arg(name())
        .arg(PlacedWidth)
        .arg(PlacedHeight)
        .arg(fresh.PropertyBagText().toHtmlEscaped());
}

} // namespace OrrinQuiver
