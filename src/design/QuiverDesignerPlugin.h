#pragma once

#include <QtCore/QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace OrrinQuiver {

// Puts Quiver into Qt Designer: an entry in the widget box, the control's
// properties in the property editor, and the control's whole state (its
// headers and items included) in the form file, as its PropertyBagText.
// Loading the form needs nothing of this plugin: uic's code and QUiLoader
// restore the control through that property.
class QuiverDesignerPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit QuiverDesignerPlugin(QObject *parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    // A Quiver in design mode when `parent` lies on a Designer form, in user
    // mode otherwise (a preview, or QUiLoader in a running program).
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface *core) override;
    // A control placed from the widget box: the saved state of a new
    // control, so it starts as InitProperties() leaves one.
    QString domXml() const override;

private:
    bool m_initialized = false;
};

} // namespace OrrinQuiver
