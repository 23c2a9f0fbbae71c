#include "FuzzSupport.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace OrrinQuiver::FuzzSupport {

namespace {

// Qt's warnings about odd input are expected by the thousand; only a fatal
// message stops the run.
void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "Qt fatal: %s\n", qPrintable(message));
        std::abort();
    }
}

// Files go to memory where the system offers it.
std::unique_ptr<QTemporaryDir> &inputFolder()
{
    static std::unique_ptr<QTemporaryDir> folder;
    return folder;
}

QString &lastInput()
{
    static QString path;
    return path;
}

} // namespace

QString writeInput(const uint8_t *data, size_t size, const QString &suffix)
{
    static quint64 counter = 0;
    QString &last = lastInput();
    if (!last.isEmpty())
        QFile::remove(last);
    // A new name for every input: QSettings caches what it read by file name.
    last = inputFolder()->filePath(QStringLiteral("input%1%2").arg(++counter).arg(suffix));
    QFile file(last);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(reinterpret_cast<const char *>(data), qint64(size)) != qint64(size))
        fail("cannot write the input file");
    return last;
}

void returnToEventLoop()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void fail(const char *what)
{
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

} // namespace OrrinQuiver::FuzzSupport

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    using namespace OrrinQuiver::FuzzSupport;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietMessages);
    // QApplication keeps argc by reference for its whole life; libFuzzer's own
    // arguments are none of its business. The application lives as long as
    // the process: destroyed among the static objects at exit, it would leave
    // Qt's font engines unreleased.
    static int argc = 1;
    static char name[] = "quiver-fuzz";
    static char *argv[] = { name, nullptr };
    static const QApplication *const application = new QApplication(argc, argv);
    Q_UNUSED(application);
    const QString shared = QStringLiteral("/dev/shm");
    inputFolder() = std::make_unique<QTemporaryDir>(
        QDir(shared).exists() ? shared + QStringLiteral("/quiver-fuzz-XXXXXX") : QString());
    if (!inputFolder()->isValid())
        fail("cannot make a folder for input files");
    return 0;
}
