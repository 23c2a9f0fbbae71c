#pragma once

#include "core/OrrinQuiverExport.h"
#include "core/QuiverEnums.h"

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

// The ordered, keyed collection of the bar's headers, one per control.
// Positions are 1-based; keys are unique and compared case-insensitively. A
// number passed as a QVariant is a position, a text is a caption or key.
// Every operation checks its arguments and ends with its default (nullptr,
// false, 0) on bad input; nothing throws. Works without a control.
class ORRINQUIVER_EXPORT Headers : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)
    Q_MOC_INCLUDE("model/Header.h")

public:
    // `control` may be nullptr (a collection that no bar shows).
    explicit Headers(ControlLink *control, QObject *parent = nullptr);
    // Deletes the headers and their items; hosted windows are given back
    // through the item views, so destroy the collection before the views.
    ~Headers() override;

    // Adds a header after position `Index` (0 or above Count: at the end;
    // below 0: after the first) under `Key` ("NEW_HEADER00001"... when empty)
    // and has the control make its bar and item view. Returns nullptr when the
    // key is taken.
    Q_INVOKABLE OrrinQuiver::Header *Add(int Index = 0, const QString &Key = {}, const QString &Caption = {},
                                         OrrinQuiver::qvViewType View = qvViewLargeIcons);
    // Removes every header, last first.
    Q_INVOKABLE void Clear();
    int Count() const;
    // A number: a member at that position (false below 1). A text: a member
    // with that caption (case-insensitive), else one with that key.
    Q_INVOKABLE bool Exists(const QVariant &Index) const;
    // A number: removes that position, true even when it does not exist. A
    // text: removes the first header with that caption (keys are not
    // consulted); false when none.
    Q_INVOKABLE bool Remove(const QVariant &Index);
    // A number: the member at that position. A text: the member with that key
    // when Exists(text); nullptr for a text that matched only a caption, for
    // unknown texts and out-of-range positions.
    Q_INVOKABLE OrrinQuiver::Header *Item(const QVariant &Index) const;
    // The members in position order, for scripts.
    Q_INVOKABLE QList<OrrinQuiver::Header *> NewEnum() const;

    // Range-for over the members in position order. Any change to the
    // collection invalidates the iterators.
    using const_iterator = OrrinQuiver::Header *const *;
    const_iterator begin() const;
    const_iterator end() const;
    // The member at a 1-based position, nullptr out of range.
    OrrinQuiver::Header *at(int position) const;

    // Internal operations, used by Header and the control.

    // "HEADER" and the next value of the collection's counter, at least five
    // digits; the counter is never reset.
    QString NextKey();
    // The Index of the first header whose caption equals `caption`
    // (case-insensitive), -1 when none.
    int IndexOfCaption(const QString &caption) const;
    // Removes the header at `position` and has the control destroy its bar
    // and item view; nothing when out of range.
    void RemoveAt(int position);
    // Stores Index = position for the headers from `position` to Count, only
    // when Count > position.
    void Renumber(int position);
    // Moves `header` towards `index` (clamped) and renumbers; returns the
    // clamped value, nullopt when `header` is not a member.
    std::optional<int> MoveHeader(OrrinQuiver::Header *header, int index);
    // Re-keys the header with key `oldKey` in place, as Items::ChangeKey.
    std::optional<QString> ChangeKey(const QString &oldKey, const QString &newKey);

    // The header whose key equals `key` case-insensitively (a hash probe),
    // nullptr when none.
    OrrinQuiver::Header *withKey(const QString &key) const;

    ControlLink *control() const;

private:
    friend class OrrinQuiver::Header;
    friend QStringList checkModel(const Headers &headers);
    // Removes a member that is being destroyed, as RemoveAt does.
    void forget(OrrinQuiver::Header *header);

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace OrrinQuiver
