// The three files: each opens with its own password only and holds its tables with the declared
// types the record-set layer maps.
#include "library_files.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace libtest;

namespace {

TEST(Files, OpenWithTheirPasswordAndNoOther)
{
    const LibraryFileName files[] = {kFile1, kFile2, kFile3};
    for (const LibraryFileName& f : files) {
        const QString path = QDir(sampleLibrary()).filePath(f.file);
        EXPECT_FALSE(readable(path, {})) << f.file.toStdString() << " readable without a key";
        EXPECT_FALSE(readable(path, f.password.toUpper()));
        for (const LibraryFileName& other : files)
            EXPECT_EQ(readable(path, other.password), other.password == f.password)
                << f.file.toStdString() << " with " << other.password.toStdString();
    }
}

TEST(Files, TablesHoldTheColumnsWithTheirDeclaredTypes)
{
    const struct { LibraryFileName file; QString table, columns; } cases[] = {
        {kFile1, "Kerala", "id:INTEGER name:TEXT SecDesc:TEXT type:TEXT ChapterNo:INTEGER fname:LONGBINARY"},
        {kFile1, "Keralafields",
         "ID:INTEGER ActSection:TEXT VatJudgmentSection:TEXT VatJudgmentCitation:TEXT VatJudgmentSubject:TEXT "
         "RJudjmentSection:TEXT RJudgmentCitation:TEXT RJudgmentSubject:TEXT CircularNumber:TEXT CircularSection:TEXT "
         "CircularSubject:TEXT NotificationNumber:TEXT NotifcaionSection:TEXT NotificationSubject:TEXT"},
        {kFile1, "Globalvat", "name:TEXT type:TEXT fname:LONGBINARY"},
        {kFile2, "Globalvatse", "name:TEXT type:TEXT fname:LONGBINARY"},
        {kFile3, "Allshedule", "ID:INTEGER Schname:TEXT Stid:TEXT fname:LONGBINARY"},
        {kFile3, "CAPractice", "ID:INTEGER name:TEXT Type:TEXT Weight:DOUBLE fname:LONGBINARY"},
    };
    for (const auto& c : cases) {
        QStringList columns;
        for (const QVariantList& row : query(sampleLibrary(), c.file, "PRAGMA table_info(" + c.table + ")"))
            columns << row[1].toString() + ':' + row[2].toString();
        EXPECT_EQ(columns.join(' '), c.columns);
        // Text compares without regard to case, as the program's queries expect.
        const QString sql = query(sampleLibrary(), c.file, "SELECT sql FROM sqlite_master WHERE name = ?", {c.table})[0][0].toString();
        EXPECT_EQ(sql.count(" TEXT COLLATE NOCASE"), c.columns.count(":TEXT")) << sql.toStdString();
        EXPECT_FALSE(sql.contains("UNIQUE", Qt::CaseInsensitive));
    }
}

TEST(Files, DocumentNamesAreFoundByIndexNotByScanning)
{
    // The list page looks a name up at every key typed, in a table of any size.
    for (const char* sql : {"select fname from KERALA where name='1-2' and type='Act'",
                            "select fname from Kerala where name='SRO 82/2006'"}) {
        QString plan;
        for (const QVariantList& row : query(sampleLibrary(), kFile1, QStringLiteral("EXPLAIN QUERY PLAN ") + sql))
            plan += row.last().toString() + '\n';
        EXPECT_TRUE(plan.contains("USING INDEX Kerala_name")) << plan.toStdString();
    }
}

}  // namespace
