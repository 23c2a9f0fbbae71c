#pragma once

// Small pictures written as text, one letter per pixel, so that a pixel test
// states its source and its expected result plainly. M is the tests' mask
// colour, Y the canvas, F, S and W the classic button face, shadow and
// highlight, _ a transparent pixel; p, r and v are red mixed half and half
// with the classic highlight, with white and with blue.

#include "core/OleColor.h"

#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace PixelArt {

constexpr OrrinQuiver::OLE_COLOR Mask = OrrinQuiver::rgbColor(255, 0, 255);

inline const QList<std::pair<char, QRgb>> Inks = {
    {'R', 0xFFFF0000u}, {'G', 0xFF00FF00u}, {'B', 0xFF0000FFu}, {'K', 0xFF000000u},
    {'W', 0xFFFFFFFFu}, {'M', 0xFFFF00FFu}, {'Y', 0xFFFFFF00u}, {'F', 0xFFD4D0C8u},
    {'S', 0xFF808080u}, {'_', 0x00000000u}, {'p', 0xFF841235u}, {'r', 0xFFFF7F7Fu},
    {'v', 0xFF7F007Fu}};

inline QImage art(const QStringList &rows)
{
    QImage image(int(rows.first().size()), int(rows.size()), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            for (const auto &[letter, colour] : Inks)
                if (rows[y][x] == QLatin1Char(letter))
                    image.setPixel(x, y, colour);
        }
    }
    return image;
}

// The letters of an image's pixels; '?' for a colour without a letter.
inline QStringList letters(const QImage &image)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    QStringList rows;
    for (int y = 0; y < argb.height(); ++y) {
        QString row(argb.width(), QLatin1Char('?'));
        for (int x = 0; x < argb.width(); ++x) {
            const QRgb p = qAlpha(argb.pixel(x, y)) == 0 ? 0 : argb.pixel(x, y);
            for (const auto &[letter, colour] : Inks)
                if (colour == p)
                    row[x] = QLatin1Char(letter);
        }
        rows << row;
    }
    return rows;
}

inline QImage canvas(int width, int height, qreal ratio = 1.0)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(255, 255, 0));
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace PixelArt
