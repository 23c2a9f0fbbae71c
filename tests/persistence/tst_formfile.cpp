#include "QuiverTest.h"

#include "ui_navigation.h"

#include <QtCore/QFile>
#include <QtCore/QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <QtUiTools/QUiLoader>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString QuiverClass = QString::fromLatin1(Quiver::staticMetaObject.className());

// How a host without the Designer plugin loads a form: it makes the control itself.
class HostLoader : public QUiLoader
{
public:
    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        if (className != QuiverClass)
            return QUiLoader::createWidget(className, parent, name);
        auto *control = new Quiver(parent);
        control->setObjectName(name);
        return control;
    }
};

std::unique_ptr<QWidget> load(QUiLoader &loader)
{
    QFile file(qEnvironmentVariable("QUIVER_TEST_DATA") + u"/fixtures/navigation.ui"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return std::unique_ptr<QWidget>(loader.load(&file));
}

} // namespace

class tst_FormFile : public QObject
{
    Q_OBJECT

private slots:
    void load_data()
    {
        QTest::addColumn<QString>("loader");
        QTest::newRow("uic") << u"uic"_s;
        QTest::newRow("QUiLoader") << u"host"_s;
        QTest::newRow("QUiLoader with the plugin") << u"plugin"_s;
    }
    void load()
    {
        QFETCH(QString, loader);

        std::unique_ptr<QWidget> form;
        if (loader == u"uic") {
            form = std::make_unique<QWidget>();
            Ui::NavigationForm().setupUi(form.get());
        } else if (loader == u"host") {
            HostLoader host;
            form = ::load(host);
        } else {
            QUiLoader withPlugin;
            withPlugin.clearPluginPaths();
            withPlugin.addPluginPath(QStringLiteral(QUIVER_DESIGNER_PLUGIN_DIR));
            QVERIFY(withPlugin.availableWidgets().contains(QuiverClass));
            form = ::load(withPlugin);
        }
        QVERIFY(form);
        auto *quiver = form->findChild<Quiver *>(u"quiver"_s);
        QVERIFY(quiver);
        QVERIFY(!quiver->DesignMode());

        QCOMPARE(quiver->Style(), qvStyleOutlookXP);
        QCOMPARE(quiver->BackColor(), OLE_COLOR(0x00A0B0C0));
        QVERIFY(!quiver->PlaySounds());
        QCOMPARE(quiver->ScrollDelay(), 250);
        QCOMPARE(quiver->OLEDropMode(), qvOLEDropHeadersItems);
        QVERIFY(quiver->Navigation()->Enabled());
        QStringList headers;
        for (const Header *header : *quiver->Headers())
            headers << u"%1:%2:%3:%4:%5"_s.arg(header->Caption())
                           .arg(header->Items()->Count())
                           .arg(header->Enabled())
                           .arg(header->View())
                           .arg(header->ToolTipText());
        QCOMPARE(headers,
                 QStringList({ u"Mail:3:1:0:Mail"_s, u"Calendar:0:0:1:Dates & times"_s,
                               u"Contacts:2:1:0:Contacts"_s }));
        const OrrinQuiver::Items *mail = quiver->Headers()->at(1)->Items();
        QCOMPARE(mail->at(1)->Icon().toString(), u"inbox"_s);
        QCOMPARE(mail->at(2)->URLIcon(), u"https://example.invalid/outbox.png"_s);
        QVERIFY(!mail->at(3)->Visible());
        QCOMPARE(quiver->SelectedHeader(), quiver->Headers()->at(3));
        QCOMPARE(quiver->SelectedItem()->Caption(), u"Work"_s);
        QCOMPARE(quiver->SelectedItem()->Tag().toString(), u"office"_s);
    }

    void plugin()
    {
        QPluginLoader loader(QStringLiteral(QUIVER_DESIGNER_PLUGIN_DIR) + u"/libOrrinQuiverDesigner.so"_s);
        auto *plugin = qobject_cast<QDesignerCustomWidgetInterface *>(loader.instance());
        QVERIFY2(plugin, qPrintable(loader.errorString()));
        // Forms saved by Designer include what the plugin names.
        QCOMPARE(plugin->includeFile(), u"control/Quiver.h"_s);
        // Outside a Designer form (a preview, a running program) the control is in user mode, empty.
        QWidget parent;
        auto *made = qobject_cast<Quiver *>(plugin->createWidget(&parent));
        QVERIFY(made);
        QVERIFY(!made->DesignMode());
        QCOMPARE(made->Headers()->Count(), 0);
    }
};

QTEST_MAIN(tst_FormFile)
#include "tst_formfile.moc"
