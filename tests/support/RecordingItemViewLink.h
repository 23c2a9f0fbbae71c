#pragma once

#include "model/ItemViewLink.h"

#include <QtCore/QHash>
#include <QtCore/QPoint>
#include <QtCore/QStringList>

#include <utility>

// An item view that shows nothing and records every call the model makes, in
// order, as text ("relayoutItems(false)"). It hands out view ids from 1 and
// simulates a window of `rows` visible positions over `count` items for
// scrolling, and a window system for hosted child windows.
class RecordingItemViewLink : public OrrinQuiver::ItemViewLink
{
public:
    void showItems(OrrinQuiver::Items *) override { }
    int addItemWindow(int position, const QString &caption) override
    {
        record(QStringLiteral("addItemWindow(%1,%2)").arg(position).arg(caption));
        ++count;
        return nextViewId++;
    }
    void removeItemWindow(int viewId) override
    {
        record(QStringLiteral("removeItemWindow(%1)").arg(viewId));
        --count;
    }
    void relayoutItems(bool force) override { record(QStringLiteral("relayoutItems(%1)").arg(text(force))); }
    void redrawItem(int viewId) override { record(QStringLiteral("redrawItem(%1)").arg(viewId)); }
    void setView(OrrinQuiver::qvViewType view) override { record(QStringLiteral("setView(%1)").arg(int(view))); }
    void resetItems() override { record(QStringLiteral("resetItems()")); }
    int firstVisiblePosition() const override { return first; }
    int lastFullyVisiblePosition() const override { return first + rows - 1; }
    void scrollOneStep(bool up) override
    {
        record(QStringLiteral("scrollOneStep(%1)").arg(text(up)));
        if (up && first > 1)
            --first;
        else if (!up && first + rows - 1 < count)
            ++first;
    }
    void startItemDrag(int viewId) override { record(QStringLiteral("startItemDrag(%1)").arg(viewId)); }
    void startItemLabelEdit(int viewId) override { record(QStringLiteral("startItemLabelEdit(%1)").arg(viewId)); }
    void releaseMouseGrab() override { record(QStringLiteral("releaseMouseGrab()")); }
    OrrinQuiver::OLE_COLOR defaultMaskColor() const override { return maskColor; }

    QRect childWindowRect(quintptr window) const override { return windows.value(window); }
    quintptr hostChildWindow(int viewId, quintptr window) override
    {
        record(QStringLiteral("hostChildWindow(%1,%2)").arg(viewId).arg(window));
        return formerParents.value(window);
    }
    // Moves land `landingOffset` away from where they were asked to go, as a
    // move in parent coordinates of a window that is not at the screen origin would.
    void moveChildWindow(quintptr window, const QRect &rect) override
    {
        record(QStringLiteral("moveChildWindow(%1,%2,%3,%4,%5)")
                   .arg(window).arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height()));
        windows[window] = rect.translated(landingOffset);
    }
    void setChildWindowParent(quintptr window, quintptr parent) override
    {
        record(QStringLiteral("setChildWindowParent(%1,%2)").arg(window).arg(parent));
    }

    // The calls recorded since the last take().
    QStringList take() { return std::exchange(calls, {}); }

    QStringList calls;
    int nextViewId = 1;
    int count = 0;
    int first = 1;
    int rows = 3;
    OrrinQuiver::OLE_COLOR maskColor = 0x00FF00FF;
    QHash<quintptr, QRect> windows;
    QHash<quintptr, quintptr> formerParents;
    QPoint landingOffset;

private:
    static QString text(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }
    void record(const QString &call) { calls.append(call); }
};
