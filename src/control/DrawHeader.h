#pragma once

#include "core/OleColor.h"
#include "core/QuiverEnums.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QFont>

class QFontMetrics;
class QPainter;
class QPalette;

namespace OrrinQuiver {

// The three looks of a header bar; the value a bar remembers between draws.
enum HeaderState : int {
    HeaderNormal = 0, // raised
    HeaderHot = 1, // raised twice: the mouse is over it
    HeaderPressed = 2 // sunken
};

// The colours a bar is painted with, as the object model stores them.
struct HeaderColors
{
    OLE_COLOR back = SystemColors::ButtonFace;
    OLE_COLOR fore = SystemColors::ButtonText;
    OLE_COLOR overFore = SystemColors::ButtonText;
    OLE_COLOR highlight = SystemColors::ButtonHighlight;
    OLE_COLOR shadow = SystemColors::ButtonShadow;
    OLE_COLOR dkShadow = SystemColors::ButtonDarkShadow;
};

// Everything that decides how one bar looks.
struct HeaderLook
{
    int state = HeaderNormal;
    qvStyle style = qvStyleOutlook;
    QString caption;
    QFont font;
    bool enabled = true;
    HeaderColors colors;
};

// Paints a bar of `size` (logical pixels) with `look`, resolving system
// colours through `palette`. Lines are one logical pixel at any device pixel
// ratio. A state outside the three known ones paints the flat background and
// the caption in the normal colour, without edges.
void DrawHeader(QPainter &painter, const QSize &size, const HeaderLook &look, const QPalette &palette);

} // namespace OrrinQuiver
