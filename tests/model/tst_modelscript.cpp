#include "ModelTestSupport.h"

#include <QtQml/QJSEngine>

using namespace OrrinQuiver;

// Drives the object model from a script, as a script host does.
class tst_ModelScript : public QObject
{
    Q_OBJECT

private slots:
    void script_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("result");

        QTest::newRow("add and count") << "h.Items.Add(0, 'k', 'c'); h.Items.Add(); h.Items.Count" << "2";
        QTest::newRow("item by position") << "h.Items.Add(0, 'k1'); h.Items.Add(0, 'k2'); h.Items.Item(2).Key" << "k2";
        QTest::newRow("item by key") << "h.Items.Add(0, 'k1', 'one'); h.Items.Item('K1').Caption" << "one";
        QTest::newRow("caption only finds nothing") << "h.Items.Add(0, 'k1', 'one'); h.Items.Item('one')" << "null";
        QTest::newRow("duplicate key") << "h.Items.Add(0, 'k'); h.Items.Add(0, 'K')" << "null";
        QTest::newRow("enumerate") << "h.Items.Add(0, 'a'); h.Items.Add(1, 'b'); h.Items.Add(0, 'c');"
                                      "h.Items.NewEnum().map(i => i.Key + i.Index).join()"
                                   << "a1,b2,c3";
        QTest::newRow("view from a number") << "h.View = 1; h.View" << "1";
        QTest::newRow("view out of range") << "h.View = 5; h.View" << "0";
        QTest::newRow("colour properties") << "var i = h.Items.Add(); i.ForeColor = 255; i.ForeColor" << "255";
        QTest::newRow("flash colours") << "h.Flash(true, 16, 32); 'done'" << "done";
        QTest::newRow("remove by position") << "h.Items.Add(); h.Items.Remove(1) + ',' + h.Items.Count" << "true,0";
        QTest::newRow("parent") << "h.Items.Add().Parent.Key" << "NEW_HEADER00001";
        QTest::newRow("headers lookup") << "headers.Item(1).Caption + headers.Count" << "Header 11";
    }
    void script()
    {
        QFETCH(QString, program);
        QFETCH(QString, result);

        Headers headers(nullptr);
        Header *header = headers.Add(0, QString(), QStringLiteral("Header 1"));
        QJSEngine engine;
        // The collection lives on the stack, like a control's would with its control.
        QJSEngine::setObjectOwnership(&headers, QJSEngine::CppOwnership);
        engine.globalObject().setProperty(QStringLiteral("headers"), engine.newQObject(&headers));
        engine.globalObject().setProperty(QStringLiteral("h"), engine.newQObject(header));
        const QJSValue value = engine.evaluate(program);
        QVERIFY2(!value.isError(), qPrintable(value.toString()));
        QCOMPARE(value.toString(), result);
        CHECK_MODEL(headers);
    }

    void garbageCollection()
    {
        // Items handed to a script stay the collection's: collecting the
        // script's garbage must not delete them.
        Headers headers(nullptr);
        Header *header = headers.Add();
        {
            QJSEngine engine;
            engine.globalObject().setProperty(QStringLiteral("h"), engine.newQObject(header));
            engine.evaluate(QStringLiteral("for (var n = 0; n < 200; ++n) h.Items.Add(); h.Items.Item(5); null"));
            engine.collectGarbage();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCOMPARE(header->Items()->Count(), 200);
        QCOMPARE(header->Items()->at(200)->Index(), 200);
        CHECK_MODEL(headers);
    }
};

QTEST_GUILESS_MAIN(tst_ModelScript)
#include "tst_modelscript.moc"
