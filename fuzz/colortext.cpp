// Colour text: any text reads as a plain colour, and every colour the writer
// gives reads back as itself.

#include "FuzzSupport.h"

#include "platform/SystemColors.h"
#include "serialize/modWebColorFuncs.h"

#include <QtCore/QRegularExpression>

#include <cstring>

using namespace OrrinQuiver;
using namespace OrrinQuiver::FuzzSupport;

namespace {

// The largest plain colour: red, green and blue at 255.
constexpr OLE_COLOR White = 0xFFFFFF;

bool isColorText(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^#[0-9A-F]{6}$"));
    return form.match(text).hasMatch();
}

void readText(QStringView text, const QPalette &palette)
{
    const OLE_COLOR color = modWebColorFuncs::textToColor(text);
    if (color > White)
        fail("a colour text read as something other than a plain colour");
    const QString written = modWebColorFuncs::colorToText(color, palette);
    if (!isColorText(written))
        fail("a plain colour was not written as #RRGGBB");
    if (modWebColorFuncs::textToColor(written) != color)
        fail("a written colour read back as another colour");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QPalette palette = classicPalette();
    const auto *bytes = reinterpret_cast<const char *>(data);
    readText(QString::fromUtf8(bytes, qsizetype(size)), palette);
    // The same bytes as UTF-16, unpaired surrogates and all.
    readText(QStringView(reinterpret_cast<const char16_t *>(data), qsizetype(size / 2)), palette);

    // Any 32-bit value writes as text: a system colour as the plain colour it
    // stands for now.
    if (size >= sizeof(OLE_COLOR)) {
        OLE_COLOR value;
        std::memcpy(&value, data, sizeof value);
        const QString written = modWebColorFuncs::colorToText(value, palette);
        if (isSystemColor(value) && !isColorText(written))
            fail("a system colour was not written as #RRGGBB");
        if (!written.startsWith(QLatin1Char('#')))
            fail("a colour was written without its #");
        modWebColorFuncs::textToColor(written);
    }
    return 0;
}
