// From starting the program to its first window on the screen, whole processes, beside a bare Qt window
// that shows itself and ends in the same way. busy:1 keeps a thread spinning on the other core.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

extern char** environ;

namespace {

// Runs the program to its end; false when it could not be started or did not end well.
bool run(const char* program, const char* option) {
    char* argv[] = {const_cast<char*>(program), const_cast<char*>(option), nullptr};
    pid_t pid = 0;
    if (posix_spawn(&pid, program, nullptr, nullptr, argv, environ) != 0) return false;
    int status = 0;
    return waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void startUp(benchmark::State& state, const char* program, const char* option) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::atomic<bool> stop{false};
    std::thread spinner;
    if (state.range(0)) spinner = std::thread([&stop] {
        while (!stop.load(std::memory_order_relaxed)) {
        }
    });
    for (auto _ : state)
        if (!run(program, option)) state.SkipWithError("the program did not start and end");
    stop = true;
    if (spinner.joinable()) spinner.join();
}

void BM_BareWindow(benchmark::State& state) { startUp(state, VORLAN_BARE_WINDOW, nullptr); }
void BM_VorlanFirstWindow(benchmark::State& state) { startUp(state, VORLAN_PROGRAM, "--quit-when-shown"); }

BENCHMARK(BM_BareWindow)->ArgName("busy")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_VorlanFirstWindow)->ArgName("busy")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
