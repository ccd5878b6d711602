// A built library holds each document as the bytes of its file.
#include "library_files.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace libtest;

namespace {

TEST(Rows, DocumentsKeepTheBytesOfTheirFiles)
{
    const auto rows = query(sampleLibrary(), kFile1, "SELECT fname FROM Kerala WHERE name = '1'");
    QFile file(kSource + "/documents/act-section-1.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].toByteArray(), file.readAll());
}

}  // namespace
