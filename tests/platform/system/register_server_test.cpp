#include "platform/system/register_server.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <chrono>

namespace {

bool isLoaded(const QString& path) {
    void* handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

TEST(RegisterServerFile, GivesItsStatusWithinItsLimit) {
    enum Loaded { NotChecked, Yes, No };
    const struct { QString path; int mode, limitMs, status; Loaded loadedAfter; } cases[] = {
        {QString(), 1, 200, 0, NotChecked},
        {QStringLiteral("/nonexistent/crystl32.ocx"), 1, 200, 1, NotChecked},
        {QStringLiteral(VORLAN_SOURCE_DIR "/CMakeLists.txt"), 1, 200, 1, NotChecked},  // not a library
        {QStringLiteral("libm.so.6"), 1, 200, 2, NotChecked},                            // no such entry
        {QStringLiteral(TEST_SERVER), 3, 200, 2, No},
        {QStringLiteral(TEST_SERVER), 1, 200, 4, No},
        {QStringLiteral(TEST_SERVER), 2, 3000, 5, No},
        {QStringLiteral(TEST_SERVER_HELD), 2, 200, 3, Yes},  // timed out: left loaded
    };
    for (const auto& c : cases) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(sys::RegisterServerFile(c.path, c.mode, c.limitMs), c.status) << c.path.toStdString() << c.mode;
        // The wait never runs much past its limit.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(c.limitMs + 1000));
        if (c.loadedAfter != NotChecked) { EXPECT_EQ(isLoaded(c.path), c.loadedAfter == Yes) << c.mode; }
    }
}

}  // namespace
