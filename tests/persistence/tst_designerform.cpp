#include "QuiverTest.h"

#include "serialize/FormPropertyBag.h"

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerWidgetBoxInterface>

using namespace Qt::StringLiterals;

namespace {

QString fixture()
{
    QFile file(qEnvironmentVariable("QUIVER_TEST_DATA") + u"/fixtures/navigation.ui"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The text of the <property name="..."> element of a saved form; a null
// string when the form has none.
QString savedProperty(const QString &ui, const QString &name)
{
    QXmlStreamReader reader(ui);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == u"property"
            && reader.attributes().value(u"name"_s) == name) {
            reader.readNextStartElement();
            return reader.readElementText();
        }
    }
    return {};
}

} // namespace

// Qt Designer's own form editor, with the plugin found through QT_PLUGIN_PATH:
// a form holding a Quiver opens with the control in design mode, and saving
// it writes the control's state as it is now.
class tst_DesignerForm : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QDesignerComponents::initializeResources();
        m_core = QDesignerComponents::createFormEditor(this);
        m_core->setWidgetBox(QDesignerComponents::createWidgetBox(m_core, nullptr));
        m_core->setPropertyEditor(QDesignerComponents::createPropertyEditor(m_core, nullptr));
        new QDesignerIntegration(m_core, this);
        QDesignerComponents::initializePlugins(m_core);
        m_form = m_core->formWindowManager()->createFormWindow(nullptr);
    }

    void cleanupTestCase()
    {
        delete m_form;
        delete m_core->propertyEditor();
        delete m_core->widgetBox();
    }

    void savesCurrentState()
    {
        Quiver *quiver = open(fixture());
        QVERIFY(quiver);
        QVERIFY(quiver->DesignMode());
        QCOMPARE(quiver->Headers()->Count(), 3);

        // As the property editor does it: the change is saved as its own
        // property and inside the bag.
        m_form->clearSelection();
        m_form->selectWidget(quiver);
        m_form->cursor()->setProperty(u"ScrollDelay"_s, 500);
        quiver->Headers()->Add(0, {}, u"Tasks"_s);

        const QString saved = m_form->contents();
        QCOMPARE(savedProperty(saved, u"ScrollDelay"_s), u"500"_s);
        const QString bag = savedProperty(saved, u"PropertyBagText"_s);
        QCOMPARE(bag, quiver->PropertyBagText());
        const FormPropertyBag reread(bag);
        QCOMPARE(reread.ReadProperty(u"NumHeaders"_s, 0).toInt(), 4);
        QCOMPARE(reread.ReadProperty(u"ScrollDelay"_s, 0).toInt(), 500);
        QVERIFY(saved.contains(u"<string notr=\"true\">Style=2\n"_s));
    }

    void placedControlStartsNew()
    {
        // The widget box places what the plugin's domXml describes.
        QString ui = fixture();
        const qsizetype from = ui.indexOf(u"<property name=\"PropertyBagText\">"_s);
        const qsizetype to = ui.indexOf(u"</property>"_s, from) + qsizetype(sizeof("</property>") - 1);
        QDesignerWidgetBoxInterface::Widget entry;
        for (int c = 0; c < m_core->widgetBox()->categoryCount(); ++c) {
            const auto category = m_core->widgetBox()->category(c);
            for (int w = 0; w < category.widgetCount(); ++w) {
                if (category.widget(w).name() == u"Quiver")
                    entry = category.widget(w);
            }
        }
        const QString placed = savedProperty(entry.domXml(), u"PropertyBagText"_s);
        QVERIFY(!placed.isEmpty());
        ui.replace(from, to - from,
                   u"<property name=\"PropertyBagText\"><string notr=\"true\">"_s + placed.toHtmlEscaped()
                       + u"</string></property>"_s);

        Quiver *quiver = open(ui);
        QVERIFY(quiver);
        QCOMPARE(quiver->Headers()->Count(), 1);
        QCOMPARE(quiver->OLEDropMode(), qvOLEDropHeadersItems);
        QVERIFY(quiver->Navigation()->Enabled());
        NewQuiver fresh;
        QCOMPARE(quiver->PropertyBagText(), fresh.PropertyBagText());
    }

private:
    Quiver *open(const QString &ui)
    {
        if (!m_form->setContents(ui))
            return nullptr;
        return m_form->mainContainer()->findChild<Quiver *>();
    }

    QDesignerFormEditorInterface *m_core = nullptr;
    QDesignerFormWindowInterface *m_form = nullptr;
};

QTEST_MAIN(tst_DesignerForm)
#include "tst_designerform.moc"
