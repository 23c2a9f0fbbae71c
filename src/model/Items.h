#pragma once

#include "core/OrrinQuiverExport.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <memory>
#include <optional>

namespace OrrinQuiver {

class ControlLink;
class Header;
class Item;
class ItemViewLink;

// The ordered, keyed collection of one header's items. Positions are 1-based;
// keys are unique and compared case-insensitively. A number passed as a
// QVariant is a position, a text is a caption or key. Every operation checks
// its arguments and ends with its default (nullptr, false, 0) on bad input;
// nothing throws. Works without a control or a view linked.
class ORRINQUIVER_EXPORT Items : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)
    Q_MOC_INCLUDE("model/Item.h")

public:
    // A collection of its own; a Header makes the one it owns.
    explicit Items(QObject *parent = nullptr);
    // Deletes the items (hosted windows are given back first).
    ~Items() override;

    // Adds an item after position `Index` (0 or above Count: at the end; below
    // 0: at the end with Index 1) under `Key` ("NEW_ITEM00001"... when empty).
    // Returns nullptr when the key is taken.
    Q_INVOKABLE OrrinQuiver::Item *Add(int Index = 0, const QString &Key = {}, const QString &Caption = {},
                                       const QString &Icon = {}, const QString &SmallIcon = {});
    // Removes every item, last first.
    Q_INVOKABLE void Clear();
    int Count() const;
    // A number: a member at that position (false below 1). A text: a member
    // with that caption (case-insensitive), else one with that key.
    Q_INVOKABLE bool Exists(const QVariant &Index) const;
    // A number: removes that position, true even when it does not exist. A
    // text: removes the member with that key, else the first with that
    // caption; false when neither, or when the text is a caption and a key of
    // no member.
    Q_INVOKABLE bool Remove(const QVariant &Index);
    // A number: the member at that position. A text: the member with that key
    // when Exists(text); nullptr for a text that matched only a caption, for
    // unknown texts and out-of-range positions.
    Q_INVOKABLE OrrinQuiver::Item *Item(const QVariant &Index) const;
    // The members in position order, for scripts.
    Q_INVOKABLE QList<OrrinQuiver::Item *> NewEnum() const;

    // Range-for over the members in position order. Any change to the
    // collection invalidates the iterators.
    using const_iterator = OrrinQuiver::Item *const *;
    const_iterator begin() const;
    const_iterator end() const;
    // The member at a 1-based position, nullptr out of range.
    OrrinQuiver::Item *at(int position) const;

    // Internal operations, used by Header, Item, the control and the XML reader.

    // "ITEM" and the next value of the collection's counter, at least five
    // digits ("ITEM00001"); the counter is never reset.
    QString NextKey();
    // The Index of the first member whose caption equals `caption`
    // (case-insensitive), -1 when none.
    int IndexOfCaption(const QString &caption) const;
    // Removes the member at `position`; nothing when out of range.
    void RemoveAt(int position);
    // Stores Index = position for the members from `position` to Count, only
    // when Count > position (a deliberate early stop when Count == position).
    void Renumber(int position);
    // Moves `item` towards `index` (clamped) and renumbers; returns the
    // clamped value, nullopt when `item` is not a member.
    std::optional<int> MoveItem(OrrinQuiver::Item *item, int index);
    // Re-keys the member with key `oldKey` in place; an empty or existing
    // `newKey` (also one that is a member's caption) is replaced by NextKey().
    // Returns the key given, nullopt when no member has `oldKey`.
    std::optional<QString> ChangeKey(const QString &oldKey, const QString &newKey);
    // The owning header's Index and Key as last recorded, shared by every item.
    void SetHeaderIndex(int index);
    int headerIndex() const;
    void SetHeaderKey(const QString &key);
    QString headerKey() const;

    // The header that owns the collection, nullptr for a collection of its own.
    Header *header() const;
    // Links; nullptr unlinks. New items use them from Add on.
    void setItemView(ItemViewLink *view);
    ItemViewLink *itemView() const;
    void setControl(ControlLink *control);
    ControlLink *control() const;

    // The member whose key equals `key` case-insensitively (a hash probe),
    // nullptr when none.
    OrrinQuiver::Item *withKey(const QString &key) const;

private:
    friend class Header;
    friend class OrrinQuiver::Item;
    friend QStringList checkItems(const Items &items);
    void setHeader(Header *header);
    // Gives back hosted windows and drops the control and view links; the
    // items stay members.
    void unlinkAll();
    // Removes a member that is being destroyed, as RemoveAt does.
    void forget(OrrinQuiver::Item *item);

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace OrrinQuiver
