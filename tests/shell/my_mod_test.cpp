#include "library_fixture.h"

class MyMod : public LibraryFixture {};

TEST_F(MyMod, CatalogueIgnoresCaseAndFailuresShowTheirBox) {
    // The catalogue finds a table's file whatever the case (the browser's walk pins each table's file);
    // a table no file holds gives nothing and a box.
    EXPECT_TRUE(shell::getConnectionForTable("capractice") == shell::cnLibrary3);
    EXPECT_TRUE(shell::getConnectionForTable("NoSuchTable").isNothing());
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

// The start opens the three files read-only, or stops at a file that is missing or keyed with another
// password; opening them ahead on threads raises the same error at the same place.
TEST_F(MyMod, StartOpensTheLibraryReadOnlyOrStops) {
    const QString second = dir.filePath("1309214SD02.mdb"), kept = dir.filePath("kept.mdb");
    ASSERT_TRUE(QFile::copy(second, kept));
    for (const char* fault : {"", "missing", "other password"}) {
        QFile::remove(second);
        if (fault != std::string("missing")) QFile::copy(fault[0] ? dir.filePath("1509214SD03.mdb") : kept, second);
        QString errors[2];
        for (int ahead : {0, 1}) {
            shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
            if (ahead) shell::OpenLibraryAhead();
            errors[ahead] = basic::resume([] { shell::InitLibraryStore(); }).description();
            EXPECT_EQ(errors[ahead].isEmpty(), !fault[0]) << fault;
            EXPECT_EQ(shell::cnLibrary2.State(), fault[0] ? 0 : 1) << fault;
        }
        EXPECT_EQ(errors[0], errors[1]) << fault;
        if (fault[0]) continue;
        for (const store::Connection& cn : {shell::cnLibrary1, shell::cnLibrary2, shell::cnLibrary3})
            EXPECT_EQ(basic::resume([&] { store::Connection(cn).Execute("CREATE TABLE T (x)"); }).description(),
                      QStringLiteral("attempt to write a readonly database"));
    }
}
