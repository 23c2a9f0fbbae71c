#pragma once

#include "core/OrrinQuiverExport.h"
#include "serialize/MemoryPropertyBag.h"

namespace OrrinQuiver {

// The property bag as a Qt Designer form file keeps it: one text, a line
// "Name=Value" per stored name in the order written. Booleans are written
// "True" or "False", numbers in decimal, texts as they are with backslash
// escapes for the backslash ("\\"), line breaks ("\n", "\r"), tabs ("\t")
// and other control characters ("\xHH"), so the text survives the form
// file's XML and any editor.
class ORRINQUIVER_EXPORT FormPropertyBag : public MemoryPropertyBag
{
public:
    FormPropertyBag() = default;
    // Reads a text in the form above. Lines without "=" are skipped; an
    // unknown escape stands for the character after the backslash; a name
    // given twice keeps its last value. All values read back as texts and
    // convert on reading like any bag's values.
    explicit FormPropertyBag(const QString &text);

    // The stored names and values in the form above, in the order written.
    QString text() const;
};

} // namespace OrrinQuiver
