#pragma once
// A program folder of its own for each test, holding a copy of the sample library, opened by MyMOD.
#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"
#include "support/printers.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

class LibraryFixture : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        for (const char* f : {"0909214SD01.mdb", "1309214SD02.mdb", "1509214SD03.mdb"})
            ASSERT_TRUE(QFile::copy(QStringLiteral(VORLAN_PROGRAM_DIR "/") + f, dir.filePath(f))) << f;
        basic::SetAppPath(dir.path());
        shell::InitLibraryStore();
    }
    void TearDown() override {
        forms::reset();   // the windows first: they hold record sets on the library
        shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
        basic::SetAppPath(QString());
    }
    QTemporaryDir dir;
};

