#include "platform/system/register_server.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <chrono>

namespace {

enum class Loaded { NotChecked, Yes, No };

struct RegisterCase {
    const char* name;
    QString path;
    int mode;
    int limitMs;
    std::int32_t status;
    Loaded loadedAfter;
};

bool isLoaded(const QString& path) {
    void* handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

class RegisterServerFileTest : public testing::TestWithParam<RegisterCase> {};

TEST_P(RegisterServerFileTest, GivesItsStatus) {
    const RegisterCase& c = GetParam();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(sys::RegisterServerFile(c.path, c.mode, c.limitMs), c.status);
    const auto elapsed = std::chrono::steady_clock::now() - start;
    // The wait never runs much past its limit.
    EXPECT_LT(elapsed, std::chrono::milliseconds(c.limitMs + 1000));
    if (c.loadedAfter != Loaded::NotChecked) {
        EXPECT_EQ(isLoaded(c.path), c.loadedAfter == Loaded::Yes);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Codes, RegisterServerFileTest,
    testing::Values(
        RegisterCase{"EmptyPath", QString(), 1, 200, 0, Loaded::NotChecked},
        RegisterCase{"MissingFile", QStringLiteral("/nonexistent/crystl32.ocx"), 1, 200, 1, Loaded::NotChecked},
        RegisterCase{"NotALibrary", QStringLiteral(VORLAN_SOURCE_DIR "/CMakeLists.txt"), 1, 200, 1,
                     Loaded::NotChecked},
        RegisterCase{"NoSuchEntry", QStringLiteral("libm.so.6"), 1, 200, 2, Loaded::NotChecked},
        RegisterCase{"ModeThree", QStringLiteral(TEST_SERVER), 3, 200, 2, Loaded::No},
        RegisterCase{"RegisterEnds", QStringLiteral(TEST_SERVER), 1, 200, 4, Loaded::No},
        RegisterCase{"UnregisterEnds", QStringLiteral(TEST_SERVER), 2, 3000, 5, Loaded::No},
        RegisterCase{"TimeOutLeavesItLoaded", QStringLiteral(TEST_SERVER_HELD), 2, 200, 3, Loaded::Yes}),
    [](const testing::TestParamInfo<RegisterCase>& info) { return std::string(info.param.name); });

}  // namespace
