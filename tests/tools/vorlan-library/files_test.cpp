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
        const QString plan = query(sampleLibrary(), kFile1, QStringLiteral("EXPLAIN QUERY PLAN ") + sql).join('\n');
        EXPECT_TRUE(plan.contains("USING INDEX Kerala_name")) << plan.toStdString();
    }
}

TEST(Files, DocumentsKeepTheBytesOfTheirFiles)
{
    QFile file(kSource + "/documents/act-section-1.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(query(sampleLibrary(), kFile1, "SELECT hex(fname) FROM Kerala WHERE name = '1'"),
              QStringList{QString::fromLatin1(file.readAll().toHex().toUpper())});
}

}  // namespace
