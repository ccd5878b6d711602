#include "library_fixture.h"

#include "platform/forms/msgbox.h"

class MyMod : public LibraryFixture {};

TEST_F(MyMod, CataloguesPlaceEachTableInItsFile) {
    const struct { const char* table; int file; } cases[] = {
        {"Kerala", 1}, {"KERALA", 1}, {"keralafields", 1}, {"Globalvat", 1}, {"Globalvatse", 2},
        {"Allshedule", 3}, {"capractice", 3}, {"NoSuchTable", 0},
    };
    const store::Connection files[] = {store::Connection::nothing(), shell::cnLibrary1, shell::cnLibrary2,
                                       shell::cnLibrary3};
    for (const auto& c : cases) {
        const store::Connection cn = shell::getConnectionForTable(c.table);
        if (c.file == 0) EXPECT_TRUE(cn.isNothing()) << c.table;
        else EXPECT_TRUE(cn == files[c.file]) << c.table;
    }
    EXPECT_TRUE(shell::strLibraryCn2.endsWith("Uid=admin;Pwd=lantern"));
    EXPECT_TRUE(shell::strLibraryCn1.endsWith("\\0909214SD01.mdb;Uid=admin;Pwd=bergamot;"));
}

TEST_F(MyMod, FailuresShowTheirBoxAndGiveNothing) {
    forms::MsgBoxRecorder boxes;
    EXPECT_TRUE(shell::getRecordSet("SELECT * FROM NoSuchTable", "NoSuchTable").isNothing());
    EXPECT_TRUE(shell::getRecordSetByCn("SELECT * FROM NoSuchTable", shell::cnLibrary1).isNothing());
    EXPECT_FALSE(shell::IsQueryReturnsNullCnStr("SELECT fname FROM Kerala WHERE name='O'Neil'", shell::strLibraryCn1));
    ASSERT_EQ(boxes.boxes().size(), 3u);
    const char* prefixes[] = {"MyMOD.getRecordSet : ", "MyMOD.getRecordSetByCn : ", "MyMOD.IsQueryReturnsNullCnStr : "};
    for (size_t i = 0; i < 3; ++i) {
        const forms::RecordedBox& b = boxes.boxes()[i];
        EXPECT_TRUE(b.text.startsWith(prefixes[i]) && b.text.contains(" | No: ")) << b.text.toStdString();
        EXPECT_EQ(b.style, forms::vbExclamation);
        EXPECT_EQ(b.title, "_IN_DEBUG");
    }
}

TEST_F(MyMod, WrongPasswordOrMissingFileStopsTheStart) {
    QFile::remove(dir.filePath("1309214SD02.mdb"));
    EXPECT_NE(basic::resume([] { shell::InitLibraryStore(); }).number(), 0);
    QFile::copy(dir.filePath("1509214SD03.mdb"), dir.filePath("1309214SD02.mdb"));  // keyed with another password
    EXPECT_NE(basic::resume([] { shell::InitLibraryStore(); }).number(), 0);
}
