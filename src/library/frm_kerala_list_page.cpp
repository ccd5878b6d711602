// frmkerala's list page: the section list, the search box that jumps through it as the user types, the
// word search that narrows it, and the click that points the document window at the chosen entry.
#include "library/frm_kerala.h"

#include <QEvent>
#include <QKeyEvent>

#include "library/keralaforms.h"
#include "library/log.h"
#include "platform/basic/variant.h"
#include "platform/forms/errors.h"
#include "platform/forms/event_tap.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/status_bar.h"
#include "platform/forms/window_registry.h"
#include "shell/cls_service.h"
#include "shell/my_mod.h"
#include "shell/word_search.h"

namespace library {

namespace {

const char kSelectHint[] =
    "Select the required item from list box by search or manual and press Go button to display the data";
const char kSearchHint[] =
    "Type the required words with space on priority in the search box and click this Button.To restore the "
    "datas, delete the search words and again press the button.";

// Runs each statement with errors ignored and keeps the last error, as a routine that resumes past its
// errors leaves it behind for its own end.
struct ErrorsIgnored {
    basic::RuntimeError last;
    template <class F>
    void operator()(F&& statement, std::source_location where = std::source_location::current()) {
        basic::RuntimeError e = ignore(std::forward<F>(statement), where);
        if (e.number() != 0) last = e;
    }
};

keralaforms* documentWindow() { return forms::get<keralaforms>(QStringLiteral("keralaforms")); }

// Points keralaforms at a row; each of the four statements on its own, so a failed refresh still
// binds "fname" and a broken statement leaves the shown document as it was.
void pointDocument(ErrorsIgnored& run, const QString& connect, const QString& sql) {
    keralaforms* kf = nullptr;
    run([&] { kf = documentWindow(); });
    auto with = [&](auto statement) {
        run([&] {
            if (!kf) throw forms::objectNotSet();
            statement(kf);
        });
    };
    with([&](keralaforms* w) { w->MSRDC1->setConnect(connect); });
    with([&](keralaforms* w) { w->MSRDC1->setSQL(sql); });
    with([&](keralaforms* w) { w->MSRDC1->Refresh(); });
    with([&](keralaforms* w) { w->OLE1->setDataField(QStringLiteral("fname")); });
}

// The document name of the chosen entry: its stored value is read again by id, and the name is what
// stands behind the first hyphen (the list itself shows what stands before the last one). Empty
// when no entry is chosen, or the value has no hyphen or ends in its first one.
QString lookupName(ErrorsIgnored& run, forms::ListBox* list) {
    if (list->ListIndex() == -1) return {};
    store::Recordset& rs = shell::rsWordSearch;
    run([&] {
        if (rs.isNothing()) rs = store::Recordset();
        if (rs.State() == 1) rs.Close();
    });
    run([&] {
        rs.Open(QStringLiteral("select ") + shell::wordSearchColumn + QStringLiteral(" from ") + shell::wordSearchTable +
                    QStringLiteral(" where id =") + QString::number(list->ItemData(list->ListIndex())),
                shell::cnLibrary1, store::Recordset::adOpenDynamic, store::Recordset::adLockOptimistic);
    });
    // A failed test is resumed into its branch, as the language does.
    bool hasRow = true;
    run([&] { hasRow = !(rs.Bof() && rs.Eof()); });
    if (!hasRow) return {};
    QString value;
    run([&] { value = basic::CStr(rs.Fields(shell::wordSearchColumn).Value()); });
    const int p = basic::InStr(value, QStringLiteral("-"));
    if (p > 0 && p + 1 <= basic::Len(value)) return basic::Mid(value, p + 1);
    return {};
}

// Points keralaforms at a judgment, in Globalvat when it holds the name, otherwise in Globalvatse.
void pointJudgment(ErrorsIgnored& run, const QString& name) {
    bool inGlobalvat = true;  // a failed test is resumed into its first branch
    run([&] { inGlobalvat = shell::IsNameInGlobalvat(name); });
    if (inGlobalvat)
        pointDocument(run, shell::strLibraryCn1,
                      QStringLiteral("select fname from Globalvat where name='") + name + QStringLiteral("'"));
    else
        pointDocument(run, shell::strLibraryCn2,
                      QStringLiteral("select fname from Globalvatse where name='") + name + QStringLiteral("'"));
}

// Shows the list page with the Go and Back buttons of its category on top of their stacks.
void showListPage(frmkerala* w, QPushButton* go, QPushButton* back, bool focusSearch) {
    w->Frame1->hide();
    w->Frame2->show();
    for (QPushButton* b : {go, back}) {
        b->show();
        b->raise();
    }
    // Tab stops only on the pair in sight, never on the buttons lying under it.
    for (QPushButton* b : w->Frame2->findChildren<QPushButton*>())
        if (b != w->Cmdwordsearch) b->setFocusPolicy(b == go || b == back ? Qt::StrongFocus : Qt::NoFocus);
    for (QWidget* control : std::initializer_list<QWidget*>{w->List1, w->Text1, w->Text3, w->Cmdwordsearch})
        control->show();
    w->Text1->clear();
    if (focusSearch) shell::SafeSetFocus(w->Text3);
}

void finishListPage(frmkerala* w) {
    if (!shell::wordSearchColumn.isEmpty()) w->StatusBar1->Panels(1).setText(QString::fromUtf8(kSelectHint));
    w->Form_Resize();
}

}  // namespace

void frmkerala::wireListPage() {
    forms::wire(List1, &forms::ListBox::Click, this, [this] { List1_Click(); });
    forms::wire(Text3, &QLineEdit::textChanged, this, [this] { Text3_Change(); });
    forms::wire(Cmdwordsearch, &QPushButton::clicked, this, [this] { Cmdwordsearch_Click(); });
    // The search box's focus and keys come as events; the key goes on to the box, never cancelled.
    Text3->installEventFilter(new forms::EventTap(this, [this](QEvent* event) {
        if (event->type() == QEvent::FocusIn) Text3_GotFocus();
        if (event->type() == QEvent::FocusOut) Text3_LostFocus();
        if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
                Text3_KeyPress(13);
            else if (!key->text().isEmpty())
                Text3_KeyPress(key->text().at(0).unicode());
        }
        return false;
    }));
}

// No handler of its own: a failure goes to the run-time error box, as for the tree handlers.
void frmkerala::FillSectionwiseList() {
    List1->Clear();
    if (shell::rsWordSearch.isNothing()) shell::rsWordSearch = store::Recordset();
    if (shell::rsWordSearch.State() == 1) shell::rsWordSearch.Close();
    shell::rsWordSearch.Open(
        QStringLiteral("SELECT Keralafields.ID, Keralafields.ActSection FROM Keralafields WHERE "
                       "(((Keralafields.ActSection) Is Not Null)) ORDER BY Keralafields.ID;"),
        shell::GetFirstLibraryConnection(), store::Recordset::adOpenDynamic, store::Recordset::adLockOptimistic);
    List1->Clear();
    for (store::Recordset& rs = shell::rsWordSearch; !rs.Eof(); rs.MoveNext()) {
        const basic::Variant value = rs.Fields(QStringLiteral("ActSection")).Value();
        if (value.isNull() || basic::CStr(value).isEmpty()) continue;
        List1->AddItem(shell::ListEntryText(basic::CStr(value)));
        List1->setItemData(List1->NewIndex(), static_cast<int>(basic::CLng(rs.Fields(QStringLiteral("ID")).Value())));
    }
    shell::wordSearchTable = QStringLiteral("Keralafields");
    shell::wordSearchColumn = QStringLiteral("ActSection");
    shell::wordSearchOrderBy = QStringLiteral("ActSection");
    showListPage(this, cmdactgo, cmdactback, true);
    finishListPage(this);
}

// "Index" and "FullText": one entry and no word search; only "FullText" gives the search box the focus.
void frmkerala::FillRulesList(const QString& key) {
    const bool fullText = key == QLatin1String("FullText");
    if (!fullText && key != QLatin1String("Index")) return;
    List1->Clear();
    List1->AddItem(fullText ? QStringLiteral("Full Text of Rules") : QStringLiteral("Index to Rules"));
    shell::wordSearchTable.clear();
    shell::wordSearchColumn.clear();
    shell::wordSearchOrderBy.clear();
    showListPage(this, cmdrulego, cmdruleback, fullText);
    finishListPage(this);
}

void frmkerala::List1_Click() {
    ErrorsIgnored run;
    run([&] { Text1->clear(); });
    run([&] { Text1->setText(List1->Text()); });
    const QString& key = CurrentToolbarKey;
    auto quoted = [](const QString& name) { return QStringLiteral("'") + name + QStringLiteral("'"); };

    if (key == QLatin1String("Act")) {
        pointDocument(run, shell::strLibraryCn1,
                      QStringLiteral("select fname from KERALA where name=") + quoted(Text1->text()) +
                          QStringLiteral(" and type='Act'"));
    } else if (key == QLatin1String("rul")) {
        pointDocument(run, shell::strLibraryCn1,
                      QStringLiteral("select fname from KERALA where name=") + quoted(Text1->text()) +
                          QStringLiteral(" and type='Rules'"));
    } else if (key == QLatin1String("circu") || key == QLatin1String("not")) {
        const QString name = lookupName(run, List1);
        if (!name.isEmpty())
            pointDocument(run, shell::strLibraryCn1,
                          QStringLiteral("select fname from Kerala where name=") + quoted(name));
    } else if (key == QLatin1String("jud") || key == QLatin1String("rec")) {
        if (key == QLatin1String("jud")) run([] { documentWindow()->MSRDC1->setConnect(shell::strLibraryCn1); });
        const QString name = lookupName(run, List1);
        if (!name.isEmpty()) pointJudgment(run, name);
    } else if (key == QLatin1String("forms") || key == QLatin1String("Ali") || key == QLatin1String("sch")) {
        pointDocument(run, shell::strLibraryCn1,
                      QStringLiteral("select fname from KERALA where name=") + quoted(List1->Text()));
    }

    if (!basic::Trim(run.last.description()).isEmpty() && shell::ShowErrorDetail())
        forms::MsgBox(QStringLiteral("Exc on L1C : ") + run.last.description() + run.last.detail(),
                      forms::vbExclamation, QStringLiteral("_IN_DEBUG"));
}

// Each change moves the list to the first entry that starts with the text, and prepares its document.
void frmkerala::Text3_Change() {
    if (!Text3->isVisible()) return;
    if (!shell::objService) shell::objService = std::make_unique<shell::clsService>();
    shell::objService->ListBoxTypingSearch(List1, Text3->text());
    Text1->setText(List1->Text());
    List1_Click();
    Text3->setFocus();
}

void frmkerala::Text3_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) Cmdwordsearch_Click();
}

void frmkerala::Text3_GotFocus() {
    if (shell::wordSearchColumn.isEmpty()) return;
    StatusBar1->Panels(1).setText(QString::fromUtf8(kSearchHint));
    if (basic::Trim(Text3->text()).isEmpty()) Text3->setText(QString());
}

void frmkerala::Text3_LostFocus() { StatusBar1->Panels(1).setText(QStringLiteral(" ")); }

void frmkerala::Cmdwordsearch_Click() {
    if (Cmdwordsearch->isVisible())
        shell::WordSearchToList(List1, shell::wordSearchTable, shell::wordSearchColumn, Text3->text(),
                                shell::wordSearchOrderBy);
    if (Text3->isVisible()) Text3->setFocus();
}

}  // namespace library
