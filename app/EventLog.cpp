#include "EventLog.h"

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Item.h"
#include "model/Navigation.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMimeData>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace OrrinQuiver {

namespace {

// Enough lines to scroll back through a session; older ones drop out.
constexpr int KeptLines = 2000;

// An argument as the log shows it; headers and items by their captions.
QString describe(const QString &text) { return u'"' + text + u'"'; }

QString describe(const Header *header) { return header ? describe(header->Caption()) : QStringLiteral("null"); }

QString describe(const Item *item) { return item ? describe(item->Caption()) : QStringLiteral("null"); }

QString describe(int value) { return QString::number(value); }

QString describe(float value) { return QString::number(value); }

// By reference: the value it arrived with.
QString describe(const int *value) { return QStringLiteral("&") + QString::number(*value); }

QString describe(const QMimeData *data)
{
    return data ? QStringLiteral("[%1]").arg(data->formats().join(QStringLiteral(", "))) : QStringLiteral("null");
}

} // namespace

EventLog::EventLog(QWidget *parent)
    : QWidget(parent)
    , m_text(new QPlainTextEdit(this))
    , m_moves(new QCheckBox(QStringLiteral("Mouse moves"), this))
{
    m_text->setReadOnly(true);
    m_text->setMaximumBlockCount(KeptLines);
    auto *clear = new QPushButton(QStringLiteral("Clear"), this);
    connect(clear, &QPushButton::clicked, m_text, &QPlainTextEdit::clear);

    auto *top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Events"), this));
    top->addStretch();
    top->addWidget(m_moves);
    top->addWidget(clear);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addLayout(top);
    layout->addWidget(m_text);
}

void EventLog::watch(Quiver *bar)
{
    watchEvent(bar, &Quiver::HeaderClick);
    watchEvent(bar, &Quiver::HeaderRenamed);
    watchEvent(bar, &Quiver::HeaderMouseDown);
    watchEvent(bar, &Quiver::HeaderMouseMove);
    watchEvent(bar, &Quiver::HeaderMouseUp);
    watchEvent(bar, &Quiver::HeaderOLEDragDrop);
    watchEvent(bar, &Quiver::HeaderOLEDragOver);
    watchEvent(bar, &Quiver::HeaderOLEStartDrag);
    watchEvent(bar, &Quiver::HeaderOLECompleteDrag);
    watchEvent(bar, &Quiver::ItemClick);
    watchEvent(bar, &Quiver::ItemRenamed);
    watchEvent(bar, &Quiver::ItemMouseDown);
    watchEvent(bar, &Quiver::ItemMouseMove);
    watchEvent(bar, &Quiver::ItemMouseUp);
    watchEvent(bar, &Quiver::ItemOLEDragDrop);
    watchEvent(bar, &Quiver::ItemOLEDragOver);
    watchEvent(bar, &Quiver::ItemOLEStartDrag);
    watchEvent(bar, &Quiver::ItemOLECompleteDrag);
    watchEvent(bar, &Quiver::ScrollUp);
    watchEvent(bar, &Quiver::ScrollDown);
    watchEvent(bar, &Quiver::IconDownloaded);
    watchEvent(bar, &Quiver::SmallIconDownloaded);
    // Not a host event, but what Back and Forward read from the history.
    watchEvent(bar->Navigation(), &Navigation::ChangePosition);
}

QStringList EventLog::lines() const { return m_text->toPlainText().split(u'\n', Qt::SkipEmptyParts); }

template<typename Sender, typename... Args>
void EventLog::watchEvent(Sender *sender, void (Sender::*event)(Args...))
{
    const QMetaMethod method = QMetaMethod::fromSignal(event);
    connect(sender, event, this, [this, method](Args... args) { append(method, { describe(args)... }); });
}

void EventLog::append(const QMetaMethod &event, const QStringList &values)
{
    // The control's own events by their names, others with their class.
    QString name = QString::fromLatin1(event.name());
    if (event.enclosingMetaObject() != &Quiver::staticMetaObject)
        name = QString::fromLatin1(event.enclosingMetaObject()->className()).section(u':', -1) + u'.' + name;
    if (name.endsWith(QLatin1String("MouseMove")) && !m_moves->isChecked())
        return;
    const QList<QByteArray> names = event.parameterNames();
    QStringList arguments;
    for (qsizetype i = 0; i < values.size(); ++i)
        arguments << QString::fromLatin1(names.value(i)) + u'=' + values.at(i);
    // appendPlainText keeps the newest line in view.
    m_text->appendPlainText(name + u' ' + arguments.join(u' '));
}

} // namespace OrrinQuiver
