#include "ScriptTestDriver.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtQml/QJSEngine>
#include <QtTest/QTest>
#include <QtWidgets/QVBoxLayout>

using namespace OrrinQuiver;

// A widget that writes down the input it receives, in its own coordinates.
// It takes mouse and key events and leaves wheel events to its parents.
class Recorder : public QWidget
{
public:
    Recorder(const QString &name, QStringList *log, QWidget *parent = nullptr)
        : QWidget(parent)
        , m_log(log)
    {
        setObjectName(name);
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    bool event(QEvent *event) override
    {
        const QString type = QString::fromLatin1(QMetaEnum::fromType<QEvent::Type>().valueToKey(event->type()));
        const auto number = [](int n) { return QString::number(n); };
        if (auto *mouse = dynamic_cast<QMouseEvent *>(event)) {
            const QPoint at = mouse->position().toPoint();
            *m_log << QStringLiteral("%1 %2 %3,%4 button %5 buttons %6")
                          .arg(objectName(), type, number(at.x()), number(at.y()), number(mouse->button()),
                               number(int(mouse->buttons())));
        } else if (auto *wheel = dynamic_cast<QWheelEvent *>(event)) {
            const QPoint at = wheel->position().toPoint();
            *m_log << QStringLiteral("%1 Wheel %2,%3 delta %4")
                          .arg(objectName(), number(at.x()), number(at.y()), number(wheel->angleDelta().y()));
            return false;
        } else if (auto *key = dynamic_cast<QKeyEvent *>(event); key && event->type() == QEvent::KeyPress) {
            if (!QList{Qt::Key_Control, Qt::Key_Shift}.contains(key->key()))
                *m_log << QStringLiteral("%1 KeyPress %2 %3 modifiers %4")
                              .arg(objectName(), QKeySequence(key->key()).toString(), key->text())
                              .arg(int(key->modifiers()));
        } else if ((event->type() == QEvent::Enter || event->type() == QEvent::Leave) && objectName() != u"target") {
            *m_log << objectName() + u' ' + type.toLower();
        } else {
            return QWidget::event(event);
        }
        return true;
    }

private:
    QStringList *m_log;
};

class tst_ScriptTestDriver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void input_data();
    void input();
    void badArguments_data();
    void badArguments();
    void grabResizeNewControl();

private:
    QStringList m_log;
    QWidget *m_window = nullptr;
    Recorder *m_target = nullptr;
    QWidget *m_made = nullptr;
    ScriptTestDriver *m_driver = nullptr;
    QJSEngine *m_engine = nullptr;
};

void tst_ScriptTestDriver::init()
{
    m_log.clear();
    // The target sits inside its window with a margin, so control coordinates
    // differ from window coordinates; its two children split its top.
    m_window = new QWidget;
    auto *layout = new QVBoxLayout(m_window);
    layout->setContentsMargins(7, 9, 7, 9);
    m_target = new Recorder(QStringLiteral("target"), &m_log);
    m_target->setMinimumSize(200, 300);
    layout->addWidget(m_target);
    (new Recorder(QStringLiteral("left"), &m_log, m_target))->setGeometry(20, 0, 80, 100);
    auto *right = new Recorder(QStringLiteral("right"), &m_log, m_target);
    right->setGeometry(100, 0, 100, 100);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    right->setFocus();

    m_made = new QWidget;
    m_made->setObjectName(QStringLiteral("made"));
    m_driver = new ScriptTestDriver(m_target, [this] { return m_made; });
    m_engine = new QJSEngine;
    m_engine->globalObject().setProperty(QStringLiteral("Test"), m_engine->newQObject(m_driver));
    QJSEngine::setObjectOwnership(m_driver, QJSEngine::CppOwnership);
    m_log.clear();
}

void tst_ScriptTestDriver::cleanup()
{
    delete m_engine;
    delete m_driver;
    delete m_made;
    delete m_window;
}

void tst_ScriptTestDriver::input_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("expected");

    const QStringList pressLeft{"left enter", "left MouseMove 10,20 button 0 buttons 0",
                                "left MouseButtonPress 10,20 button 1 buttons 1"};
    const QStringList clickRight{"right MouseButtonPress 50,30 button 1 buttons 1",
                                 "right MouseButtonRelease 50,30 button 1 buttons 0"};
    QTest::newRow("middle button on the control itself")
        << "Test.press(50, 200, 4)"
        << QStringList{"target MouseMove 50,200 button 0 buttons 0", "target MouseButtonPress 50,200 button 4 buttons 4"};
    // A press on a child, in its coordinates, left by default.
    QTest::newRow("release goes to the pressed child")
        << "Test.press(30, 20); Test.release(150, 10)"
        << pressLeft + QStringList{"left MouseMove 130,10 button 0 buttons 1",
                                   "left MouseButtonRelease 130,10 button 1 buttons 0", "left leave", "right enter"};
    QTest::newRow("move drags with the held button, or the buttons given")
        << "Test.press(30, 20); Test.move(150, 50); Test.move(150, 60, 3)"
        << pressLeft + QStringList{"left MouseMove 130,50 button 0 buttons 1", "left MouseMove 130,60 button 0 buttons 3"};
    QTest::newRow("move across children")
        << "Test.move(30, 5); Test.move(150, 5)"
        << QStringList{"left enter", "left MouseMove 10,5 button 0 buttons 0", "left leave", "right enter",
                       "right MouseMove 50,5 button 0 buttons 0"};
    QTest::newRow("two clicks are no double click")
        << "Test.click(150, 30); Test.click(150, 30)"
        << QStringList{"right enter", "right MouseMove 50,30 button 0 buttons 0"} + clickRight + clickRight;
    QTest::newRow("wheel goes up to the parents")
        << "Test.wheel(150, 30, -120)"
        << QStringList{"right Wheel 50,30 delta -120", "target Wheel 150,30 delta -120"};
    QTest::newRow("key to the focus widget") << "Test.key('Down')" << QStringList{"right KeyPress Down  modifiers 0"};
    QTest::newRow("letter with modifiers")
        << "Test.key('a', 'Ctrl+Shift')"
        << QStringList{"right KeyPress A A modifiers " + QString::number(int(Qt::ControlModifier | Qt::ShiftModifier))};
}

void tst_ScriptTestDriver::input()
{
    QFETCH(QString, script);
    QFETCH(QStringList, expected);
    const QJSValue result = m_engine->evaluate(script);
    QVERIFY2(!result.isError(), qPrintable(result.toString()));
    QCOMPARE(m_log, expected);
}

void tst_ScriptTestDriver::badArguments_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("message");

    QTest::newRow("no such button") << "Test.press(1, 1, 3)" << "Test: 3 is not a button (1 left, 2 right, 4 middle)";
    QTest::newRow("move, no such buttons") << "Test.move(1, 1, 8)"
                                           << "Test.move: 8 is not a sum of the buttons 1, 2 and 4";
    QTest::newRow("unknown key") << "Test.key('Downwards')" << "Test.key: unknown key \"Downwards\"";
    QTest::newRow("unknown modifier") << "Test.key('A', 'Ctrl+Hyper')" << "Test.key: unknown modifier \"Hyper\"";
    QTest::newRow("empty size") << "Test.resize(0, 10)" << "Test.resize: 0 x 10 is not a size";
    QTest::newRow("unwritable picture") << "Test.grab('/nonexistent/dir/x.png')"
                                        << "Test.grab: cannot write \"/nonexistent/dir/x.png\"";
}

void tst_ScriptTestDriver::badArguments()
{
    QFETCH(QString, script);
    QFETCH(QString, message);
    const QJSValue result = m_engine->evaluate(script);
    QVERIFY(result.isError());
    QCOMPARE(result.property(QStringLiteral("message")).toString(), message);
    QVERIFY(m_log.isEmpty());
}

void tst_ScriptTestDriver::grabResizeNewControl()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("target.png"));
    const QJSValue result = m_engine->evaluate(
        QStringLiteral("Test.resize(240, 320); Test.grab('%1'); Test.newControl().objectName").arg(path));
    QCOMPARE(result.toString(), QStringLiteral("made"));
    QCOMPARE(m_target->size(), QSize(240, 320));
    QCOMPARE(m_window->size(), QSize(240 + 14, 320 + 18));
    QCOMPARE(QImage(path).size(), QSize(240, 320));
}

QTEST_MAIN(tst_ScriptTestDriver)
#include "tst_scripttestdriver.moc"
