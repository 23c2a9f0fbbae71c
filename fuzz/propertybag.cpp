// The property-bag reader on INI text: any file restores a control with a
// sound model, and what that control saves restores again.

#include "FuzzSupport.h"

#include "control/Quiver.h"
#include "model/Headers.h"
#include "model/ModelChecker.h"
#include "serialize/MemoryPropertyBag.h"
#include "serialize/SettingsPropertyBag.h"

#include <QtCore/QSettings>

using namespace OrrinQuiver;
using namespace OrrinQuiver::FuzzSupport;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = writeInput(data, size, QStringLiteral(".ini"));
    {
        QSettings settings(path, QSettings::IniFormat);
        const SettingsPropertyBag bag(settings);
        Quiver bar;
        bar.ReadProperties(bag);
        if (!checkModel(*bar.Headers()).isEmpty())
            fail("restoring from a bag left the model unsound");
        MemoryPropertyBag saved;
        bar.WriteProperties(saved);
        Quiver copy;
        copy.ReadProperties(saved);
        if (copy.Headers()->Count() != bar.Headers()->Count())
            fail("a saved control restored with another number of headers");
        if (!checkModel(*copy.Headers()).isEmpty())
            fail("restoring a saved control left the model unsound");
    }
    returnToEventLoop();
    return 0;
}
