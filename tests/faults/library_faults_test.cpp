// A library file damaged while the program runs: the box names the file.
#include "faults.h"
#include "shell/library_fixture.h"

namespace {

using LibraryFaults = LibraryFixture;

TEST_F(LibraryFaults, DamagedFileIsNamed) {
    const QString file = shell::getConnectionForTable("Kerala").FilePath();
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.seek(8192));
    damaged.write(QByteArray(int(damaged.size()) - 8192, 'x'));
    damaged.close();
    forms::MsgBoxRecorder boxes;
    EXPECT_TRUE(shell::getRecordSet("SELECT * FROM Kerala", "Kerala").isNothing());
    EXPECT_TRUE(boxes.boxes().at(0).text.startsWith("The library file\n" + file + "\nis damaged (")) << boxes.boxes().at(0).text.toStdString();
}

}  // namespace
