#include "platform/system/register_server.h"
#include "support/case_name.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <chrono>

namespace {

bool isLoaded(const QString& path) {
    void* handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

enum class Loaded { NotChecked, Yes, No };
struct ServerCase { const char* name; QString path; int mode, limitMs, status; Loaded loadedAfter; };

const ServerCase kServers[] = {
    {"NoPath", QString(), 1, 200, 0, Loaded::NotChecked},
    {"MissingFile", QStringLiteral("/nonexistent/crystl32.ocx"), 1, 200, 1, Loaded::NotChecked},
    {"NotALibrary", QStringLiteral(VORLAN_SOURCE_DIR "/CMakeLists.txt"), 1, 200, 1, Loaded::NotChecked},
    {"NoSuchEntry", QStringLiteral("libm.so.6"), 1, 200, 2, Loaded::NotChecked},
    {"UnknownMode", QStringLiteral(TEST_SERVER), 3, 200, 2, Loaded::No},
    {"Registered", QStringLiteral(TEST_SERVER), 1, 200, 4, Loaded::No},
    {"Unregistered", QStringLiteral(TEST_SERVER), 2, 3000, 5, Loaded::No},
    {"TimedOutLeftLoaded", QStringLiteral(TEST_SERVER_HELD), 2, 200, 3, Loaded::Yes},
};

class RegisterServerFile : public ::testing::TestWithParam<ServerCase> {};

TEST_P(RegisterServerFile, GivesItsStatusWithinItsLimit) {
    const ServerCase& c = GetParam();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(sys::RegisterServerFile(c.path, c.mode, c.limitMs), c.status);
    // The wait never runs much past its limit.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(c.limitMs + 1000));
    if (c.loadedAfter != Loaded::NotChecked) { EXPECT_EQ(isLoaded(c.path), c.loadedAfter == Loaded::Yes); }
}

INSTANTIATE_TEST_SUITE_P(Files, RegisterServerFile, ::testing::ValuesIn(kServers), CaseName());

}  // namespace
