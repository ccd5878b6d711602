#include "platform/system/register_server.h"

#include "platform/basic/log.h"

#include <dlfcn.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace sys {

namespace {

using ServerEntry = long (*)();

// Shared by the caller and the entry's thread, so that a thread that outlives the wait still has it.
struct EntryRun {
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
};

}  // namespace

std::int32_t RegisterServerFile(const QString& path, int mode, int timeoutMs) {
    if (path.isEmpty()) return 0;
    void* library = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library) return 1;

    const char* entryName = mode == 1 ? "DllRegisterServer" : mode == 2 ? "DllUnregisterServer" : nullptr;
    auto entry = entryName ? reinterpret_cast<ServerEntry>(dlsym(library, entryName)) : nullptr;
    if (!entry) {
        dlclose(library);
        return 2;
    }

    auto run = std::make_shared<EntryRun>();
    std::thread thread;
    try {
        thread = std::thread([run, entry] {
            entry();
            std::lock_guard lock(run->mutex);
            run->done = true;
            run->ended.notify_all();
        });
    } catch (const std::system_error& e) {
        qCDebug(lcSystem) << "no thread for the component's entry:" << e.what();
        return 0;
    }

    bool done;
    {
        std::unique_lock lock(run->mutex);
        done = run->ended.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return run->done; });
    }
    if (!done) {
        // The entry's code still runs: leave it its thread and its library. Ending the calling thread,
        // as the old platform would, would end the program here.
        thread.detach();
        return 3;
    }
    thread.join();
    dlclose(library);
    return mode == 1 ? 4 : 5;
}

}  // namespace sys
