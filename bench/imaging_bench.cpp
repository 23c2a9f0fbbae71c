// The cost of painting one item's icon: a 32 x 32 picture painted with its
// transparent colour removed, and drawn from an image list in each state.

#include "imaging/clsDrawPictures.h"
#include "imaging/clsImageList.h"
#include "platform/SystemColors.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

#include <benchmark/benchmark.h>

using namespace OrrinQuiver;

namespace {

constexpr int IconSize = 32;
constexpr OLE_COLOR Mask = rgbColor(192, 192, 192);

// A 32 x 32 icon: a filled disc on the mask colour.
QImage icon()
{
    QImage image(IconSize, IconSize, QImage::Format_RGB32);
    image.fill(QColor(192, 192, 192));
    QPainter painter(&image);
    painter.setBrush(QColor(30, 90, 200));
    painter.setPen(Qt::black);
    painter.drawEllipse(2, 2, IconSize - 4, IconSize - 4);
    return image;
}

QImage target(qreal ratio)
{
    QImage image(int(2 * IconSize * ratio), int(2 * IconSize * ratio), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    image.setDevicePixelRatio(ratio);
    return image;
}

void PaintTransparentDC(benchmark::State &state)
{
    const clsDrawPictures pics(classicPalette());
    const QImage source = icon();
    QImage surface = target(double(state.range(0)));
    QPainter painter(&surface);
    for (auto _ : state)
        pics.PaintTransparentDC(painter, QRect(8, 8, IconSize, IconSize), source, source.rect(), Mask);
}
BENCHMARK(PaintTransparentDC)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

// Arguments: device pixel ratio, then 0 normal, 1 selected, 2 cut, 3 disabled.
void DrawImage(benchmark::State &state)
{
    clsImageList list;
    list.setPalette(classicPalette());
    list.Create();
    list.AddFromPicture(icon(), QStringLiteral("icon"), Mask);
    QImage surface = target(double(state.range(0)));
    QPainter painter(&surface);
    const auto look = state.range(1);
    const QVariant key(QStringLiteral("icon"));
    for (auto _ : state)
        list.DrawImage(key, painter, 8, 8, look == 1, look == 2, look == 3);
}
BENCHMARK(DrawImage)->ArgsProduct({{1, 2}, {0, 1, 2, 3}})->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
