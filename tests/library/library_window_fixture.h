#pragma once
// The sample library opened by MyMOD in a program folder of the test's own, with the document window and
// a stand-in for the state browser registered as app/ registers them.
#include "library/frm_global_sections.h"
#include "library/keralaforms.h"
#include "platform/basic/app_path.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"
#include "support/printers.h"
#include "support/qt_app.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

class LibraryWindows : public ::testing::Test {
protected:
    void SetUp() override {
        ensureApp();
        ASSERT_TRUE(dir.isValid());
        for (const char* f : {"0909214SD01.mdb", "1309214SD02.mdb", "1509214SD03.mdb"})
            ASSERT_TRUE(QFile::copy(QStringLiteral(VORLAN_PROGRAM_DIR "/") + f, dir.filePath(f))) << f;
        basic::SetAppPath(dir.path());
        shell::InitLibraryStore();
        forms::reset();
        forms::define(QStringLiteral("keralaforms"), [] { return new library::keralaforms; });
        forms::define(QStringLiteral("frmkerala"), [] { return new QWidget; });
    }
    void TearDown() override {
        forms::reset();
        shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
        basic::SetAppPath(QString());
    }
    library::keralaforms* kf() { return forms::get<library::keralaforms>(QStringLiteral("keralaforms")); }

    QTemporaryDir dir;
};
