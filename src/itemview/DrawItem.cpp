#include "itemview/DrawItem.h"

#include "imaging/ImageList.h"
#include "imaging/clsDrawPictures.h"
#include "imaging/clsImageList.h"
#include "itemview/ItemLayout.h"
#include "itemview/StyleFamily.h"
#include "platform/EdgeLines.h"
#include "platform/PreparedText.h"
#include "platform/SystemColors.h"
#include "core/VariantNumbers.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace OrrinQuiver {

namespace {

// Icon sizes of the large and small views while the view has no image list.
constexpr int LargeIconSize = 32;
constexpr int SmallIconSize = 16;
// Free pixels between an icon and the edges drawn around its cell.
constexpr int IconPad = 2;
// The cell a large icon sits in: the cell of the Outlook large view, and the
// one the Windows styles centre in the row.
constexpr int LargeCellWidth = LargeIconSize + 2 * IconPad;
// Icon above caption: room above the icon cell, between the cell and the
// caption, and below the caption (for the focus outline and a pressed
// item's shift).
constexpr int StackedTop = 2;
constexpr int CaptionGap = 2;
constexpr int StackedBottom = 4;
// Icon beside caption: room above and below the taller of the two, and
// between the icon cell and the caption.
constexpr int RowMargin = 2;
constexpr int CaptionIndent = 2;
// The caption keeps this much free at the row's ends.
constexpr int CaptionMargin = 3;
// The focus outline lies this far outside the caption.
constexpr int FocusMargin = 1;
// How far a pressed item's icon and caption move right and down when the bar
// asks for it.
constexpr int PressOffset = 1;
// How far the light copy of a disabled caption lies right of and below the
// dark one.
constexpr int EtchOffset = 1;

// Icon-beside-caption layout modes; every other mode stacks the caption
// below the icon.
constexpr int OutlookSmallMode = 1;
constexpr int FlatMode = 0;
constexpr int OutlookLargeMode = 2;

bool isStacked(int layoutMode) { return layoutMode != OutlookSmallMode && layoutMode != FlatMode; }

// The large view draws from the bar's Icons, the small view from SmallIcons.
const ImageList *listFor(const ItemLook &look, qvViewType view)
{
    return view == qvViewSmallIcons ? look.smallIcons.data() : look.icons.data();
}

QSize iconSize(const ItemLook &look, qvViewType view)
{
    if (const ImageList *list = listFor(look, view))
        return { list->ImageWidth(), list->ImageHeight() };
    const int side = view == qvViewSmallIcons ? SmallIconSize : LargeIconSize;
    return { side, side };
}

// An item names its icon by key (a text) or by 1-based position (a number,
// its fraction dropped); the list counts from 0. -1 when the list has no
// such image or the value is neither.
int iconIndex(const clsImageList &images, const QVariant &icon)
{
    if (icon.typeId() == QMetaType::QString)
        return images.ItemIndex(icon);
    // A one-byte character type is a character here, not a position.
    if (!isNumericVariant(icon) || isCharVariant(icon))
        return -1;
    const double position = icon.toDouble();
    if (!(position >= 1 && position < images.Count() + 1))
        return -1;
    return int(position) - 1;
}

// Every other pixel of the outline of `r`, starting at its top-left corner:
// the dotted look of a keyboard focus mark.
void drawFocusOutline(QPainter &painter, const QRect &r, const QColor &color)
{
    const auto dot = [&](int x, int y) {
        if ((x - r.left() + y - r.top()) % 2 == 0)
            painter.fillRect(QRect(x, y, 1, 1), color);
    };
    for (int x = r.left(); x <= r.right(); ++x) {
        dot(x, r.top());
        dot(x, r.bottom());
    }
    for (int y = r.top() + 1; y < r.bottom(); ++y) {
        dot(r.left(), y);
        dot(r.right(), y);
    }
}

void drawIcon(QPainter &painter, QPoint at, const ItemLook &look, qvViewType view, const ItemPaint &item,
              const QPalette &palette)
{
    const ImageList *list = listFor(look, view);
    const clsImageList *images = list ? list->Images() : nullptr;
    if (!images)
        return;
    const int index = iconIndex(*images, item.icon);
    if (index < 0)
        return;
    if (item.enabled) {
        images->DrawImage(index, painter, at.x(), at.y());
        return;
    }
    PictureOptions options;
    options.Palette = &palette;
    clsDrawPictures(palette).DrawDisabledPicture(painter,
                                                 QRect(at, QSize(images->IconSizeX(), images->IconSizeY())),
                                                 images->ItemPicture(index), item.maskColor, options);
}

// Where the parts of an item go inside its rectangle.
struct Placement
{
    QRect iconCell;
    PreparedText caption;
    QPoint captionAt; // top-left of the caption line
};

Placement place(const QRect &rect, const IconGeometry &geometry, QSize icon, const QFont &font,
                const QFontMetrics &metrics, const QString &caption)
{
    const QSize cell = icon + QSize(2 * IconPad, 2 * IconPad);
    Placement p;
    if (isStacked(geometry.layoutMode)) {
        const int cellWidth
            = geometry.layoutMode == OutlookLargeMode ? geometry.iconCellWidth : LargeCellWidth;
        p.iconCell = QRect(
            QPoint(rect.left() + geometry.iconLeft + (cellWidth - cell.width()) / 2, rect.top() + StackedTop),
            cell);
        p.caption = prepareFittedText(font, caption, rect.width() - 2 * CaptionMargin);
        p.captionAt = QPoint(rect.left() + (rect.width() - p.caption.width) / 2,
                             p.iconCell.bottom() + 1 + CaptionGap);
        return p;
    }
    p.iconCell = QRect(
        QPoint(rect.left() + geometry.iconLeft, rect.top() + (rect.height() - cell.height()) / 2), cell);
    int captionLeft = p.iconCell.right() + 1;
    if (geometry.layoutMode == OutlookSmallMode)
        captionLeft = qMax(captionLeft, rect.left() + geometry.iconLeft + geometry.iconCellWidth);
    captionLeft += CaptionIndent;
    p.caption = prepareFittedText(font, caption, rect.right() + 1 - CaptionMargin - captionLeft);
    p.captionAt = QPoint(captionLeft, rect.top() + (rect.height() - metrics.height()) / 2);
    return p;
}

int captionHeight(const QFont &font)
{
    QFont bold = font;
    bold.setBold(true);
    return qMax(QFontMetrics(font).height(), QFontMetrics(bold).height());
}

} // namespace

int ItemHeight(const ItemLook &look, qvViewType view)
{
    const int cell = iconSize(look, view).height() + 2 * IconPad;
    const int text = captionHeight(look.font);
    if (isStacked(iconGeometryFor(look.style, view, 0, IconGeometry()).layoutMode))
        return StackedTop + cell + CaptionGap + text + StackedBottom;
    return qMax(cell, text) + 2 * RowMargin;
}

void DrawItem(QPainter &painter, const QRect &rect, const ItemLook &look, qvViewType view,
              const IconGeometry &geometry, const ItemPaint &item, const QPalette &palette)
{
    if (!painter.isActive() || rect.isEmpty())
        return;
    const int state = item.state == ItemHot || item.state == ItemPressed ? item.state : ItemNormal;
    // Painting follows the three style families, as the header bars do.
    const StyleFamily family = styleFamilyOf(look.style);
    const ItemColors &c = look.colors;
    const auto color = [&palette](OLE_COLOR ole) { return translateColor(ole, palette); };

    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    QFont font = look.font;
    font.setBold(item.bold);
    font.setUnderline(state == ItemHot && look.underlineOnMove);
    painter.setFont(font);
    const QFontMetrics metrics = painter.fontMetrics();
    const Placement at = place(rect, geometry, iconSize(look, view), font, metrics, item.caption);

    // What lights up: the icon cell of Outlook's large icons, else the row.
    const QRect lit = family == StyleFamily::Outlook && isStacked(geometry.layoutMode) ? at.iconCell : rect;
    if (item.staysDown)
        clsDrawPictures(palette).PaintCheckPattern(painter, lit, clsDrawPictures::DitherPattern(), c.check,
                                                   &palette);
    else if (state == ItemPressed)
        painter.fillRect(lit, color(c.downBack));
    else if (state == ItemHot)
        painter.fillRect(lit, color(c.overBack));

    const bool sunken = item.staysDown || state == ItemPressed;
    if (family == StyleFamily::Flat) {
        if (sunken || state == ItemHot)
            drawEdges(painter, lit, color(c.dkShadow), color(c.dkShadow));
    } else if (sunken) {
        drawEdges(painter, lit, color(c.dkShadow), color(c.highlight));
    } else if (state == ItemHot) {
        drawEdges(painter, lit, color(c.highlight), color(c.dkShadow));
    }

    const QPoint shift
        = look.moveWithClick && state == ItemPressed ? QPoint(PressOffset, PressOffset) : QPoint();
    drawIcon(painter, at.iconCell.topLeft() + QPoint(IconPad, IconPad) + shift, look, view, item, palette);

    const QRect textRect(at.captionAt + shift, QSize(at.caption.width, metrics.height()));
    QColor text;
    if (!item.enabled) {
        // Etched, as the desktop draws disabled text: a light copy below
        // right, the shadow copy on top.
        painter.setPen(color(c.highlight));
        painter.drawStaticText(textRect.topLeft() + QPoint(EtchOffset, EtchOffset), at.caption.text);
        text = color(c.shadow);
    } else {
        text = color(state == ItemPressed ? c.downFore : state == ItemHot ? c.overFore : item.foreColor);
    }
    painter.setPen(text);
    painter.drawStaticText(textRect.topLeft(), at.caption.text);
    if (item.hasFocus)
        drawFocusOutline(painter, textRect.adjusted(-FocusMargin, -FocusMargin, FocusMargin, FocusMargin),
                         text);
    painter.restore();
}

} // namespace OrrinQuiver
