#include "control/BarRecord.h"

namespace OrrinQuiver {

namespace {

const QLatin1Char IndexSeparator(':');
const QLatin1Char ToolTipSeparator(';');
// What every field of a record that was never written reads as.
const QLatin1String EmptyField("0");

} // namespace

QString BarRecord::field(int field) const
{
    if (m_text.isEmpty())
        return field >= IndexField && field <= ToolTipField ? QString(EmptyField) : QString();
    const qsizetype colon = m_text.indexOf(IndexSeparator);
    const qsizetype semicolon = m_text.indexOf(ToolTipSeparator);
    switch (field) {
    case IndexField:
        return colon < 0 ? QString() : m_text.left(colon);
    case SpareField: {
        const qsizetype from = colon + 1;
        const qsizetype to = semicolon < 0 ? m_text.size() : semicolon;
        return to > from ? m_text.mid(from, to - from) : QString();
    }
    case ToolTipField:
        return semicolon < 0 ? QString() : m_text.mid(semicolon + 1);
    default:
        return QString();
    }
}

void BarRecord::setField(int field, const QString &value)
{
    if (field < IndexField || field > ToolTipField)
        return;
    QString fields[3] = { this->field(IndexField), this->field(SpareField), this->field(ToolTipField) };
    fields[field - 1] = value;
    m_text = fields[0] + IndexSeparator + fields[1] + ToolTipSeparator + fields[2];
}

int BarRecord::index() const { return field(IndexField).toInt(); }

} // namespace OrrinQuiver
