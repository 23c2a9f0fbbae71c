#pragma once

#include "RecordingItemViewLink.h"

#include "model/ControlLink.h"
#include "model/DocumentFormat.h"

#include <QtCore/QStringList>

#include <memory>
#include <vector>

// A control that shows nothing and records every call the model makes, in
// order, as text ("openHeader(2)"). It makes a RecordingItemViewLink for each
// header (bar ids from 1), answers the model's questions from its public
// fields, and stands in for the document format as well.
class RecordingControlLink : public OrrinQuiver::ControlLink, public OrrinQuiver::DocumentFormat
{
public:
    OrrinQuiver::Headers *headerCollection() const override { return headers; }
    HeaderViews createHeaderViews(int position, const QString &caption, OrrinQuiver::qvViewType view) override
    {
        record(QStringLiteral("createHeaderViews(%1,%2,%3)").arg(position).arg(caption).arg(int(view)));
        views.push_back(std::make_unique<RecordingItemViewLink>());
        return { nextBarId++, views.back().get() };
    }
    void destroyHeaderViews(int barId, bool relayout) override
    {
        record(QStringLiteral("destroyHeaderViews(%1,%2)").arg(barId).arg(text(relayout)));
    }
    void redrawHeaderBar(int barId) override { record(QStringLiteral("redrawHeaderBar(%1)").arg(barId)); }
    void relayoutStrip() override { record(QStringLiteral("relayoutStrip()")); }
    int selectedHeaderPosition() const override { return selectedPosition; }
    void openHeader(int position) override { record(QStringLiteral("openHeader(%1)").arg(position)); }
    void selectItem(qint16 index) override { record(QStringLiteral("selectItem(%1)").arg(index)); }
    OrrinQuiver::Header *selectedHeader() const override { return selected; }
    OrrinQuiver::Item *selectedItem() const override { return selectedItemObject; }
    OrrinQuiver::OLE_COLOR itemForeColor() const override { return foreColor; }
    void flashHeader(const QString &headerKey, bool enabled) override
    {
        record(QStringLiteral("flashHeader(%1,%2)").arg(headerKey, text(enabled)));
    }
    void startHeaderDrag(int barId) override { record(QStringLiteral("startHeaderDrag(%1)").arg(barId)); }
    void startHeaderLabelEdit(const QString &headerKey) override
    {
        record(QStringLiteral("startHeaderLabelEdit(%1)").arg(headerKey));
    }
    void loadUrlIcon(const QString &url, bool large) override
    {
        record(QStringLiteral("loadUrlIcon(%1,%2)").arg(url, text(large)));
    }
    const OrrinQuiver::DocumentFormat *documentFormat() const override { return this; }
    QString headerXml(const OrrinQuiver::Header &) const override { return xml; }
    void readHeaderXml(OrrinQuiver::Header &, const QString &text) const override
    {
        record(QStringLiteral("setHeaderXml(%1)").arg(text));
    }
    QString historyXml(const OrrinQuiver::Navigation &) const override { return xml; }

    // The calls recorded since the last take().
    QStringList take() { return std::exchange(calls, {}); }
    // The item view made for the header with that bar id.
    RecordingItemViewLink *view(int barId) const { return views.at(size_t(barId - 1)).get(); }

    mutable QStringList calls;
    OrrinQuiver::Headers *headers = nullptr;
    int nextBarId = 1;
    int selectedPosition = 0;
    OrrinQuiver::Header *selected = nullptr;
    OrrinQuiver::Item *selectedItemObject = nullptr;
    OrrinQuiver::OLE_COLOR foreColor = 0x80000005;
    QString xml;
    std::vector<std::unique_ptr<RecordingItemViewLink>> views;

private:
    static QString text(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }
    void record(const QString &call) const { calls.append(call); }
};
