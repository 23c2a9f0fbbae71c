#pragma once

#include <QtCore/QString>

class QFontMetrics;

namespace OrrinQuiver {

struct FittedText
{
    QString text;
    int width = 0;
};

// Shortens `text` with an ellipsis at its end so that it fits `width` pixels
// in `metrics`' font, and returns it with its measured width. Text that fits
// comes back unchanged; a width too small for anything gives the ellipsis or
// an empty text.
FittedText FitTextWithEllipsis(const QFontMetrics &metrics, const QString &text, int width);

} // namespace OrrinQuiver
