#include "Render.h"

#include "ControlWindow.h"
#include "control/Quiver.h"
#include "core/QuiverError.h"
#include "platform/SystemColors.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

#include <cstdio>

namespace OrrinQuiver {

int renderDocument(const QString &documentFile, const QSize &controlSize, const QString &pngFile)
{
    QFile file(documentFile);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "quiver: cannot read %s: %s\n", qUtf8Printable(documentFile),
                     qUtf8Printable(file.errorString()));
        return 1;
    }
    const QString document = QString::fromUtf8(file.readAll());

    ControlWindow window(controlSize);
    Quiver *control = window.control();
    control->setPalette(classicPalette());
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        std::fprintf(stderr, "quiver: the control's window was not shown\n");
        return 1;
    }
    try {
        control->setXML(document);
    } catch (const QuiverError &error) {
        std::fprintf(stderr, "quiver: %s: error %d: %s\n", qUtf8Printable(documentFile), error.Number(),
                     error.what());
        return 1;
    }
    // The slides and deferred repaints that reading started settle first.
    QTest::qWait(0);

    const QFileInfo source(documentFile);
    const QString target = !pngFile.isEmpty()
        ? pngFile
        : source.dir().filePath(source.completeBaseName() + QStringLiteral(".png"));
    if (!control->grab().save(target, "PNG")) {
        std::fprintf(stderr, "quiver: cannot write %s\n", qUtf8Printable(target));
        return 1;
    }
    std::printf("%s\n", qUtf8Printable(QDir::toNativeSeparators(target)));
    return 0;
}

} // namespace OrrinQuiver
