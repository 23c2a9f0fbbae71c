#pragma once

#include "core/OleColor.h"
#include "core/OrrinQuiverExport.h"
#include "core/QuiverEnums.h"

#include <QtCore/QVariant>
#include <QtGui/QFont>
#include <QtWidgets/QWidget>

#include <memory>

Q_MOC_INCLUDE("model/Header.h")
Q_MOC_INCLUDE("model/Headers.h")
Q_MOC_INCLUDE("model/Item.h")
Q_MOC_INCLUDE("model/Navigation.h")
Q_MOC_INCLUDE(<QtCore/QMimeData>)

QT_FORWARD_DECLARE_CLASS(QMimeData)

namespace OrrinQuiver {

class Header;
class Headers;
class Item;
class Navigation;
class PropertyBag;
class QuiverPrivate;

// The navigation bar: a vertical strip of headers, exactly one of them open,
// whose items fill the space between the headers above and below it.
//
// Every property is Q_PROPERTY(T Name READ Name WRITE setName). Setters never
// throw and never fail: numbers are clamped, other values are stored as given,
// and each setter ends with PropertyChanged(name) where the property's rules
// ask for it (docs/api-mapping.md lists them).
class ORRINQUIVER_EXPORT Quiver : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(OrrinQuiver::Headers *Headers READ Headers CONSTANT)
    Q_PROPERTY(OrrinQuiver::Navigation *Navigation READ Navigation CONSTANT)
    Q_PROPERTY(bool AlwaysShowFirstHeader READ AlwaysShowFirstHeader WRITE setAlwaysShowFirstHeader)
    Q_PROPERTY(bool AutoMouseWheel READ AutoMouseWheel WRITE setAutoMouseWheel)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR CheckColor READ CheckColor WRITE setCheckColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR DefaultMaskColor READ DefaultMaskColor WRITE setDefaultMaskColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR DkShadowColor READ DkShadowColor WRITE setDkShadowColor)
    Q_PROPERTY(int FlashDelay READ FlashDelay WRITE setFlashDelay)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR HighlightColor READ HighlightColor WRITE setHighlightColor)
    Q_PROPERTY(quintptr hWnd READ hWnd)
    Q_PROPERTY(QObject *Icons READ Icons WRITE setIcons)
    Q_PROPERTY(QVariant ItemMouseIcon READ ItemMouseIcon WRITE setItemMouseIcon)
    Q_PROPERTY(int ItemMousePointer READ ItemMousePointer WRITE setItemMousePointer)
    Q_PROPERTY(bool ItemsMoveWithClick READ ItemsMoveWithClick WRITE setItemsMoveWithClick)
    Q_PROPERTY(bool ItemsStayDownWithClick READ ItemsStayDownWithClick WRITE setItemsStayDownWithClick)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ItemForeColor READ ItemForeColor WRITE setItemForeColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ItemOverForeColor READ ItemOverForeColor WRITE setItemOverForeColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ItemOverBackColor READ ItemOverBackColor WRITE setItemOverBackColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ItemDownBackColor READ ItemDownBackColor WRITE setItemDownBackColor)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ItemDownForeColor READ ItemDownForeColor WRITE setItemDownForeColor)
    Q_PROPERTY(bool ItemsUnderlineOnMove READ ItemsUnderlineOnMove WRITE setItemsUnderlineOnMove)
    Q_PROPERTY(OrrinQuiver::qvOLEDragMode OLEDragMode READ OLEDragMode WRITE setOLEDragMode)
    Q_PROPERTY(OrrinQuiver::qvOLEDropMode OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(bool PlaySounds READ PlaySounds WRITE setPlaySounds)
    Q_PROPERTY(int ScrollDelay READ ScrollDelay WRITE setScrollDelay)
    Q_PROPERTY(OrrinQuiver::Header *SelectedHeader READ SelectedHeader)
    Q_PROPERTY(OrrinQuiver::Item *SelectedItem READ SelectedItem)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ShadowColor READ ShadowColor WRITE setShadowColor)
    Q_PROPERTY(bool ShowToolTips READ ShowToolTips WRITE setShowToolTips)
    Q_PROPERTY(QObject *SmallIcons READ SmallIcons WRITE setSmallIcons)
    Q_PROPERTY(bool SmoothScroll READ SmoothScroll WRITE setSmoothScroll)
    Q_PROPERTY(QString SoundItemURL READ SoundItemURL WRITE setSoundItemURL)
    Q_PROPERTY(QString SoundHeaderUpURL READ SoundHeaderUpURL WRITE setSoundHeaderUpURL)
    Q_PROPERTY(QString SoundHeaderDownURL READ SoundHeaderDownURL WRITE setSoundHeaderDownURL)
    Q_PROPERTY(OrrinQuiver::qvStyle Style READ Style WRITE setStyle)
    Q_PROPERTY(bool UseSystemSounds READ UseSystemSounds WRITE setUseSystemSounds)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR HeaderBackColor READ HeaderBackColor WRITE setHeaderBackColor)
    Q_PROPERTY(int HeaderHeight READ HeaderHeight)
    Q_PROPERTY(QVariant HeaderMouseIcon READ HeaderMouseIcon WRITE setHeaderMouseIcon)
    Q_PROPERTY(int HeaderMousePointer READ HeaderMousePointer WRITE setHeaderMousePointer)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR HeaderForeColor READ HeaderForeColor WRITE setHeaderForeColor)
    Q_PROPERTY(
        OrrinQuiver::OLE_COLOR HeaderOverForeColor READ HeaderOverForeColor WRITE setHeaderOverForeColor)
    Q_PROPERTY(QString XML READ XML WRITE writeXml DESIGNABLE false STORED false)
    Q_PROPERTY(QString PropertyBagText READ PropertyBagText WRITE setPropertyBagText)

public:
    // Creates the control's own objects (Headers, Navigation, timers); the
    // control has no header until InitProperties() or a loader adds some.
    explicit Quiver(QWidget *parent = nullptr);
    ~Quiver() override;

    // QWidget's own setStyle(QStyle *) stays reachable next to the Style
    // property's setter. setFont below is the Font property's writer; it also
    // serves C++ callers and form code that set the widget's font.
    using QWidget::setStyle;

    // Gives a newly placed control its initial values and the header
    // "Header 1". Running it again adds another "Header 1".
    void InitProperties();

    // Restores a control from a bag, as a host does when it loads a saved
    // control: meant for a control that has no headers yet (InitProperties()
    // not run), to which the stored headers are added. A missing,
    // wrong-typed or garbage value reads as the default it was saved against
    // (docs/persistence.md); image lists are looked up by name on the form
    // the control sits on, and a name not found there leaves the property
    // unset. Never throws.
    void ReadProperties(const PropertyBag &bag);
    // Saves the control, its headers and items into `bag`; values equal to
    // their defaults are not stored. Never throws; whether a bag's store
    // succeeded is the bag's to tell.
    void WriteProperties(PropertyBag &bag) const;
    // The control saved as the text of a FormPropertyBag: how a Qt Designer
    // form file keeps it. Assigning a text removes every header and restores
    // the control from it; text that is not a bag restores the defaults.
    QString PropertyBagText() const;
    void setPropertyBagText(const QString &text);

    // Whether the control is shown by a form designer rather than running in
    // its host; false by default.
    bool DesignMode() const;
    void setDesignMode(bool on);

    // The content collections; never null.
    OrrinQuiver::Headers *Headers() const;
    OrrinQuiver::Navigation *Navigation() const;

    bool AlwaysShowFirstHeader() const;
    void setAlwaysShowFirstHeader(bool on);
    bool AutoMouseWheel() const;
    void setAutoMouseWheel(bool on);

    // Colours are stored as given; a system colour is resolved when painting.
    OLE_COLOR BackColor() const;
    void setBackColor(OLE_COLOR color);
    OLE_COLOR CheckColor() const;
    void setCheckColor(OLE_COLOR color);
    OLE_COLOR DefaultMaskColor() const;
    void setDefaultMaskColor(OLE_COLOR color);
    OLE_COLOR DkShadowColor() const;
    void setDkShadowColor(OLE_COLOR color);
    // Setting the shadow colour also sets the highlight colour to it.
    OLE_COLOR ShadowColor() const;
    void setShadowColor(OLE_COLOR color);
    OLE_COLOR HighlightColor() const;
    void setHighlightColor(OLE_COLOR color);
    OLE_COLOR ItemForeColor() const;
    void setItemForeColor(OLE_COLOR color);
    OLE_COLOR ItemOverForeColor() const;
    void setItemOverForeColor(OLE_COLOR color);
    OLE_COLOR ItemOverBackColor() const;
    void setItemOverBackColor(OLE_COLOR color);
    OLE_COLOR ItemDownBackColor() const;
    void setItemDownBackColor(OLE_COLOR color);
    OLE_COLOR ItemDownForeColor() const;
    void setItemDownForeColor(OLE_COLOR color);
    OLE_COLOR HeaderBackColor() const;
    void setHeaderBackColor(OLE_COLOR color);
    OLE_COLOR HeaderForeColor() const;
    void setHeaderForeColor(OLE_COLOR color);
    OLE_COLOR HeaderOverForeColor() const;
    void setHeaderOverForeColor(OLE_COLOR color);

    // The header flashing period in milliseconds, clamped to 100..5000.
    int FlashDelay() const;
    void setFlashDelay(int milliseconds);

    // A font equal to the current one in size, family, underline, italic and
    // bold is ignored, whatever else differs.
    QFont Font() const;
    void setFont(const QFont &font);

    // The native window of the control (created on first use).
    quintptr hWnd() const;

    // The host's large image list. setIcons assigns by reference (store only);
    // letIcons assigns by value (store, then lay the strip out). Null clears it.
    QObject *Icons() const;
    void setIcons(QObject *images);
    Q_INVOKABLE void letIcons(QObject *images);
    // The host's small image list; the two forms mirror Icons: setSmallIcons
    // (by reference) lays the strip out, letSmallIcons (by value) only stores.
    QObject *SmallIcons() const;
    void setSmallIcons(QObject *images);
    Q_INVOKABLE void letSmallIcons(QObject *images);

    // Pointer pictures: a QCursor or QIcon. An invalid variant or an empty
    // picture means none; a bitmap (QPixmap, QImage, QBitmap) or any other value
    // is refused, with a message while in design mode. No picture for the
    // header pointer brings back the built-in header cursor and pointer 99.
    QVariant ItemMouseIcon() const;
    void setItemMouseIcon(const QVariant &picture);
    QVariant HeaderMouseIcon() const;
    void setHeaderMouseIcon(const QVariant &picture);
    // Pointer constants (1 arrow, 99 the custom picture, ...); unknown values
    // are stored and shown as the arrow.
    int ItemMousePointer() const;
    void setItemMousePointer(int pointer);
    int HeaderMousePointer() const;
    void setHeaderMousePointer(int pointer);

    bool ItemsMoveWithClick() const;
    void setItemsMoveWithClick(bool on);
    bool ItemsStayDownWithClick() const;
    void setItemsStayDownWithClick(bool on);
    bool ItemsUnderlineOnMove() const;
    void setItemsUnderlineOnMove(bool on);

    // Enumerations store out-of-range values as given.
    qvOLEDragMode OLEDragMode() const;
    void setOLEDragMode(qvOLEDragMode mode);
    qvOLEDropMode OLEDropMode() const;
    void setOLEDropMode(qvOLEDropMode mode);
    qvStyle Style() const;
    void setStyle(qvStyle style);

    bool PlaySounds() const;
    void setPlaySounds(bool on);
    bool UseSystemSounds() const;
    void setUseSystemSounds(bool on);
    bool ShowToolTips() const;
    void setShowToolTips(bool on);

    // The scroll-arrow repeat delay in milliseconds, clamped to 10..2000.
    int ScrollDelay() const;
    void setScrollDelay(int milliseconds);
    bool SmoothScroll() const;
    void setSmoothScroll(bool on);

    // Sound locations; a non-empty text starts fetching the sound, an empty
    // one drops the fetched sound.
    QString SoundItemURL() const;
    void setSoundItemURL(const QString &url);
    QString SoundHeaderUpURL() const;
    void setSoundHeaderUpURL(const QString &url);
    QString SoundHeaderDownURL() const;
    void setSoundHeaderDownURL(const QString &url);

    // The open header and its current item; null when there is none.
    OrrinQuiver::Header *SelectedHeader() const;
    OrrinQuiver::Item *SelectedItem() const;

    // The height of one header bar plus 1, in pixels.
    int HeaderHeight() const;

    // The whole bar, its look and its content, as an XML document
    // (docs/xml.md).
    QString XML() const;
    // Reads such a document. Throws QuiverError for text that is not one
    // (before changing anything); a call through the XML property
    // (setProperty, a script, Designer) reports that error instead.
    void setXML(const QString &xml);

    // The picture fetched for an item's URL icon; an invalid variant when no
    // picture has been fetched for that address.
    Q_INVOKABLE QVariant URLIcon(const QString &psURL) const;
    Q_INVOKABLE QVariant URLSmallIcon(const QString &psURL) const;

    // Shows the about dialog modally; one dialog is shared by every control.
    Q_INVOKABLE void AboutBox();
    // The item at the top of the open header's view; null when no header is
    // open or it has no items.
    Q_INVOKABLE OrrinQuiver::Item *GetFirstVisible() const;
    // The item of the open header under (X, Y) in control coordinates; null
    // outside the control's width, above the item view or between items.
    Q_INVOKABLE OrrinQuiver::Item *HitTest(int X, int Y) const;
    // Always "VB6", the runtime the object model was first written for.
    Q_INVOKABLE QString VBVersion() const;
    // The library's version, "major.minor.revision".
    Q_INVOKABLE QString Version() const;
    // Sets Style, then resets the behaviour flags, colours and mouse pointers
    // to that style's preset (control/StylePreset.h); a value outside qvStyle
    // changes nothing.
    Q_INVOKABLE void ApplyStylePreset(OrrinQuiver::qvStyle Style);

    // The control is never narrower than this, in pixels.
    static constexpr int MinimumWidth = 52;
    // Room for every bar and a few rows of the open header's items, as wide
    // as the widest header caption; the minimum holds one row at the least
    // width.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    // Shown: the last set-up of a loaded control, the layout, a deferred repaint.
    void showEvent(QShowEvent *event) override;
    // Keeps the control at least 52 pixels wide and lays it out again.
    void resizeEvent(QResizeEvent *event) override;
    // The surface between and around the bars shows BackColor.
    void paintEvent(QPaintEvent *event) override;

signals:
    // A persisted property changed; `name` is the property's own name.
    void PropertyChanged(const QString &name);

    // The host events, in the order of their dispatch numbers. Button and
    // Shift are bit sets (left 1, right 2, middle 4; Shift 1, Ctrl 2, Alt 4);
    // X and Y are Single pixels. A drag's Data is the dragged QMimeData, its
    // Effect and AllowedEffects sums of the drop effects (copy 1, move 2,
    // link 4), its State 0 entered, 1 left, 2 moved over.
    //
    // An `int *` argument is passed by reference: a handler may change it,
    // and the control goes on with the value the last handler left
    // (docs/scripting.md: a script handler sets its `value`). The pointer is
    // valid only while the signal runs.
    //
    // Raised by later rooms of the control, declared here: HeaderRenamed and
    // ItemRenamed by the caption editor; HeaderOLEDragDrop and
    // HeaderOLEDragOver over a header bar by its drop rules, and
    // HeaderOLEStartDrag and HeaderOLECompleteDrag by the header drag;
    // IconDownloaded and SmallIconDownloaded by the URL icons. The rest are
    // raised now, the header events also from the empty space of the open
    // item view.

    // An enabled header was clicked with the left button, open or not;
    // raised before the HeaderMouseUp of the same click.
    void HeaderClick(OrrinQuiver::Header *header);
    // A header's caption was edited in place; the new caption is stored.
    void HeaderRenamed(OrrinQuiver::Header *header);
    // Mouse input on a header bar, outside design mode, with X and Y in the
    // bar's own pixels. Move is raised only inside the bar and only for an
    // enabled header. Over the open item view's empty space the open header
    // raises them too, with X and Y moved into its bar (into the control when
    // its lone bar is hidden).
    void HeaderMouseDown(OrrinQuiver::Header *header, int Button, int Shift, float X, float Y);
    void HeaderMouseMove(OrrinQuiver::Header *header, int Button, int Shift, float X, float Y);
    void HeaderMouseUp(OrrinQuiver::Header *header, int Button, int Shift, float X, float Y);
    // A drag over or dropped on a header, or on the open item view's empty
    // space (X and Y moved as for the mouse events); *Effect is what the drop
    // would do, or did.
    void HeaderOLEDragDrop(OrrinQuiver::Header *header, const QMimeData *Data, int *Effect, int Button,
                           int Shift, float X, float Y);
    void HeaderOLEDragOver(OrrinQuiver::Header *header, const QMimeData *Data, int *Effect, int Button,
                           int Shift, float X, float Y, int State);
    // A header drag starts: Data may take more formats, *AllowedEffects
    // fewer effects (0 cancels the drag); and the drag ended with Effect.
    void HeaderOLEStartDrag(OrrinQuiver::Header *header, QMimeData *Data, int *AllowedEffects);
    void HeaderOLECompleteDrag(OrrinQuiver::Header *header, int Effect);

    // An enabled item of the open header was clicked, or Space or Enter
    // pressed on it; raised once the item is the selected one, before the
    // ItemMouseUp of the same click.
    void ItemClick(OrrinQuiver::Item *item);
    // An item's caption was edited in place; the new caption is stored.
    void ItemRenamed(OrrinQuiver::Item *item);
    // Mouse input over an item of the open header, outside design mode; the
    // arguments as for the header events, X and Y in the item's own pixels.
    void ItemMouseDown(OrrinQuiver::Item *item, int Button, int Shift, float X, float Y);
    void ItemMouseMove(OrrinQuiver::Item *item, int Button, int Shift, float X, float Y);
    void ItemMouseUp(OrrinQuiver::Item *item, int Button, int Shift, float X, float Y);
    // A drag over or dropped on an item, X and Y in the item's pixels; the
    // item view accepts the drag with the *Effect the handlers leave.
    void ItemOLEDragDrop(OrrinQuiver::Item *item, const QMimeData *Data, int *Effect, int Button, int Shift,
                         float X, float Y);
    void ItemOLEDragOver(OrrinQuiver::Item *item, const QMimeData *Data, int *Effect, int Button, int Shift,
                         float X, float Y, int State);
    // An item drag starts (Data and *AllowedEffects as for the header's); and
    // the drag ended with Effect, 0 when nothing was dropped.
    void ItemOLEStartDrag(OrrinQuiver::Item *item, QMimeData *Data, int *AllowedEffects);
    void ItemOLECompleteDrag(OrrinQuiver::Item *item, int Effect);

    // A header's item view moved one item up or down, open or not.
    void ScrollUp(OrrinQuiver::Header *header);
    void ScrollDown(OrrinQuiver::Header *header);

    // The picture of an item's URL icon (32 x 32) or small URL icon (16 x 16)
    // arrived from `psURL` and is stored.
    void IconDownloaded(const QString &psURL);
    void SmallIconDownloaded(const QString &psURL);

private:
    // The XML property's writer: setXML without the throw.
    void writeXml(const QString &xml);

    friend class QuiverPrivate;
    std::unique_ptr<QuiverPrivate> const d;
};

} // namespace OrrinQuiver
