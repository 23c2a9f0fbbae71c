#pragma once

#include "control/Quiver.h"
#include "platform/MousePointer.h"
#include "model/ControlLink.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QPointer>

#include <memory>
#include <type_traits>

QT_FORWARD_DECLARE_CLASS(QNetworkAccessManager)
QT_FORWARD_DECLARE_CLASS(QTimer)

namespace OrrinQuiver {

class HeaderStrip;
class ItemContainer;
struct ItemLook;
class SoundOutput;
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

// The state of a Quiver and the operations its properties and the content
// model share. Also the control's side of the content model's ControlLink.
class QuiverPrivate : public ControlLink
{
public:
    explicit QuiverPrivate(Quiver *control);
    ~QuiverPrivate() override;

    static QuiverPrivate *get(Quiver *control) { return control->d.get(); }

    // What the control keeps for one header bar besides the bar widget,
    // which the header strip owns.
    struct HeaderBar
    {
        QPointer<ItemContainer> view;
        int pointer = MousePointer::Custom;
        QVariant icon;
    };

    // A sound fetched from a location the host gave.
    struct Sound
    {
        QString url;
        QByteArray data;
        bool loaded = false;
    };

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

    void notify(const QString &name);
    // Stores `value` in `field` when they differ; true when it did.
    template<typename T>
    bool change(T &field, const T &value)
    {
        if (field == value)
            return false;
        field = value;
        return true;
    }
    // What a colour used by items and bars alike does once stored: item
    // views redraw, the strip repaints, then the change is announced as `name`.
    void recolorItems(const QString &name);
    // What a colour of the bars does once stored: the layout runs (redrawing
    // every bar first when `redrawAll`), the strip repaints, then the change
    // is announced as `name`.
    void restyleHeaders(bool redrawAll, const QString &name);
    // Every header's item view takes the current item look and redraws all
    // of its items.
    void redrawItemViews();
    // What the bar's properties make of every item: style, colours, font,
    // the two item switches and the image lists.
    ItemLook itemLook() const;
    // Hands every header's item view the current item look.
    void restyleItemViews();
    // Repaints every header bar; `force` makes each one draw even when its
    // look has not changed.
    void repaintHeaderStrip(bool force);
    // The full layout of the strip: finds the open header, measures the header
    // height, shows the open header's item view and hides the others, and repaints every bar when the
    // header-redraw flag asks for it (clearing the flag).
    void layoutStrip();
    // The open header is the one whose item view is active. Adding, removing
    // and moving headers change its position, not which header is open; this
    // finds the position again. When the open header itself was removed, the
    // visible header nearest its place opens.
    void findOpenHeader();
    // Opens the header at `requested`, moved to a visible header.
    void selectHeader(int requested);
    // The visible position that a request for `requested` opens; 0 when no
    // header is visible.
    int visiblePositionFor(int requested) const;
    // Opens the place that the history moved to, without recording it again.
    void followHistory(const QString &headerKey, const QString &itemKey);

    ItemContainer *viewOf(const Header *header) const;
    ItemContainer *viewAt(int position) const;
    ItemContainer *openView() const;
    // The item views of all headers, in position order.
    QList<ItemContainer *> views() const;

    void applyArrowInterval();
    // Shows the refusal of a picture that is not a pointer, in design mode only.
    void refusePicture();
    void setSoundUrl(Sound &sound, const QString &url, const QString &name);

    // Lifecycle (QuiverLifecycle.cpp).
    // Follows the application's focus: the focus flag is set while the focus
    // is on the control or inside it, and with the tab-stop flag set the focus
    // that the control itself receives goes on to the open item view.
    void trackFocus();
    // The connection trackFocus made; the control ends it before its private
    // state goes, since deleting children moves the focus one last time.
    QMetaObject::Connection focusTracking;
    // Stores what a download started under a property's name brought: the
    // three sound locations fill their sounds; other names are not sounds.
    void asyncReadComplete(const QString &propertyName, const QByteArray &data);

    Quiver *const q;
    OrrinQuiver::Headers *headers = nullptr;
    OrrinQuiver::Navigation *navigation = nullptr;
    QTimer *flashTimer = nullptr;
    QTimer *arrowTimer = nullptr;
    QTimer *redrawTimer = nullptr;

    // The font a new control starts with and the built-in header pointer.
    QFont defaultFont;
    QVariant defaultHeaderCursor;

    // The header bars by bar id; the template gives a new bar its pointer.
    QHash<int, HeaderBar> bars;
    HeaderBar templateBar;
    int nextBarId = 1;
    // What a new item view starts with, and what ItemMousePointer and
    // ItemMouseIcon read back.
    int itemPointer = MousePointer::Arrow;
    QVariant itemIcon;

    int selectedPosition = 0;
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
    // Set while the history opens a place, which must not be recorded again.
    bool followingHistory = false;
    // The measured height of one header bar.
    int headerHeight = 0;

    qvStyle style = qvStyleOutlook;
    bool alwaysShowFirstHeader = true;
    bool autoMouseWheel = false;
    bool playSounds = true;
    bool useSystemSounds = true;
    bool smoothScroll = true;
    bool showToolTips = true;
    bool itemsMoveWithClick = false;
    bool itemsStayDownWithClick = false;
    bool itemsUnderlineOnMove = false;
    int scrollDelay = 120;
    qvOLEDragMode oleDragMode = qvOLEDragManual;
    qvOLEDropMode oleDropMode = qvOLEDropNone;

    OLE_COLOR backColor = SystemColors::ButtonShadow;
    OLE_COLOR checkColor = SystemColors::ButtonFace;
    OLE_COLOR defaultMaskColor = rgbColor(192, 192, 192);
    OLE_COLOR dkShadowColor = SystemColors::ButtonDarkShadow;
    OLE_COLOR shadowColor = SystemColors::ButtonShadow;
    OLE_COLOR highlightColor = SystemColors::ButtonHighlight;
    OLE_COLOR headerBackColor = SystemColors::ButtonFace;
    OLE_COLOR headerForeColor = SystemColors::ButtonText;
    OLE_COLOR headerOverForeColor = SystemColors::ButtonText;
    OLE_COLOR itemForeColorValue = SystemColors::Window;
    OLE_COLOR itemOverForeColor = SystemColors::Window;
    OLE_COLOR itemOverBackColor = SystemColors::ButtonShadow;
    OLE_COLOR itemDownBackColor = SystemColors::ButtonShadow;
    OLE_COLOR itemDownForeColor = SystemColors::Window;

    QPointer<QObject> icons;
    QPointer<QObject> smallIcons;

    // The built-in header click, loaded when the control is made.
    Sound defaultSound;
    Sound itemSound;
    Sound headerUpSound;
    Sound headerDownSound;
    // The bars, their layout, the slide and the bars' mouse behaviour.
    std::unique_ptr<HeaderStrip> strip;
    // Where click sounds go; none plays nothing.
    std::unique_ptr<SoundOutput> soundOutput;

    // The header and history documents the model's XML members write and read.
    std::unique_ptr<XmlDocumentFormat> documents;

    // Declared last so that it goes first: a fetch it aborts still finds the
    // sounds in place.
    std::unique_ptr<QNetworkAccessManager> network;
};

} // namespace OrrinQuiver
