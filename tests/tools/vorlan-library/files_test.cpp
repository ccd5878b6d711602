// The three files: each opens with its own password only, holds its tables with the declared
// types the record-set layer maps, and the command-line tools see the same encryption.
#include "library_files.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace libtest;

namespace {

const LibraryFileName kFiles[] = {kFile1, kFile2, kFile3};

class Encryption : public ::testing::TestWithParam<LibraryFileName> {};

TEST_P(Encryption, OpensWithItsPasswordAndNoOther)
{
    const QString path = QDir(sampleLibrary()).filePath(GetParam().file);
    EXPECT_TRUE(readable(path, GetParam().password));
    EXPECT_FALSE(readable(path, {})) << "readable without a key: not encrypted";
    for (const LibraryFileName& other : kFiles) {
        if (other.password != GetParam().password) {
            EXPECT_FALSE(readable(path, other.password)) << other.password.toStdString();
        }
    }
    EXPECT_FALSE(readable(path, GetParam().password.toUpper()));
}

INSTANTIATE_TEST_SUITE_P(LibraryFiles, Encryption, ::testing::ValuesIn(kFiles));

struct TableCase {
    LibraryFileName file;
    QString table;
    QString columns;  // name:declared type, in order
};

void PrintTo(const TableCase& c, std::ostream* os) { *os << c.table.toStdString(); }

class Tables : public ::testing::TestWithParam<TableCase> {};

TEST_P(Tables, HoldTheColumnsWithTheirDeclaredTypes)
{
    const TableCase& c = GetParam();
    const QString path = QDir(sampleLibrary()).filePath(c.file.file);
    QStringList columns;
    for (const QVariantList& row : query(path, c.file.password, "PRAGMA table_info(" + c.table + ")"))
        columns << row[1].toString() + ':' + row[2].toString();
    EXPECT_EQ(columns.join(' '), c.columns);

    // Text compares without regard to case, as the program's queries expect.
    const QString sql = query(path, c.file.password, "SELECT sql FROM sqlite_master WHERE name = ?", {c.table})[0][0].toString();
    EXPECT_EQ(sql.count(" TEXT COLLATE NOCASE"), c.columns.count(":TEXT")) << sql.toStdString();
    EXPECT_FALSE(sql.contains("UNIQUE", Qt::CaseInsensitive));
}

INSTANTIATE_TEST_SUITE_P(
    LibraryFiles, Tables,
    ::testing::Values(
        TableCase{kFile1, "Kerala", "id:INTEGER name:TEXT SecDesc:TEXT type:TEXT ChapterNo:INTEGER fname:LONGBINARY"},
        TableCase{kFile1, "Keralafields",
                  "ID:INTEGER ActSection:TEXT VatJudgmentSection:TEXT VatJudgmentCitation:TEXT "
                  "VatJudgmentSubject:TEXT RJudjmentSection:TEXT RJudgmentCitation:TEXT RJudgmentSubject:TEXT "
                  "CircularNumber:TEXT CircularSection:TEXT CircularSubject:TEXT NotificationNumber:TEXT "
                  "NotifcaionSection:TEXT NotificationSubject:TEXT"},
        TableCase{kFile1, "Globalvat", "name:TEXT type:TEXT fname:LONGBINARY"},
        TableCase{kFile2, "Globalvatse", "name:TEXT type:TEXT fname:LONGBINARY"},
        TableCase{kFile3, "Allshedule", "ID:INTEGER Schname:TEXT Stid:TEXT fname:LONGBINARY"},
        TableCase{kFile3, "CAPractice", "ID:INTEGER name:TEXT Type:TEXT Weight:DOUBLE fname:LONGBINARY"}));

// What a person at the shell sees: sqlcipher with the key reads the file, plain sqlite3 cannot.
TEST(Files, CommandLineToolsSeeTheEncryption)
{
    const QString sqlcipher = QStandardPaths::findExecutable("sqlcipher");
    const QString sqlite3 = QStandardPaths::findExecutable("sqlite3");
    if (sqlcipher.isEmpty() || sqlite3.isEmpty())
        GTEST_SKIP() << "sqlcipher or sqlite3 command not installed";
    const QString path = QDir(sampleLibrary()).filePath(kFile1.file);
    auto run = [&](const QString& program, const QByteArray& input) {
        QProcess p;
        p.start(program, {path});
        p.write(input);
        p.closeWriteChannel();
        p.waitForFinished(30000);
        return QString::fromUtf8(p.readAllStandardOutput() + p.readAllStandardError()).trimmed();
    };
    const QString count = QString::number(query(path, kFile1.password, "SELECT count(*) FROM Kerala")[0][0].toInt());
    EXPECT_EQ(run(sqlcipher, "PRAGMA key = 'bergamot';\nSELECT count(*) FROM Kerala;\n").split('\n').last(), count);
    EXPECT_TRUE(run(sqlite3, "SELECT count(*) FROM Kerala;\n").contains("not a database"));
    EXPECT_TRUE(run(sqlcipher, "PRAGMA key = 'lantern';\nSELECT count(*) FROM Kerala;\n").contains("not a database"));
}

}  // namespace
