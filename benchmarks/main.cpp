#include "Kestrel/theme/ThemeFont.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

#include <benchmark/benchmark.h>

/// Offscreen unless the caller chose a platform, so that a run needs no display.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setFont(ThemeFont::Get());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
