// The boxes typed on Form No. 10 saved while the return file meets a fault: another program's lock held
// past the busy wait, a file that may not be written, a full disk. The box names the fault, what was
// typed stays on the form to be saved again, and the book holds nothing of the save.
#include "faults.h"
#include "returns/form_ten_view.h"
#include "support/case_name.h"

#include <QLineEdit>

namespace {

enum class Fault { Locked, ReadOnly, DiskFull };

struct Saving {
    const char* name;
    Fault fault;
    const char* says;
};

class FormTenFaults : public ::testing::TestWithParam<Saving> {};

TEST_P(FormTenFaults, NothingKeptAndTheTypedBoxesStay) {
    SmallDisk disk;
    if (GetParam().fault == Fault::ReadOnly && ::geteuid() == 0 && !disk.mounted) GTEST_SKIP() << "root may write anything but a read-only mount";
    const QString file = disk.path() + "/nwForm10DB.mdb";
    basic::SetAppPath(disk.path());
    basic::Clock::set(QDate(2026, 3, 15));
    forms::MsgBoxRecorder boxes;
    auto form = std::make_unique<returns::FormTenWindow>();
    form->showMonth("March");
    QLineEdit* branches = form->sheet->lineEdit("dpBranches");
    QTest::keyClicks(branches, "Alappuzha");
    QTest::keyClicks(form->sheet->lineEdit("EN1"), "Y");

    std::unique_ptr<Child> locker;
    if (GetParam().fault == Fault::Locked) {
        locker = std::make_unique<Child>(QStringList{"lock", file, "2600"});
        ASSERT_TRUE(locker->waitFor("locked"));
    } else if (GetParam().fault == Fault::DiskFull) {
        disk.fill();
    } else if (disk.mounted) {
        ASSERT_EQ(::mount(nullptr, QFile::encodeName(disk.path()).constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    } else {
        ::chmod(QFile::encodeName(file).constData(), 0444);
        ::chmod(QFile::encodeName(disk.path()).constData(), 0555);
    }
    EXPECT_FALSE(form->save());
    ASSERT_FALSE(boxes.boxes().empty());
    EXPECT_EQ(boxes.boxes().back().title, "Not saved");
    EXPECT_TRUE(boxes.boxes().back().text.contains(GetParam().says)) << boxes.boxes().back().text.toStdString();
    EXPECT_TRUE(boxes.boxes().back().text.contains("still on the form"));
    EXPECT_EQ(branches->text(), "Alappuzha");
    EXPECT_TRUE(form->unsaved());
    if (locker) {
        EXPECT_EQ(locker->finish(), 0);
    }
    disk.empty();
    EXPECT_EQ(query(file, "SELECT count(*) FROM sqlite_master WHERE name = 'FormTenTyped'"), QStringList{"0"});
    form.reset();
    Window::letGo();
}

INSTANTIATE_TEST_SUITE_P(
    Form, FormTenFaults,
    ::testing::Values(Saving{"Locked", Fault::Locked, "another program is using the return file"},
                      Saving{"ReadOnly", Fault::ReadOnly, "may not be written"},
                      Saving{"DiskFull", Fault::DiskFull, "the disk is full"}),
    CaseName());

}  // namespace
