// A button's store work meeting a fault of the file: another program's lock held past the busy wait, a
// file that may not be written, a damaged file. Each press ends in its button's failure box, worded by
// the kind of fault, the bills stay on the screen, and the store keeps what it held.
#include "faults.h"
#include "support/case_name.h"

namespace {

enum class Fault { Locked, ReadOnly, Damaged };

struct Press {
    const char* name;
    void (returns::frmNormal::*button)();
    Fault fault;
    const char* title;
    const char* says;
};

class StoreWorkFaults : public ::testing::TestWithParam<Press> {};


TEST_P(StoreWorkFaults, BoxNamesTheFaultAndNothingChanges) {
    const Press& press = GetParam();
    SmallDisk disk;
    const bool root = ::geteuid() == 0;
    if (press.fault == Fault::ReadOnly && root && !disk.mounted) GTEST_SKIP() << "root may write anything but a read-only mount";
    const QString file = disk.path() + "/nwForm10DB.mdb";
    const QString held = "SELECT group_concat(Party) || '|' || (SELECT count(*) FROM tblMPage3) FROM tblPurchase1";
    Window win(disk.path());
    win.put({"Stored"});
    ASSERT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY");
    const QString before = query(file, held).value(0);
    win.put({"Typed"});

    std::unique_ptr<Child> locker;
    if (press.fault == Fault::Locked) {
        locker = std::make_unique<Child>(QStringList{"lock", file, "2600"});
        ASSERT_TRUE(locker->waitFor("locked"));
    } else {
        Window::letGo();   // the next press opens the file as it now is
        if (press.fault == Fault::Damaged) {
            QFile damaged(file);
            ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.seek(4096));
            damaged.write(QByteArray(int(damaged.size()) - 4096, 'x'));
        } else if (disk.mounted) {
            ASSERT_EQ(::mount(nullptr, QFile::encodeName(disk.path()).constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        } else {
            ::chmod(QFile::encodeName(file).constData(), 0444);
            ::chmod(QFile::encodeName(disk.path()).constData(), 0555);
        }
    }
    win.boxes.clear();
    (win.w.get()->*press.button)();
    ASSERT_FALSE(win.boxes.boxes().empty());
    const forms::RecordedBox box = win.boxes.boxes().back();
    EXPECT_EQ(box.title, press.title);
    EXPECT_TRUE(box.text.contains(press.says)) << box.text.toStdString();
    EXPECT_FALSE(box.text.startsWith("Run-time error")) << box.text.toStdString();
    EXPECT_EQ(win.w->fg1->TextMatrix(1, 2), "Typed");
    EXPECT_EQ(win.w->txtTotal->text(), "10.00");
    if (locker) {
        EXPECT_EQ(locker->finish(), 0);
    }
    if (press.fault != Fault::Damaged) {
        EXPECT_EQ(query(file, held).value(0), before);
    }
}

const char* const kLocked = "another program is using the return file";
const char* const kReadOnly = "may not be written";
const char* const kDamaged = "is damaged (";

INSTANTIATE_TEST_SUITE_P(
    Buttons, StoreWorkFaults,
    ::testing::Values(Press{"AddLocked", &returns::frmNormal::cmdAdd_Click, Fault::Locked, "Not saved", kLocked},
                      Press{"DeleteLocked", &returns::frmNormal::cmdDelete_Click, Fault::Locked, "Not deleted", kLocked},
                      Press{"ExportLocked", &returns::frmNormal::cmdExport_Click, Fault::Locked, "Not exported", kLocked},
                      Press{"AddReadOnly", &returns::frmNormal::cmdAdd_Click, Fault::ReadOnly, "Not saved", kReadOnly},
                      Press{"DeleteReadOnly", &returns::frmNormal::cmdDelete_Click, Fault::ReadOnly, "Not deleted", kReadOnly},
                      Press{"ExportReadOnly", &returns::frmNormal::cmdExport_Click, Fault::ReadOnly, "Not exported", kReadOnly},
                      Press{"AddDamaged", &returns::frmNormal::cmdAdd_Click, Fault::Damaged, "Not saved", kDamaged},
                      Press{"DeleteDamaged", &returns::frmNormal::cmdDelete_Click, Fault::Damaged, "Not deleted", kDamaged},
                      Press{"ExportDamaged", &returns::frmNormal::cmdExport_Click, Fault::Damaged, "Not exported", kDamaged}),
    CaseName());

}  // namespace
