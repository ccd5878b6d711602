#pragma once
// The sample library opened by MyMOD in a program folder of the test's own, with the document window and
// a stand-in for the state browser registered as app/ registers them; the windows and controls the
// library's tests drive.
#include "library/frm_global_sections.h"
#include "library/frm_kerala.h"
#include "library/keralaforms.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/status_bar.h"
#include "platform/forms/toolbar.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "shell/library_fixture.h"
#include "support/screens.h"

#include <QTest>

class LibraryWindows : public LibraryFixture {
protected:
    void SetUp() override {
        LibraryFixture::SetUp();
        forms::reset();
        forms::define(QStringLiteral("keralaforms"), [] { return new library::keralaforms; });
        forms::define(QStringLiteral("frmkerala"), [] { return new QWidget; });
    }
    void TearDown() override {
        forms::reset();
        LibraryFixture::TearDown();
    }
    library::keralaforms* kf() { return forms::get<library::keralaforms>(QStringLiteral("keralaforms")); }
};
