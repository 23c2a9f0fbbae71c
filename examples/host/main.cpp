// The smallest host of the installed library.
#include <platform/SystemColors.h>

#include <QtWidgets/QApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    const QColor face = OrrinQuiver::translateColor(OrrinQuiver::SystemColors::ButtonFace,
                                                    OrrinQuiver::classicPalette());
    std::printf("button face: %s\n", qPrintable(face.name()));
    return face == QColor(212, 208, 200) ? 0 : 1;
}
