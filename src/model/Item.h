#pragma once

#include "core/OleColor.h"
#include "core/OrrinQuiverExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <array>
#include <cstddef>
#include <memory>

namespace OrrinQuiver {

class ControlLink;
class Header;
class ItemViewLink;
class Items;
struct ItemExtra;
template<typename T>
class KeyedList;

// One button of a header: caption, icons, colours, state and host data.
// Items are made only by Items::Add. Until Add has linked an item to its
// collection its setters change nothing but the item's own fields; a removed
// item is unlinked again and deleted once control returns to the event loop.
class ORRINQUIVER_EXPORT Item : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool Bold READ Bold WRITE setBold)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(quintptr ChildhWnd READ ChildhWnd WRITE setChildhWnd)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(QString Key READ Key WRITE setKey)
    Q_PROPERTY(int Index READ Index WRITE setIndex)
    Q_PROPERTY(OrrinQuiver::OLE_COLOR MaskColor READ MaskColor WRITE setMaskColor)
    Q_PROPERTY(OrrinQuiver::Header *Parent READ Parent)
    Q_PROPERTY(bool Selected READ Selected WRITE setSelected)
    Q_PROPERTY(QVariant Tag READ Tag WRITE setTag)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(QVariant Icon READ Icon WRITE setIcon)
    Q_PROPERTY(QVariant SmallIcon READ SmallIcon WRITE setSmallIcon)
    Q_PROPERTY(QString URLIcon READ URLIcon WRITE setURLIcon)
    Q_PROPERTY(QString URLSmallIcon READ URLSmallIcon WRITE setURLSmallIcon)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
    Q_MOC_INCLUDE("model/Header.h")

public:
    ~Item() override;

    bool Bold() const;
    // Stores; a linked item in a view is laid out again.
    void setBold(bool value);

    QString Caption() const;
    // Stores the text without its CR LF pairs (a lone CR or LF stays); a tool
    // tip that equalled the old caption follows the new one.
    void setCaption(const QString &value);

    // The hosted native window, 0 when none.
    quintptr ChildhWnd() const;
    // Gives back any hosted window, then hosts `value` in the item's view.
    // An item that is in no view keeps 0.
    void setChildhWnd(quintptr value);

    bool Enabled() const;
    void setEnabled(bool value);

    OLE_COLOR ForeColor() const;
    void setForeColor(OLE_COLOR value);

    QString Key() const;
    // A linked item is re-keyed through its collection, which replaces an
    // empty or taken key (also one equal to another item's caption) by a
    // generated "ITEM" key.
    void setKey(const QString &value);

    // The cached 1-based position; the collection keeps it current except
    // where its renumbering rule deliberately stops early.
    int Index() const;
    // A linked item moves through its collection, which clamps the value
    // (above Count: Count; below 0: 1).
    void setIndex(int value);

    OLE_COLOR MaskColor() const;
    void setMaskColor(OLE_COLOR value);

    // The header at the position the collection last recorded for its owner;
    // nullptr for an item that is not linked to a header in a Headers.
    Header *Parent() const;

    // True when the control's selected item is this item.
    bool Selected() const;
    // Ignores `value`: opens the owning header and selects this item.
    void setSelected(bool value);

    QVariant Tag() const;
    void setTag(const QVariant &value);

    QString ToolTipText() const;
    void setToolTipText(const QString &value);

    // Image-list key or index of the large and small icon, stored as given.
    QVariant Icon() const;
    void setIcon(const QVariant &value);
    QVariant SmallIcon() const;
    void setSmallIcon(const QVariant &value);

    // Addresses of pictures for the icons; the control fetches them.
    QString URLIcon() const;
    void setURLIcon(const QString &value);
    QString URLSmallIcon() const;
    void setURLSmallIcon(const QString &value);

    bool Visible() const;
    void setVisible(bool value);

    // Scrolls the item's view step by step until the item is wholly visible;
    // stops when a step no longer moves the view. Nothing without a view.
    Q_INVOKABLE void EnsureVisible();
    // Starts a drag of the item in its view; nothing without a view.
    Q_INVOKABLE void OLEDrag();
    // Opens the caption editor on the item; nothing without a view.
    Q_INVOKABLE void StartLabelEdit();

    // Items live in the slots of a shared pool rather than each in a block
    // of the global heap. A size other than an Item's (a derived class) goes
    // to the global heap; deleting nullptr does nothing.
    static void *operator new(std::size_t size);
    static void operator delete(void *item, std::size_t size) noexcept;

    // Internal accessors for the control and the item view.

    // The id the item view gave the item, -1 before it was added to a view.
    int viewId() const;
    // The collection that holds the item; nullptr before Items::Add linked it
    // and after it was removed.
    Items *collection() const;
    // True from the end of Items::Add until the item is removed, except
    // while setLive(false) holds it back.
    bool isLive() const;
    // The XML reader clears the live flag while it sets a new item's
    // attributes, so that they change only the item's own fields (an Index
    // is stored, not moved to); a failed reading leaves it cleared.
    void setLive(bool value);
    // Set whenever Index changes; the item view clears it after measuring.
    bool needsMeasure() const;
    void setNeedsMeasure(bool value);
    // True when a deliberate early stop of the collection's renumbering left
    // Index different from the item's position.
    bool indexMayLag() const;

private:
    friend class Items;
    template<typename T>
    friend class KeyedList;

    Item();
    ItemExtra &extra();
    ItemViewLink *itemView() const;
    ControlLink *control() const;
    // Renumbering runs this over every later member: keep it inline.
    void storeIndex(int value)
    {
        m_index = value;
        m_needsMeasure = true;
        m_indexMayLag = false;
    }
    void storeKey(const QString &value);
    void storeGeneratedKey(quint32 number);
    quint32 keyNumber() const { return m_keyNumber; }
    static quint32 keyNumberOf(QStringView text);
    QStringView keyText(std::array<char16_t, 32> &buffer) const;
    void setIndexMayLag(bool value) { m_indexMayLag = value; }
    void link(Items *collection);
    void unlink();
    void releaseChildWindow();
    ItemViewLink *liveView() const;
    void relayoutIfShown();
    void redrawIfShown();

    // An item's state lives in the object itself rather than behind a
    // d-pointer: a header may hold a million items, so the QObject (with its
    // caption) is all that is allocated for most items. Rarely used fields
    // live in the lazily made extra block.
    QString m_caption;
    Items *m_collection = nullptr;
    std::unique_ptr<ItemExtra> m_extra;
    // A key of the program's own, nullptr while the key is generated (or a
    // null string). The items of a large header mostly carry generated keys,
    // so an own key is kept apart rather than spend a string's 24 bytes in
    // every item.
    std::unique_ptr<QString> m_ownKey;
    int m_index = 0;
    int m_viewId = -1;
    OLE_COLOR m_foreColor = 0;
    OLE_COLOR m_maskColor;
    // A key that Add generated is kept as its number ("NEW_ITEM" and at
    // least five digits), with m_ownKey null: most items carry such a key,
    // and the text is made only when asked for.
    quint32 m_keyNumber = 0;
    bool m_bold : 1;
    bool m_enabled : 1;
    bool m_visible : 1;
    bool m_needsMeasure : 1;
    bool m_indexMayLag : 1;
    // True while the tool tip equals the caption; only a different tool tip
    // is stored (in the extra block).
    bool m_toolTipIsCaption : 1;
    bool m_live : 1;
};

} // namespace OrrinQuiver
