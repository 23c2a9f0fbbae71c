#include "RecordingControlLink.h"

#include "control/Quiver.h"
#include "model/Navigation.h"
#include "core/ScriptErrors.h"

#include <QtCore/QRegularExpression>
#include <QtQml/QJSEngine>
#include <QtTest/QTest>

using namespace OrrinQuiver;

// Stands in for a control whose operation raises: both ways a script reaches
// the control, a method call and a property write, report the same error.
class Raiser : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)

public:
    Q_INVOKABLE int Raise(int number)
    {
        reportToScript(this, QuiverError(number, QStringLiteral("raised %1").arg(number)));
        return 0;
    }
    QString Text() const { return {}; }
    void setText(const QString &text) { reportToScript(this, QuiverError(qvErrorXMLInvalidContent, text)); }
};

// A control whose history writer fails, as one that gets no memory for the
// document would.
class FailingHistoryLink : public RecordingControlLink
{
public:
    QString historyXml(const OrrinQuiver::Navigation &) const override
    {
        throw QuiverError(qvErrorXMLParserNotPresent, QStringLiteral("MSXML or MSXML3 not found during XML operation"));
    }
};

class tst_ScriptErrors : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void throwsIntoScript_data();
    void throwsIntoScript();
    void strayErrorIsTakenBack();
    void withoutEngineWarns();

private:
    QJSEngine *m_engine = nullptr;
    Raiser *m_raiser = nullptr;
    Quiver *m_quiver = nullptr;
    FailingHistoryLink m_link;
    Navigation *m_history = nullptr;
};

void tst_ScriptErrors::init()
{
    m_engine = new QJSEngine;
    m_raiser = new Raiser;
    m_quiver = new Quiver;
    m_quiver->InitProperties();
    m_history = new Navigation(&m_link);
    for (const auto &[name, object] : { std::pair<const char *, QObject *> { "raiser", m_raiser },
                                        { "q", m_quiver }, { "history", m_history } }) {
        QJSEngine::setObjectOwnership(object, QJSEngine::CppOwnership);
        m_engine->globalObject().setProperty(QLatin1String(name), m_engine->newQObject(object));
    }
}

void tst_ScriptErrors::cleanup()
{
    delete m_engine;
    delete m_history;
    delete m_quiver;
    delete m_raiser;
}

void tst_ScriptErrors::throwsIntoScript_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expected");

    // Caught as an Error object with the error's number and description.
    const QString caught = QStringLiteral(
        "try { %1; 'not thrown' } catch (e) { (e instanceof Error) + '|' + e.number + '|' + e.message }");
    const QString invalid = "true|" + QString::number(qvErrorXMLInvalidContent) + "|Invalid XML content supplied";
    QTest::newRow("method") << caught.arg("raiser.Raise(-2147216638)") << "true|-2147216638|raised -2147216638";
    QTest::newRow("property write") << caught.arg("raiser.Text = 'bad text'") << "true|-2147216639|bad text";
    QTest::newRow("the rest of the try block is skipped")
        << "var after = 'no'; try { raiser.Raise(1); after = 'yes' } catch (e) {} after" << "no";
    QTest::newRow("uncaught ends the script") << "raiser.Raise(7); 'went on'" << "Error: raised 7";
    QTest::newRow("Quiver.XML, not a document of the control") << caught.arg("q.XML = '<quiver/>'") << invalid;
    QTest::newRow("Header.XML, text that does not parse")
        << caught.arg("q.Headers.Item(1).XML = 'not xml'") << invalid;
    QTest::newRow("Header.XML, no header element")
        << caught.arg("q.Headers.Item(1).XML = '<orrinquiver version=\"201\" data=\"items\"/>'") << invalid;
    QTest::newRow("Header.XML, uncaught") << "q.Headers.Item(1).XML = '<x/>'; 'went on'"
                                          << "Error: Invalid XML content supplied";
    QTest::newRow("Header.XML, a valid fragment")
        << caught.arg("var h = q.Headers.Item(1); h.Items.Add(0, 'k'); h.XML = h.XML") << "not thrown";
    QTest::newRow("Navigation.HistoryXML")
        << caught.arg("history.HistoryXML")
        << "true|" + QString::number(qvErrorXMLParserNotPresent) + "|MSXML or MSXML3 not found during XML operation";
}

void tst_ScriptErrors::throwsIntoScript()
{
    QFETCH(QString, script);
    QFETCH(QString, expected);
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    QCOMPARE(m_engine->evaluate(script).toString(), expected);
    // Nothing is left pending for the next script, and nothing is taken back
    // as a stray error once the event loop runs.
    QCoreApplication::processEvents();
    QCOMPARE(m_engine->evaluate(QStringLiteral("'next'")).toString(), QStringLiteral("next"));
}

void tst_ScriptErrors::strayErrorIsTakenBack()
{
    // A C++ caller reaches an object that a script has seen: the error must
    // not wait in the engine for whatever it evaluates next.
    QTest::ignoreMessage(QtWarningMsg, "OrrinQuiver error 5 outside a script call: Error: raised 5");
    m_raiser->Raise(5);
    QTRY_VERIFY(!m_engine->hasError());
    QCOMPARE(m_engine->evaluate(QStringLiteral("'next'")).toString(), QStringLiteral("next"));
}

void tst_ScriptErrors::withoutEngineWarns()
{
    Raiser alone;
    QTest::ignoreMessage(QtWarningMsg, "OrrinQuiver error 9: raised 9");
    QCOMPARE(alone.Raise(9), 0);
    QTest::ignoreMessage(QtWarningMsg, "OrrinQuiver error 3: no receiver");
    reportToScript(nullptr, QuiverError(3, QStringLiteral("no receiver")));
}

QTEST_MAIN(tst_ScriptErrors)
#include "tst_scripterrors.moc"
