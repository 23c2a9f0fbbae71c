#include "design/StyleTaskMenu.h"

#include "design/StylePage.h"
#include "control/StylePreset.h"

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtGui/QAction>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QVBoxLayout>

namespace OrrinQuiver {

namespace {

// Writes through the form window's cursor, as the property editor does: every
// write is a command in the form's undo history and marks the property as
// changed, so that the form saves it. A control no longer on a form takes no
// writes.
class FormWindowTarget final : public StylePreset::Target
{
public:
    explicit FormWindowTarget(QWidget *control)
        : m_control(control)
    { }

    QVariant read(const char *name) const override
    {
        return m_control ? m_control->property(name) : QVariant();
    }

    // A form cannot hold an empty value: a cleared picture is the
    // property's default, and the form keeps no entry for it.
    void write(const char *name, const QVariant &value) override
    {
        QDesignerFormWindowInterface *form = formWindow();
        if (!form)
            return;
        if (value.isValid())
            form->cursor()->setWidgetProperty(m_control, QString::fromLatin1(name), value);
        else
            form->cursor()->resetWidgetProperty(m_control, QString::fromLatin1(name));
    }

    // One preset is one step of the undo history.
    void beginPreset() override
    {
        if (QDesignerFormWindowInterface *form = formWindow())
            form->beginCommand(StyleTaskMenu::tr("Apply style preset"));
    }

    void endPreset() override
    {
        if (QDesignerFormWindowInterface *form = formWindow())
            form->endCommand();
    }

private:
    QDesignerFormWindowInterface *formWindow() const
    {
        return m_control ? QDesignerFormWindowInterface::findFormWindow(m_control) : nullptr;
    }

    QPointer<QWidget> m_control;
};

} // namespace

StyleTaskMenu::StyleTaskMenu(QWidget *control, QObject *parent)
    : QObject(parent)
    , m_control(control)
    , m_styles(new QAction(tr("Styles..."), this))
{
    connect(m_styles, &QAction::triggered, this, &StyleTaskMenu::showStylePage);
}

QList<QAction *> StyleTaskMenu::taskActions() const { return { m_styles }; }

void StyleTaskMenu::showStylePage()
{
    if (!m_control)
        return;
    QWidget *owner = QDesignerFormWindowInterface::findFormWindow(m_control);
    auto *dialog = new QDialog(owner ? owner : m_control->window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Styles"));
    auto *page = new StylePage(dialog);
    page->setTarget(std::make_unique<FormWindowTarget>(m_control));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(page);
    layout->addWidget(buttons);
    dialog->open();
}

} // namespace OrrinQuiver
