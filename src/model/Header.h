#pragma once

#include "core/OleColor.h"
#include "core/OrrinQuiverExport.h"
#include "core/QuiverEnums.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <array>
#include <memory>

namespace OrrinQuiver {

class ControlLink;
class Headers;
class ItemViewLink;
class Items;

// One folder of the bar: a header bar with a caption and, when open, its
// items. Headers are made only by Headers::Add; until Add has linked a header
// its setters change nothing but its own fields. A removed header is unlinked
// and deleted (with its items) once control returns to the event loop.
class ORRINQUIVER_EXPORT Header : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QString Key READ Key WRITE setKey)
    Q_PROPERTY(int Index READ Index WRITE setIndex)
    Q_PROPERTY(OrrinQuiver::Items *Items READ Items)
    Q_PROPERTY(bool Selected READ Selected WRITE setSelected)
    Q_PROPERTY(QVariant Tag READ Tag WRITE setTag)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(OrrinQuiver::qvViewType View READ View WRITE setView)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
    Q_PROPERTY(QString XML READ readXml WRITE writeXml)
    Q_MOC_INCLUDE("model/Items.h")

public:
    ~Header() override;

    QString Caption() const;
    // Stores the text as given (CR LF stays); a tool tip that equalled the old
    // caption follows the new one.
    void setCaption(const QString &value);

    bool Enabled() const;
    void setEnabled(bool value);

    QString Key() const;
    // A linked header is re-keyed through its collection, which replaces an
    // empty or taken key (also one equal to another header's caption) by a
    // generated "HEADER" key.
    void setKey(const QString &value);

    // The cached 1-based position in the strip.
    int Index() const;
    // A linked header moves through its collection, which clamps the value.
    void setIndex(int value);

    // The header's items; never nullptr.
    OrrinQuiver::Items *Items() const;

    // True when the control's selected header is this header.
    bool Selected() const;
    // Ignores `value`: the control opens the header at this Index.
    void setSelected(bool value);

    QVariant Tag() const;
    void setTag(const QVariant &value);

    QString ToolTipText() const;
    void setToolTipText(const QString &value);

    qvViewType View() const;
    // Values other than qvViewLargeIcons and qvViewSmallIcons store
    // qvViewLargeIcons.
    void setView(qvViewType value);

    bool Visible() const;
    // Hiding or showing the open header (or any header while none is open)
    // opens a neighbour: the previous one when it was the last, else the next.
    void setVisible(bool value);

    // The header and its items as an XML fragment; "" when the header is not
    // linked to a control. The control may throw QuiverError.
    QString XML() const;
    // Replaces the items from an XML fragment; nothing when not linked to a
    // control. Throws QuiverError for a text the control cannot read.
    void setXML(const QString &value);

    // Stores the two colours, then starts (true) or stops flashing the header.
    Q_INVOKABLE void Flash(bool Enabled, OrrinQuiver::OLE_COLOR FlashColor = SystemColors::ActiveCaption,
                           OrrinQuiver::OLE_COLOR FlashTextColor = SystemColors::CaptionText);
    // Starts a drag of the header bar; nothing without a control.
    Q_INVOKABLE void OLEDrag();
    // Opens the caption editor on the header bar; nothing without a control.
    Q_INVOKABLE void StartLabelEdit();

    // Internal accessors for the control.

    // The id of the header bar and item view made for the header, -1 before.
    int barId() const;
    ItemViewLink *itemView() const;
    // Set by every setter that changes the bar; the control clears it after painting.
    bool needsPaint() const;
    void setNeedsPaint(bool value);
    OLE_COLOR flashColor() const;
    OLE_COLOR flashTextColor() const;
    // The collection that holds the header; nullptr before Headers::Add linked
    // it and after it was removed.
    Headers *collection() const;
    // True from the end of Headers::Add until the header is removed, except
    // while setLive(false) holds it back.
    bool isLive() const;
    // The XML reader clears the live flag while it sets a new header's
    // attributes, so that they change only the header's own fields (an Index
    // is stored, not moved to); a failed reading leaves it cleared.
    void setLive(bool value);
    // True when a deliberate early stop of the collection's renumbering left
    // Index different from the header's position.
    bool indexMayLag() const;

private:
    friend class Headers;
    template<typename T>
    friend class KeyedList;

    Header();
    ControlLink *control() const;
    void storeIndex(int value);
    void storeKey(const QString &value);
    QStringView keyText(std::array<char16_t, 32> &) const;
    void setIndexMayLag(bool value);
    void link(Headers *collection, ControlLink *control);
    void setViews(int barId, ItemViewLink *view);
    void unlink();
    void redrawBar();
    QString readXml() const;
    void writeXml(const QString &value);

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace OrrinQuiver
