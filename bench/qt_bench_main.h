#pragma once
// The main of a benchmark that needs a Qt application object: offscreen, so that it runs without a display.
#include <QByteArray>
#include <QtGlobal>
#include <benchmark/benchmark.h>

template <class Application>
int runOffscreen(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
