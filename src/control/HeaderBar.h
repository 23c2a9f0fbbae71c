#pragma once

#include "control/BarRecord.h"
#include "itemview/ItemContainer.h"
#include "core/OleColor.h"

#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <optional>

namespace OrrinQuiver {

class HeaderStrip;

// The bar of one header: a child widget of the control that paints the
// header in its remembered look and hands its mouse input to the strip,
// which runs the press, hover and release behaviour. It is the one record of
// its header's bar: its id, its tag record, its drawn state and the header's
// item view.
class HeaderBar : public QWidget
{
    Q_OBJECT

public:
    // Colour value meaning "the control's own header colour".
    static constexpr OLE_COLOR DefaultColor = 0xFFFFFFFFu;

    HeaderBar(HeaderStrip *strip, int barId, ItemContainer *itemView, QWidget *parent);

    // The id the control gave the bar; fixed for the bar's life.
    int barId() const { return m_barId; }

    // The item view of the bar's header; it goes with the bar.
    ItemContainer *itemView() const { return m_itemView; }

    BarRecord &record() { return m_record; }
    const BarRecord &record() const { return m_record; }

    // The look last asked for (HeaderState), -1 before the first draw and
    // after a forced redraw.
    int drawnState() const { return m_drawnState; }
    void setDrawnState(int state) { m_drawnState = state; }

    // Colours that replace the header colours until the next draw asks for
    // the defaults (DefaultColor).
    OLE_COLOR backColor() const { return m_backColor; }
    OLE_COLOR foreColor() const { return m_foreColor; }
    void setColors(OLE_COLOR back, OLE_COLOR fore);

    // Where an automatic drag would start from; empty until the first move
    // with the left button down.
    std::optional<QPointF> dragOrigin;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    HeaderStrip *const m_strip;
    const int m_barId;
    const QPointer<ItemContainer> m_itemView;
    BarRecord m_record;
    int m_drawnState = -1;
    OLE_COLOR m_backColor = DefaultColor;
    OLE_COLOR m_foreColor = DefaultColor;
};

} // namespace OrrinQuiver
