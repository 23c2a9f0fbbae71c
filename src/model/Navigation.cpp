#include "model/Navigation.h"

#include "model/ControlLink.h"
#include "model/DocumentFormat.h"
#include "core/QuiverError.h"
#include "core/ScriptErrors.h"

namespace OrrinQuiver {

class Navigation::Private
{
public:
    ControlLink *control = nullptr;
    // Entry p is written at list index p - 1. Both lists always have the
    // same length; `allocated` is false until the first recording or Clear.
    QStringList headerKeys;
    QStringList itemKeys;
    bool allocated = false;
    int position = 0;
    bool enabled = false;

    // The last list index, -1 before the lists exist.
    int lastListIndex() const { return allocated ? int(headerKeys.size()) - 1 : -1; }
    // The keys at list index `position`, where moves read (one past the
    // entry written for that position).
    void emitCurrent(Navigation *q) const
    {
        if (position >= 0 && position < headerKeys.size())
            emit q->ChangePosition(headerKeys.at(position), itemKeys.at(position));
    }
};

Navigation::Navigation(ControlLink *control, QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    d->control = control;
}

Navigation::~Navigation() = default;

bool Navigation::CanGoBack() const
{
    return d->position >= 2 && d->enabled;
}

bool Navigation::CanGoForward() const
{
    return d->allocated && d->position < d->lastListIndex() && d->enabled;
}

int Navigation::CurrentPosition() const
{
    return d->position;
}

void Navigation::setCurrentPosition(int value)
{
    if (value <= d->position)
        GoBack(d->position - value);
    else
        GoForward(value - d->position);
}

bool Navigation::Enabled() const
{
    return d->enabled;
}

void Navigation::setEnabled(bool value)
{
    d->enabled = value;
}

QString Navigation::HistoryXML() const
{
    const DocumentFormat *format = d->control ? d->control->documentFormat() : nullptr;
    return format ? format->historyXml(*this) : QString();
}

QString Navigation::readHistoryXml() const
{
    try {
        return HistoryXML();
    } catch (const QuiverError &error) {
        reportToScript(this, error);
    } catch (...) {
        qWarning("OrrinQuiver: writing the history failed");
    }
    return {};
}

void Navigation::GoBack(int plSteps)
{
    if (!CanGoBack() || plSteps <= 0)
        return;
    d->position = std::max(1, d->position - plSteps);
    d->emitCurrent(this);
}

void Navigation::GoForward(int plSteps)
{
    if (!CanGoForward() || plSteps <= 0)
        return;
    const qint64 target = qint64(d->position) + plSteps;
    d->position = int(std::min<qint64>(target, d->lastListIndex()));
    d->emitCurrent(this);
}

void Navigation::Clear()
{
    d->position = 0;
    d->headerKeys = QStringList(QString());
    d->itemKeys = QStringList(QString());
    d->allocated = true;
}

void Navigation::Record(const QString &headerKey, const QString &itemKey)
{
    if (headerKey.isEmpty() || !d->enabled || itemKey.isEmpty())
        return;
    if (d->position >= 1 && d->position - 1 < d->headerKeys.size()
        && headerKey == d->headerKeys.at(d->position - 1) && itemKey == d->itemKeys.at(d->position - 1))
        return;
    ++d->position;
    // Keeps the entries up to the new one, dropping any forward part.
    d->headerKeys.resize(d->position);
    d->itemKeys.resize(d->position);
    d->headerKeys[d->position - 1] = headerKey;
    d->itemKeys[d->position - 1] = itemKey;
    d->allocated = true;
}

QStringList Navigation::headerKeys() const
{
    return d->headerKeys;
}

QStringList Navigation::itemKeys() const
{
    return d->itemKeys;
}

} // namespace OrrinQuiver
