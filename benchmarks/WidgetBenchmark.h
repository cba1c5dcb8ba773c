#pragma once

#include <QApplication>

#include <benchmark/benchmark.h>

/// The body of main() of benchmarks that need widgets: runs them without a screen.
inline int runWidgetBenchmarks(int iArguments, char** ppcArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication oApplication(iArguments, ppcArguments);
    benchmark::Initialize(&iArguments, ppcArguments);
    if (benchmark::ReportUnrecognizedArguments(iArguments, ppcArguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
