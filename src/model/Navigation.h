#pragma once

#include "core/OrrinQuiverExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

namespace OrrinQuiver {

class ControlLink;

// The back/forward history of the places the user opened: pairs of a header
// key and an item key. Entry p is stored at list index p - 1 but read back at
// list index p when moving, and moving forward stops at the last list index;
// that one-place shift is the history's defined behaviour. Nothing throws.
class ORRINQUIVER_EXPORT Navigation : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool CanGoBack READ CanGoBack)
    Q_PROPERTY(bool CanGoForward READ CanGoForward)
    Q_PROPERTY(int CurrentPosition READ CurrentPosition WRITE setCurrentPosition)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QString HistoryXML READ readHistoryXml)

public:
    // `control` writes HistoryXML; it may be nullptr.
    explicit Navigation(ControlLink *control = nullptr, QObject *parent = nullptr);
    ~Navigation() override;

    // False below position 2, else Enabled.
    bool CanGoBack() const;
    // Enabled while the position is below the last list index; false before
    // anything was recorded or cleared.
    bool CanGoForward() const;

    // 1-based position of the current entry, 0 when empty.
    int CurrentPosition() const;
    // Moves back or forward by the difference (see GoBack, GoForward).
    void setCurrentPosition(int value);

    bool Enabled() const;
    void setEnabled(bool value);

    // The history document; "" without a control. The control may throw QuiverError.
    QString HistoryXML() const;

    // Moves back `plSteps` entries (stopping at 1) and emits ChangePosition;
    // nothing when CanGoBack is false or plSteps < 1.
    Q_INVOKABLE void GoBack(int plSteps = 1);
    // Moves forward `plSteps` entries (stopping at the last list index) and
    // emits ChangePosition; nothing when CanGoForward is false or plSteps < 1.
    Q_INVOKABLE void GoForward(int plSteps = 1);
    // Position 0, both lists one empty entry each.
    Q_INVOKABLE void Clear();

    // Records a place (called by the control when an item is selected).
    // Nothing when disabled, when a key is empty or when the pair equals the
    // current entry; recording after going back drops the forward entries.
    void Record(const QString &headerKey, const QString &itemKey);
    // The two lists, for the XML writer; empty before anything was recorded.
    QStringList headerKeys() const;
    QStringList itemKeys() const;

signals:
    // A move read this place from the history; the control opens it.
    void ChangePosition(const QString &psHeader, const QString &psItem);

private:
    QString readHistoryXml() const;

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace OrrinQuiver
