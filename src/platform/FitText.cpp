#include "platform/FitText.h"

#include <QtGui/QFontMetrics>

namespace OrrinQuiver {

FittedText FitTextWithEllipsis(const QFontMetrics &metrics, const QString &text, int width)
{
    const QString fitted = metrics.elidedText(text, Qt::ElideRight, qMax(width, 0));
    return { fitted, metrics.horizontalAdvance(fitted) };
}

} // namespace OrrinQuiver
