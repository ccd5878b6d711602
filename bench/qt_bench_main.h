#pragma once
// The main of a benchmark that needs a Qt application object: offscreen, so that it runs without a display.
// `afterwards` lets go of what the benchmarks made while the application and the store's globals still stand.
#include <QByteArray>
#include <QtGlobal>
#include <benchmark/benchmark.h>
#include <functional>

template <class Application>
int runOffscreen(int argc, char** argv, const std::function<void()>& afterwards = {}) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    if (afterwards) afterwards();
    return 0;
}
