// A library file damaged while the program runs: the box names the file.
#include "faults.h"
#include "shell/my_mod.h"

namespace {

TEST(LibraryFaults, DamagedFileIsNamed) {
    QTemporaryDir dir;
    for (const char* f : {"0909214SD01.mdb", "1309214SD02.mdb", "1509214SD03.mdb"})
        ASSERT_TRUE(QFile::copy(QStringLiteral(VORLAN_PROGRAM_DIR "/") + f, dir.filePath(f))) << f;
    basic::SetAppPath(dir.path());
    shell::InitLibraryStore();
    const QString file = shell::getConnectionForTable("Kerala").FilePath();
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.seek(8192));
    damaged.write(QByteArray(int(damaged.size()) - 8192, 'x'));
    damaged.close();
    forms::MsgBoxRecorder boxes;
    EXPECT_TRUE(shell::getRecordSet("SELECT * FROM Kerala", "Kerala").isNothing());
    EXPECT_TRUE(boxes.boxes().at(0).text.startsWith("The library file\n" + file + "\nis damaged (")) << boxes.boxes().at(0).text.toStdString();
    shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
}

}  // namespace
