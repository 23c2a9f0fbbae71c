#pragma once

#include "control/HeaderSelection.h"
#include "control/HeaderStrip.h"
#include "control/PropertyTable.h"
#include "control/QuiverSounds.h"
#include "control/Quiver.h"
#include "model/ControlLink.h"
#include "platform/MousePointer.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <memory>
#include <type_traits>
#include <variant>

QT_FORWARD_DECLARE_CLASS(QTimer)

namespace OrrinQuiver {

class HeaderFlash;
class ItemContainer;
class ItemRelay;
class ScrollArrows;
struct ItemLook;
class XmlDocumentFormat;

// Runs `work` under the control's error convention: whatever goes wrong ends
// the operation quietly, the work done so far stays done, and the caller gets
// the result type's default.
template<typename Work>
auto quietly(Work &&work) noexcept -> std::invoke_result_t<Work>
{
    try {
        return work();
    } catch (...) {
        if constexpr (!std::is_void_v<std::invoke_result_t<Work>>)
            return {};
    }
}

// The state of a Quiver and what its rooms share: the content model's
// ControlLink, the strip's host, and the item views as header selection sees
// them.
class QuiverPrivate : public ControlLink, public HeaderStrip::Host, public HeaderSelection::OpenViews
{
public:
    explicit QuiverPrivate(Quiver *control);
    ~QuiverPrivate() override;

    static QuiverPrivate *get(Quiver *control) { return control->d.get(); }

    // ControlLink
    OrrinQuiver::Headers *headerCollection() const override;
    HeaderViews createHeaderViews(int position, const QString &caption, qvViewType view) override;
    void destroyHeaderViews(int barId, bool relayout) override;
    void redrawHeaderBar(int barId) override;
    void relayoutStrip() override;
    int selectedHeaderPosition() const override;
    void openHeader(int position) override;
    void selectItem(qint16 index) override;
    Header *selectedHeader() const override;
    Item *selectedItem() const override;
    OLE_COLOR itemForeColor() const override;
    void flashHeader(const QString &headerKey, bool enabled) override;
    void startHeaderDrag(int barId) override;
    void startHeaderLabelEdit(const QString &headerKey) override;
    void loadUrlIcon(const QString &url, bool large) override;
    const DocumentFormat *documentFormat() const override;

    // HeaderStrip::Host (openHeader above)
    int openPosition() const override;
    void playHeaderSound(const Header *clicked) override;
    void relayout() override;

    // HeaderSelection::OpenViews
    bool isActive(const Header *header) const override;
    void setActive(const Header *header, bool active) override;
    void setCurrentItem(const Header *header, qint16 index) override;

    void notify(const QString &name);

    // The routine setter of a table row: compares, clamps, stores, runs the
    // row's effects and notifies, as the row says.
    template<typename T>
    void assign(PropertyTable::Property property, T value);
    // The effects of a change (PropertyTable::Effect), in their fixed order.
    void applyEffects(unsigned effects);
    // Stores a value in a row's settings field, without the setter's effects;
    // rows kept elsewhere are left alone.
    void store(PropertyTable::Property property, const QVariant &value);
    // A row's current value, and assigning one through the row's setter.
    QVariant value(PropertyTable::Property property) const;
    void setValue(PropertyTable::Property property, const QVariant &value);
    // A table value: a number, another row's current value, or the
    // control's own default for the row's type.
    QVariant tableValue(PropertyTable::Property property, const PropertyTable::Value &value) const;
    // Gives every row a newly placed control's value, as InitProperties does.
    void initProperties();

    // What the bar's properties make of every item and of the strip.
    ItemLook itemLook() const;
    StripLook stripLook() const;
    // Every header's item view takes the current item look; `redraw` also
    // redraws all of their items.
    void restyleItemViews(bool redraw);
    // The full layout of the strip: finds the open header, tells the views
    // their positions, places bars and views, and draws every bar again when
    // the header-redraw flag asks for it (clearing the flag).
    void layoutStrip();
    // Opens the header at `requested`, moved to a visible header, with the
    // slide; the open header's view takes the focus when the control passes
    // it on.
    void selectHeader(int requested);
    // Opens the place that the history moved to, without recording it again.
    void followHistory(const QString &headerKey, const QString &itemKey);

    ItemContainer *viewOf(const Header *header) const;
    ItemContainer *openView() const;
    // The deferred repaint of RedrawTimer's tick: the open header's item
    // view stacks and paints its items again.
    void redrawOpenView();
    // The item views of all headers, in position order.
    QList<ItemContainer *> views() const;

    // Stores a sound location, announces it and fetches the sound; an
    // unchanged location does nothing.
    void setSoundUrl(QuiverSounds::Kind kind, const QString &url);
    // Shows the refusal of a picture that is not a pointer, in design mode only.
    void refusePicture();

    // Follows the application's focus: the focus flag is set while the focus
    // is on the control or inside it, and with the tab-stop flag set the focus
    // that the control itself receives goes on to the open item view.
    void trackFocus();

    Quiver *const q;
    OrrinQuiver::Headers *headers = nullptr;
    OrrinQuiver::Navigation *navigation = nullptr;
    QTimer *flashTimer = nullptr;
    QTimer *arrowTimer = nullptr;
    QTimer *redrawTimer = nullptr;
    // Rooms that are children of the control.
    QuiverSounds *sounds = nullptr;
    HeaderStrip *strip = nullptr;
    ItemRelay *relay = nullptr;
    ScrollArrows *arrows = nullptr;
    HeaderFlash *flash = nullptr;

    QuiverSettings settings;

    // The font a new control starts with and the built-in header pointer.
    QFont defaultFont;
    QVariant defaultHeaderCursor;

    // The header bars' pointer; every bar shows it.
    int headerPointer = MousePointer::Custom;
    QVariant headerIcon;
    // What a new item view starts with, and what ItemMousePointer and
    // ItemMouseIcon read back.
    int itemPointer = MousePointer::Arrow;
    QVariant itemIcon;
    int nextBarId = 1;

    QPointer<QObject> icons;
    QPointer<QObject> smallIcons;

    bool headerRedraw = false;
    bool tabStop = false;
    bool designMode = false;
    // The focus flag: the focus is on the control or inside it.
    bool hasFocus = false;
    // Whether the control ran in its host (not in a designer) when it was
    // restored from a property bag; a first Show in the host compares.
    bool userModeAtRead = true;
    // Set while a resize runs, which itself may resize the control.
    bool resizing = false;
    // The connection trackFocus made; the control ends it before its private
    // state goes, since deleting children moves the focus one last time.
    QMetaObject::Connection focusTracking;

    std::unique_ptr<HeaderSelection> selection;
    // The header and history documents the model's XML members write and read.
    std::unique_ptr<XmlDocumentFormat> documents;
};

template<typename T>
void QuiverPrivate::assign(PropertyTable::Property property, T value)
{
    const PropertyTable::Row &row = PropertyTable::row(property);
    if constexpr (std::is_same_v<T, int>) {
        if (row.minimum <= row.maximum)
            value = std::clamp(value, row.minimum, row.maximum);
    }
    T &field = settings.*std::get<T QuiverSettings::*>(row.field);
    if (field == value) {
        if (row.effects & PropertyTable::IfChanged)
            return;
        if (row.effects & PropertyTable::EffectsIfChanged) {
            notify(QLatin1String(row.name));
            return;
        }
    }
    field = value;
    applyEffects(row.effects);
    notify(QLatin1String(row.name));
}

} // namespace OrrinQuiver
