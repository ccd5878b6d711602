#include "windows.h"

#include "housekeeping/frm_back_up_restore.h"
#include "library/central.h"
#include "library/frm_kerala.h"
#include "library/frm_text_search.h"
#include "library/keralaforms.h"
#include "library/my_documents_window.h"
#include "library/reader.h"
#include "library/reader_bookmarks.h"
#include "platform/forms/text_editor_window.h"
#include "platform/forms/window_registry.h"
#include "returns/book_chooser.h"
#include "returns/frm_normal.h"
#include "returns/frm_select.h"
#include "shell/main_window.h"
#include "shell/text_viewers.h"

namespace app {

void defineWindows() {
    // The reader's additions enter each window by one call: the windows themselves stay as they are.
    forms::define(QStringLiteral("main"), [] {
        auto* w = new shell::main;
        library::addReaderTools(w->Toolbar2);
        return w;
    });
    forms::define(QStringLiteral("frmkerala"), [] {
        auto* w = new library::frmkerala;
        library::addReaderTools(w->Toolbar2);
        return w;
    });
    forms::define(QStringLiteral("keralaforms"), [] {
        auto* w = new library::keralaforms;
        library::attachReader(w);
        return w;
    });
    forms::define(QStringLiteral("BookmarksWindow"), [] { return new library::BookmarksWindow; });
    forms::define(QStringLiteral("MyDocumentsWindow"), [] { return new library::MyDocumentsWindow; });
    forms::define(QStringLiteral("GlobalDisplay"), [] { return new library::GlobalDisplay; });
    forms::define(QStringLiteral("central"), [] { return new library::central; });
    forms::define(QStringLiteral("frmTextSearch"), [] { return new library::frmTextSearch; });
    forms::define(QStringLiteral("frmBackUpRestore"), [] { return new housekeeping::frmBackUpRestore; });
    forms::define(QStringLiteral("frmNormal"), [] { return new returns::frmNormal; });
    forms::define(QStringLiteral("frmSelect"), [] { return new returns::frmSelect; });
    forms::define(QStringLiteral("frmEFiling"), [] { return new returns::frmEFiling; });
    forms::define(QStringLiteral("frmDirectToForm"), [] { return new returns::frmDirectToForm; });
    forms::define(QStringLiteral("BookChooser"), [] { return new returns::BookChooser; });
    forms::define(QStringLiteral("help"), [] { return new shell::help; });
    forms::define(QStringLiteral("ack"), [] { return new shell::ack; });
    forms::define(QStringLiteral("Dealers"), [] { return new shell::Dealers; });
    forms::define(QStringLiteral("frmca"), [] { return new shell::frmca; });
    forms::define(QStringLiteral("release"), [] { return new shell::release; });
    forms::define(QStringLiteral("frmalied"), [] { return new shell::frmalied; });
    forms::define(QStringLiteral("formsform"), [] { return new shell::formsform; });
    forms::define(QStringLiteral("frmaliedcommon"), [] { return new shell::frmaliedcommon; });
    forms::define(QStringLiteral("Notepad"), [] { return new forms::TextEditorWindow; });
}

}  // namespace app
