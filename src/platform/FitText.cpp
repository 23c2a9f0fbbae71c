#include "platform/FitText.h"

#include <QtGui/QFontMetrics>

namespace OrrinQuiver {

FittedText FitTextWithEllipsis(const QFontMetrics &metrics, const QString &text, int width)
{
    // Most captions fit, and measuring one costs a fraction of eliding it:
    // every visible item runs through here on every repaint.
    const int fullWidth = metrics.horizontalAdvance(text);
    if (fullWidth <= width)
        return { text, fullWidth };
    const QString fitted = metrics.elidedText(text, Qt::ElideRight, qMax(width, 0));
    return { fitted, metrics.horizontalAdvance(fitted) };
}

} // namespace OrrinQuiver
