// The box of a start whose library cannot be opened: it names the files that fail and the folder they were
// looked for in, and no file that opens.
#include "library_fixture.h"
#include "support/case_name.h"

#include "shell/library_start.h"

namespace {

struct StartFault {
    const char* name;
    QStringList missing, damaged;
    const char* names;  // as the box names them
};

void PrintTo(const StartFault& c, std::ostream* os) { *os << c.name; }

class LibraryStart : public ::testing::TestWithParam<StartFault> {};

TEST_P(LibraryStart, NamesTheFilesThatFailAndTheirFolder) {
    const StartFault& c = GetParam();
    QTemporaryDir dir;
    for (const char* f : {"0909214SD01.mdb", "1309214SD02.mdb", "1509214SD03.mdb"})
        ASSERT_TRUE(QFile::copy(QStringLiteral(VORLAN_PROGRAM_DIR "/") + f, dir.filePath(f)));
    for (const QString& f : c.missing) QFile::remove(dir.filePath(f));
    for (const QString& f : c.damaged) {
        QFile file(dir.filePath(f));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.write(QByteArray(4096, 'x'));
    }
    const QString text = shell::LibraryStartFault(dir.path(), QStringLiteral("raised"));
    EXPECT_TRUE(text.startsWith(QStringLiteral("Vorlan cannot open its library ") + QLatin1String(c.names) +
                                QStringLiteral("\nin the folder ") + dir.path() + QStringLiteral("\n\n")))
        << text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Files, LibraryStart,
    ::testing::Values(StartFault{"Second", {"1309214SD02.mdb"}, {}, "file 1309214SD02.mdb"},
                      StartFault{"FirstAndThird", {"0909214SD01.mdb", "1509214SD03.mdb"}, {},
                                 "files 0909214SD01.mdb, 1509214SD03.mdb"},
                      StartFault{"Damaged", {}, {"1309214SD02.mdb"}, "file 1309214SD02.mdb"}),
    CaseName());

}  // namespace
