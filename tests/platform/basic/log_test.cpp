// The log file the user asks for: what the program passes over reaches it, and a file that cannot be
// written is refused with its reason.
#include "platform/basic/log.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

TEST(LogFile, HoldsWhatWasPassedOverOrSaysWhyNot) {
    QTemporaryDir dir;
    EXPECT_FALSE(basic::logToFile(dir.filePath("no such folder/vorlan.log")).isEmpty());
    const QString path = dir.filePath("vorlan.log");
    ASSERT_EQ(basic::logToFile(path), QString());
    basic::ignore(lcStore(), [] { throw basic::typeMismatch(); });
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString written = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(written.contains("vorlan.store: ignored error 13 Type mismatch in ")) << written.toStdString();
    EXPECT_TRUE(written.contains("log_test.cpp:")) << written.toStdString();
}

}  // namespace
