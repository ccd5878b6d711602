// The three files: each opens with its own password only, names are found by index, and each document
// is held as the bytes of its file.
#include "library_files.h"

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

TEST(Files, DocumentsKeepTheBytesOfTheirFiles)
{
    const auto rows = query(sampleLibrary(), kFile1, "SELECT fname FROM Kerala WHERE name = '1'");
    QFile file(kSource + "/documents/act-section-1.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].toByteArray(), file.readAll());
}

}  // namespace
