
#include "QuiverTest.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QRegularExpression>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>
#include <QtGui/QAction>
#include <QtGui/QUndoStack>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QPushButton>

namespace {

// A form holding one Visual Studio bar with its own back colour.
const QString Form
    = QStringLiteral(R"(<ui version="4.0"><class>Form</class><widget class="QWidget" name="Form">
 <widget class="OrrinQuiver::Quiver" name="quiver">
  <property name="Style"><enum>OrrinQuiver::qvStyleVisualStudio</enum></property>
  <property name="BackColor"><UInt>197121</UInt></property>
 </widget></widget></ui>)");
constexpr OLE_COLOR FormBackColor = 197121;

} // namespace

class tst_StyleTaskMenu : public QObject
{
    Q_OBJECT

private slots:
    // Designer itself: the form editor with its task menus, and the plugins found
    // under QT_PLUGIN_PATH, ours among them.
    void initTestCase()
    {
        QDesignerComponents::initializeResources();
        core = QDesignerComponents::createFormEditor(this);
        QDesignerComponents::createTaskMenu(core, core);
        core->setIntegration(new QDesignerIntegration(core, core));
        QDesignerComponents::initializePlugins(core);
    }

    void applyIsOneUndoableChange_data()
    {
        QTest::addColumn<int>("chosen");
        QTest::addColumn<OLE_COLOR>("backColor");
        QTest::newRow("Outlook") << int(qvStyleOutlook) << SystemColors::ButtonShadow;
        QTest::newRow("WindowsXP") << int(qvStyleWindowsXP) << rgbColor(222, 219, 214);
    }
    void applyIsOneUndoableChange()
    {
        QFETCH(int, chosen);
        QFETCH(OLE_COLOR, backColor);
        // A cleared picture leaves nothing in the form that it cannot write.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("ItemMouseIcon")));
        QDesignerFormWindowInterface *form = core->formWindowManager()->createFormWindow();
        form->setContents(Form);
        auto *bar = form->mainContainer()->findChild<Quiver *>();
        QVERIFY(bar);
        bar->setItemMouseIcon(QVariant::fromValue(QCursor(Qt::CrossCursor)));
        auto *menu = qt_extension<QDesignerTaskMenuExtension *>(core->extensionManager(), bar);
        QVERIFY(menu);
        QCOMPARE(menu->taskActions().size(), 1);
        QCOMPARE(menu->taskActions().first()->text(), QStringLiteral("Styles..."));

        menu->taskActions().first()->trigger();
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        auto *styles = dialog->findChild<QComboBox *>(QStringLiteral("cmbStyle"));
        QCOMPARE(styles->currentIndex(), int(qvStyleVisualStudio));
        styles->setCurrentIndex(chosen);
        const int steps = form->commandHistory()->index();
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("cmdApplySettings")),
                          Qt::LeftButton);

        QCOMPARE(int(bar->Style()), chosen);
        QCOMPARE(bar->BackColor(), backColor);
        QVERIFY(!bar->ItemMouseIcon().isValid());
        QCOMPARE(form->commandHistory()->index(), steps + 1);
        QVERIFY(form->isDirty());
        const QString saved = form->contents();
        QVERIFY(saved.contains(QString::fromLatin1(QMetaEnum::fromType<qvStyle>().valueToKey(chosen))));
        QVERIFY(saved.contains(QStringLiteral("<UInt>%1</UInt>").arg(backColor)));

        form->commandHistory()->undo();
        QCOMPARE(bar->Style(), qvStyleVisualStudio);
        QCOMPARE(bar->BackColor(), FormBackColor);
        QCOMPARE(bar->ItemMouseIcon().value<QCursor>().shape(), Qt::CrossCursor);
        dialog->reject();
        delete form;
    }

private:
    QDesignerFormEditorInterface *core = nullptr;
};

QTEST_MAIN(tst_StyleTaskMenu)
#include "tst_styletaskmenu.moc"
