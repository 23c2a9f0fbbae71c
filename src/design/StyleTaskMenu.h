#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtDesigner/QDesignerTaskMenuExtension>

class QAction;

namespace OrrinQuiver {

// The "Styles..." entry of a Quiver's context menu in Qt Designer. It opens
// the style page for that control; the preset the page applies goes through
// the control's form window, as one change that can be undone and is saved
// with the form.
class StyleTaskMenu : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    // A null control gives an entry that does nothing, as does one whose
    // control has been destroyed.
    StyleTaskMenu(QWidget *control, QObject *parent);

    QList<QAction *> taskActions() const override;

private:
    // Opens the page as a window-modal dialog; nothing once the control is gone.
    void showStylePage();

    QPointer<QWidget> m_control;
    QAction *m_styles;
};

} // namespace OrrinQuiver
