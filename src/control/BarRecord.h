#pragma once

#include <QtCore/QString>

namespace OrrinQuiver {

// The small text record every header bar carries: field 1 ":" field 2 ";"
// field 3. Field 1 is the header's Index (how a mouse event finds its header
// again), field 2 is unused by the strip, field 3 the bar's tooltip text.
class BarRecord
{
public:
    enum Field { IndexField = 1, SpareField = 2, ToolTipField = 3 };

    BarRecord() = default;
    explicit BarRecord(const QString &text)
        : m_text(text)
    { }

    QString text() const { return m_text; }

    // Field 1 is the text before the first ":" (empty without one); field 2
    // runs from there to the first ";" (to the end without one); field 3 is
    // the text after the first ";" (empty without one). An empty record gives
    // "0" for every field; a field number outside 1..3 gives an empty text.
    QString field(int field) const;
    // Replaces one field and keeps the other two; an empty record first
    // counts as three fields "0". A field number outside 1..3 changes nothing.
    void setField(int field, const QString &value);

    // Field 1 read as a number; 0 when it is not one.
    int index() const;

private:
    QString m_text;
};

} // namespace OrrinQuiver
