#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

// Runs the built quiver command the way a user or CI does, and checks its exit
// code and output.
class tst_QuiverCommand : public QObject
{
    Q_OBJECT

private slots:
    void run_data();
    void run();
    void demoWritesScreens();

private:
    int quiver(const QStringList &arguments, const QString &directory);

    QString m_stdout;
    QString m_stderr;
};

int tst_QuiverCommand::quiver(const QStringList &arguments, const QString &directory)
{
    QProcess process;
    process.setWorkingDirectory(directory);
    process.start(QStringLiteral(QUIVER_EXECUTABLE), arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    m_stdout = QString::fromUtf8(process.readAllStandardOutput());
    m_stderr = QString::fromUtf8(process.readAllStandardError());
    return process.exitCode();
}

static QString script(const char *name)
{
    return qEnvironmentVariable("QUIVER_TEST_DATA") + QStringLiteral("/scripts/") + QLatin1String(name);
}

static QString document(const char *name)
{
    return qEnvironmentVariable("QUIVER_TEST_DATA") + QStringLiteral("/../serialize/fixtures/") + QLatin1String(name);
}

void tst_QuiverCommand::run_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");

    QTest::newRow("object model") << QStringList{"script", script("objectmodel.js")} << 0
                                  << "^ok 2 null\n$" << "";
    QTest::newRow("Test object") << QStringList{"script", script("windows.js"), "--size", "300x200"} << 0
                                 << "^ok\n$" << "";
    QTest::newRow("scroll arrows") << QStringList{"script", script("arrows.js")} << 0 << "^ok\n$" << "";
    QTest::newRow("events") << QStringList{"script", script("events.js")} << 0 << "^ok\n$" << "";
    QTest::newRow("uncaught error") << QStringList{"script", script("uncaught.js")} << 1 << "^before\n$"
                                    << "uncaught.js:3: ReferenceError: notDefinedAnywhere is not defined\n";
    QTest::newRow("error in an event handler")
        << QStringList{"script", script("handlererror.js")} << 1 << "^went on\n$" << "Error: handler saw PlaySounds";
    QTest::newRow("control error, caught and uncaught")
        << QStringList{"script", script("controlerror.js")} << 1 << "^true Invalid XML content supplied\n$"
        << "controlerror.js:9: Error: Invalid Quiver XML version in XML content199 - current version is 201 "
           "(number -2147216638)";
    QTest::newRow("missing script") << QStringList{"script", "no-such.js"} << 1 << "^$"
                                    << "quiver: cannot read no-such.js";
    QTest::newRow("no command") << QStringList{} << 2 << "^$" << "quiver: no command given";
    QTest::newRow("unknown command") << QStringList{"paint"} << 2 << "^$" << "unknown command \"paint\"";
    QTest::newRow("render a document")
        << QStringList{"render", document("control-201.xml"), "--out", "bar.png", "--size", "180x300"} << 0
        << "^bar.png\n$" << "";
    QTest::newRow("render a broken document")
        << QStringList{"render", document("broken-version-199.xml"), "--out", "bar.png"} << 1 << "^$"
        << "error -2147216638: Invalid Quiver XML version in XML content199";
    QTest::newRow("render a missing document") << QStringList{"render", "no-such.xml"} << 1 << "^$"
                                               << "quiver: cannot read no-such.xml";
    QTest::newRow("render without file") << QStringList{"render"} << 2 << "^$" << "render takes one FILE.xml";
    QTest::newRow("script without file") << QStringList{"script"} << 2 << "^$" << "script takes one FILE.js";
    QTest::newRow("size not WxH") << QStringList{"script", "x.js", "--size", "200"} << 2 << "^$"
                                  << "--size wants WxH";
    QTest::newRow("size for demo") << QStringList{"demo", "--size", "20x20"} << 2 << "^$"
                                   << "--size belongs to script";
}

void tst_QuiverCommand::run()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, out);
    QFETCH(QString, err);

    QTemporaryDir directory;
    const int code = quiver(arguments, directory.path());
    QVERIFY2(code == exitCode, qPrintable(QStringLiteral("exit code %1, stderr: %2").arg(code).arg(m_stderr)));
    if (arguments.contains(QStringLiteral("bar.png")) && exitCode == 0)
        QCOMPARE(QImage(directory.filePath(QStringLiteral("bar.png"))).size(), QSize(180, 300));
    QVERIFY2(QRegularExpression(out).match(m_stdout).hasMatch(), qPrintable(m_stdout));
    if (err.isEmpty())
        QVERIFY2(!m_stderr.contains(QStringLiteral("Error")), qPrintable(m_stderr));
    else
        QVERIFY2(m_stderr.contains(err), qPrintable(m_stderr));
}

void tst_QuiverCommand::demoWritesScreens()
{
    QTemporaryDir directory;
    const QString out = directory.filePath(QStringLiteral("screens"));
    QCOMPARE(quiver({QStringLiteral("demo"), QStringLiteral("--out"), out}, directory.path()), 0);
    const QStringList files = m_stdout.split(u'\n', Qt::SkipEmptyParts);
    // Every style, once with a large-icon header open and once with a small-icon one.
    QCOMPARE(files.size(), 10);
    QCOMPARE(files.first(), out + QStringLiteral("/quiver-outlook-large.png"));
    for (const QString &file : files)
        QCOMPARE(QImage(file).size(), QSize(200, 480));
}

QTEST_GUILESS_MAIN(tst_QuiverCommand)
#include "tst_quivercommand.moc"
