#pragma once

#include <QtCore/QString>
#include <QtGui/QStaticText>

class QFont;

namespace OrrinQuiver {

struct PreparedText
{
    // The text as fitted, laid out in the font it was prepared for.
    QStaticText text;
    // Its measured width in pixels.
    int width = 0;
};

// `text` shortened with an end ellipsis to fit `width` pixels in `font`
// (FitTextWithEllipsis), then laid out once. The most recently prepared
// texts are kept, so painting the same visible captions again costs no
// measuring and no text shaping. User-interface thread only.
PreparedText prepareFittedText(const QFont &font, const QString &text, int width);

} // namespace OrrinQuiver
