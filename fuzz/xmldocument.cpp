// The control's XML document reader: any text is either refused with an
// error before anything changes, or read into a sound model whose document
// the bar can read again.

#include "FuzzSupport.h"

#include "control/Quiver.h"
#include "model/Headers.h"
#include "model/ModelChecker.h"
#include "core/QuiverError.h"

using namespace OrrinQuiver;
using namespace OrrinQuiver::FuzzSupport;

namespace {

void readDocument(const QString &text)
{
    Quiver bar;
    bar.InitProperties();
    const QString before = bar.XML();
    try {
        bar.setXML(text);
    } catch (const QuiverError &) {
        if (bar.XML() != before)
            fail("a refused document changed the bar");
        return;
    }
    if (!checkModel(*bar.Headers()).isEmpty())
        fail("reading a document left the model unsound");
    const QString written = bar.XML();
    Quiver copy;
    try {
        copy.setXML(written);
    } catch (const QuiverError &) {
        fail("the bar could not read the document it wrote");
    }
    if (!checkModel(*copy.Headers()).isEmpty())
        fail("reading a written document left the model unsound");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    readDocument(QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)));
    returnToEventLoop();
    return 0;
}
