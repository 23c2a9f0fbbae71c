// The header fragment reader: any text is either refused before the header's
// items change, or read into a sound model; the other header keeps its items.

#include "FuzzSupport.h"

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/ModelChecker.h"
#include "core/QuiverError.h"

using namespace OrrinQuiver;
using namespace OrrinQuiver::FuzzSupport;

namespace {

// Items each header holds before the fragment is read.
constexpr int ItemsBefore = 3;

QStringList keysOf(const Items &items)
{
    QStringList keys;
    for (const Item *item : items)
        keys << item->Key();
    return keys;
}

void readFragment(const QString &text)
{
    Quiver bar;
    bar.InitProperties();
    Header *target = bar.Headers()->at(1);
    Header *other = bar.Headers()->Add(0, QStringLiteral("other"), QStringLiteral("Other"));
    for (int i = 0; i < ItemsBefore; ++i) {
        target->Items()->Add(0, QString(), QStringLiteral("Item %1").arg(i));
        other->Items()->Add(0, QString(), QStringLiteral("Item %1").arg(i));
    }
    const QStringList targetKeys = keysOf(*target->Items());
    const QStringList otherKeys = keysOf(*other->Items());
    try {
        target->setXML(text);
    } catch (const QuiverError &) {
        if (keysOf(*target->Items()) != targetKeys)
            fail("a refused fragment changed the header's items");
        return;
    }
    if (keysOf(*other->Items()) != otherKeys)
        fail("a fragment read into one header changed another");
    if (!checkModel(*bar.Headers()).isEmpty())
        fail("reading a fragment left the model unsound");
    try {
        other->setXML(target->XML());
    } catch (const QuiverError &) {
        fail("a header could not read the fragment another header wrote");
    }
    if (!checkModel(*bar.Headers()).isEmpty())
        fail("reading a written fragment left the model unsound");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    readFragment(QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)));
    returnToEventLoop();
    return 0;
}
