// The file-system object: its run-time errors, and paths written the system's way.
#include "platform/system/file_system.h"

#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/system/drives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

TEST(FileSystemObject, RaisesTheOldErrors) {
    QTemporaryDir dir;
    basic::SetAppPath(dir.path());
    QFile f(dir.filePath("a.mdb"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("abc");
    f.close();
    const sys::FileSystemObject fso;
    struct {
        const char* name;
        std::function<void()> call;
        int number;
    } cases[] = {
        {"missing source", [&] { fso.CopyFile("b.mdb", "c.mdb"); }, 53},
        {"missing folder", [&] { fso.CopyFile("a.mdb", "none\\c.mdb"); }, 76},
        {"kept file", [&] { fso.CopyFile("a.mdb", "a.mdb", false); }, 58},
        {"copy by relative path", [&] { fso.CopyFile("a.mdb", "sub\\c.mdb"); }, 0},
        {"folder there", [&] { fso.CreateFolder(dir.path()); }, 58},
        {"parent missing", [&] { fso.CreateFolder("x\\y"); }, 76},
    };
    QDir(dir.path()).mkdir("sub");
    for (const auto& c : cases) EXPECT_EQ(basic::resume(c.call).number(), c.number) << c.name;
    EXPECT_TRUE(fso.FolderExists("sub"));
    EXPECT_FALSE(fso.FolderExists("sub\\c.mdb"));
    QFile copy(dir.filePath("sub/c.mdb"));
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), "abc");
}

TEST(Drives, MountPointsEndInASlashOnceEach) {
    const QStringList roots = sys::mountedDriveRoots();
    for (const QString& r : roots) EXPECT_TRUE(r.endsWith('/')) << r.toStdString();
    EXPECT_EQ(roots.size(), QSet<QString>(roots.begin(), roots.end()).size());
}

}  // namespace
