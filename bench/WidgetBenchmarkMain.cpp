// The main() of the benchmarks that need widgets: the offscreen platform
// where there is no display, a QApplication, then Google Benchmark with its
// own command-line flags.

#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
