#pragma once

#include <QtWidgets/QWidget>

QT_FORWARD_DECLARE_CLASS(QCheckBox)
QT_FORWARD_DECLARE_CLASS(QMetaMethod)
QT_FORWARD_DECLARE_CLASS(QPlainTextEdit)

namespace OrrinQuiver {

class Quiver;

// A list of a bar's host events as they arrive, one line each with the
// event's name and its arguments by name, the newest at the bottom; the
// history's moves among them. The
// mouse moves come in floods and are listed only when asked for; "Clear"
// empties the list.
class EventLog : public QWidget
{
    Q_OBJECT

public:
    explicit EventLog(QWidget *parent = nullptr);

    // Lists the host events of `bar` from now on.
    void watch(Quiver *bar);

    // The lines listed so far.
    QStringList lines() const;

private:
    template<typename Sender, typename... Args>
    void watchEvent(Sender *sender, void (Sender::*event)(Args...));
    void append(const QMetaMethod &event, const QStringList &values);

    QPlainTextEdit *m_text;
    QCheckBox *m_moves;
};

} // namespace OrrinQuiver
