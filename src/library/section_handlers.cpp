// frmkerala's answers to a pick: the GoClicked and BackClicked events of its grids, and the Go and Back
// buttons of its list page. A Go handler turns the grid's key value into a query for keralaforms.
#include <QMetaObject>

#include "library/frm_global_sections.h"
#include "library/frm_kerala.h"
#include "library/keralaforms.h"
#include "platform/basic/variant.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"

namespace library {

namespace {

keralaforms* documentWindow() { return forms::get<keralaforms>(QStringLiteral("keralaforms")); }

// Shows the document window modeless or modal; a change of mode needs the window shown anew.
void showDocumentWindow(Qt::WindowModality modality) {
    keralaforms* kf = documentWindow();
    if (kf->windowModality() != modality) {
        kf->hide();
        kf->setWindowModality(modality);
    }
    kf->show();
    kf->raise();
    kf->activateWindow();
}

// What stands behind the first "-", when something does; otherwise the empty name, whose query finds
// no document. Labels before the hyphen and names after it may both hold hyphens.
QString nameAfterFirstHyphen(const QString& value) {
    const int p = basic::InStr(value, QStringLiteral("-"));
    if (p > 0 && p + 1 <= value.length()) return basic::Mid(value, p + 1);
    return QString();
}

QString keralaQuery(const QString& name) {
    return QStringLiteral("select fname from Kerala where name='") + name + QStringLiteral("'");
}

// Every Go handler ends after one box of its own, spelled with its name.
template <class Body>
void goHandler(const char* handlerName, const char* fallback, Body body) {
    try {
        body();
    } catch (const basic::RuntimeError& e) {
        if (shell::ShowErrorDetail())
            forms::MsgBox(QStringLiteral("Error on ") + QLatin1String(handlerName) + QStringLiteral("() \n") +
                          e.description() + e.detail());
        else
            forms::MsgBox(QLatin1String(fallback), forms::vbOKOnly, QStringLiteral("Vorlan"));
    }
}

constexpr const char* kCase1 = " exceptional case 1";
constexpr const char* kCase3 = " exception case 3";
const QString kReturnFormName = QStringLiteral("FORM10-AUTOCOMPUTATION");

}  // namespace

// Steps of every Go but the CA one: on a miss IsQueryReturnsNullCnStr has already put the stand-by
// document in place, and the query of the miss is not set.
void frmkerala::pointAndShow(const QString& connection, const QString& query) {
    keralaforms* kf = documentWindow();
    if (!shell::IsQueryReturnsNullCnStr(query, connection)) {
        kf->MSRDC1->setConnect(connection);
        kf->MSRDC1->setSQL(query);
    }
    kf->MSRDC1->Refresh();
    kf->OLE1->setDataField(QStringLiteral("fname"));
    showDocumentWindow(Qt::NonModal);
}

// The return tool lives in another part of the program; it is reached by its registered name, and its
// own Show runs its loading on the first showing.
void frmkerala::openReturnChooser() {
    QWidget* chooser = forms::get(QStringLiteral("frmSelect"));
    if (chooser->metaObject()->indexOfMethod("Show()") >= 0)
        QMetaObject::invokeMethod(chooser, "Show");
    else
        chooser->show();
}

// ---- circulars and notifications: the name behind the first hyphen, looked up in Kerala ----------------

#define KERALA_BY_NAME_AFTER_HYPHEN(handler)                                                                    \
    void frmkerala::handler(frmGlobalSections*, basic::Variant& value) {                                       \
        goHandler(#handler, kCase1, [&] {                                                                       \
            const QString name = nameAfterFirstHyphen(basic::CStr(value));                                      \
            pointAndShow(shell::strLibraryCn1, keralaQuery(name));                                              \
        });                                                                                                     \
    }

KERALA_BY_NAME_AFTER_HYPHEN(gsNotificationNumber_GoClicked)
KERALA_BY_NAME_AFTER_HYPHEN(gsNotificationSubject_GoClicked)
KERALA_BY_NAME_AFTER_HYPHEN(gsNotificationSection_GoClicked)
KERALA_BY_NAME_AFTER_HYPHEN(gsCircularSection_GoClicked)
KERALA_BY_NAME_AFTER_HYPHEN(gsCircularSubject_GoClicked)
KERALA_BY_NAME_AFTER_HYPHEN(gsCircularNumber_GoClicked)

// ---- judgments: the name behind the first hyphen, in Globalvat when it is there, else in Globalvatse ----

#define JUDGMENT_BY_NAME_AFTER_HYPHEN(handler)                                                                  \
    void frmkerala::handler(frmGlobalSections*, basic::Variant& value) {                                       \
        goHandler(#handler, kCase1, [&] {                                                                       \
            const QString name = nameAfterFirstHyphen(basic::CStr(value));                                      \
            if (shell::IsNameInGlobalvat(name))                                                                 \
                pointAndShow(shell::strLibraryCn1,                                                              \
                             QStringLiteral("select fname from Globalvat where name='") + name + "'");          \
            else                                                                                                \
                pointAndShow(shell::strLibraryCn2,                                                              \
                             QStringLiteral("select fname from Globalvatse where name='") + name + "'");        \
        });                                                                                                     \
    }

JUDGMENT_BY_NAME_AFTER_HYPHEN(gsArJudgmentCitation_GoClicked)
JUDGMENT_BY_NAME_AFTER_HYPHEN(gsArJudgmentSection_GoClicked)
JUDGMENT_BY_NAME_AFTER_HYPHEN(gsArJudgmentSubject_GoClicked)
JUDGMENT_BY_NAME_AFTER_HYPHEN(gsJudgmentCitation_GoClicked)
JUDGMENT_BY_NAME_AFTER_HYPHEN(gsJudgmentSection_GoClicked)
JUDGMENT_BY_NAME_AFTER_HYPHEN(gsJudgmentSubject_GoClicked)

// ---- the named texts: the whole value is the name; all but the KGST index add the grid's condition ------

void frmkerala::ObjSectionIndexKGSTGB_GoClicked(frmGlobalSections*, basic::Variant& value) {
    goHandler("ObjSectionIndexKGSTGB_GoClicked", kCase3,
              [&] { pointAndShow(shell::strLibraryCn1, keralaQuery(basic::CStr(value))); });
}

#define KERALA_BY_WHOLE_NAME(handler)                                                                           \
    void frmkerala::handler(frmGlobalSections* frm, basic::Variant& value) {                                   \
        goHandler(#handler, kCase3, [&] {                                                                       \
            pointAndShow(shell::strLibraryCn1, keralaQuery(basic::CStr(value)) + frm->AdditionalSearchConditions()); \
        });                                                                                                     \
    }

KERALA_BY_WHOLE_NAME(ObjGenSaleTaxActGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjGSTPaperReportGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjGSTRuleGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjAlliedActGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjAlliedRuleGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjAlliedFormsGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjAlliedCircularsGB_GoClicked)
KERALA_BY_WHOLE_NAME(ObjAlliedNotificationsGB_GoClicked)

// ---- the grids that build or key their own query ------------------------------------------------------

// The grid has built the query already; the monthly return form opens the return tool instead.
void frmkerala::ObjFormGlobalSections_GoClicked(frmGlobalSections* frm, basic::Variant& value) {
    goHandler("ObjFormGlobalSections_GoClicked", kCase1, [&] {
        if (basic::Trim(basic::CStr(value)) == kReturnFormName) {
            openReturnChooser();
            return;
        }
        pointAndShow(frm->ConnectionString(), frm->QueryString());
    });
}

// The schedule's key is a number and stands unquoted.
void frmkerala::ObjScheduleGlobalSection_GoClicked(frmGlobalSections* frm, basic::Variant& value) {
    goHandler("ObjScheduleGlobalSection_GoClicked", kCase1, [&] {
        const QString query = QStringLiteral("select ") + frm->OleColumnName() + QStringLiteral(" from ") +
                              frm->OleTableName() + QStringLiteral(" where ") + frm->PredicateColumnName() +
                              QStringLiteral("=") + basic::CStr(value) + QStringLiteral(" ") +
                              basic::Trim(frm->AdditionalSearchConditions());
        pointAndShow(frm->ConnectionString(), query);
    });
}

// The CA items are pointed straight, with no stand-by for a missing document.
void frmkerala::ObjCAMenuItemGlobalSection_GoClicked(frmGlobalSections* frm, basic::Variant& value) {
    goHandler("ObjCAMenuItemGlobalSection_GoClicked", " Exception case: CSTForm Grid Sel Item Show", [&] {
        keralaforms* kf = documentWindow();
        kf->MSRDC1->setConnect(frm->ConnectionString());
        kf->MSRDC1->setSQL(QStringLiteral("select fname from ") + frm->OleTableName() + QStringLiteral(" where ") +
                           frm->PredicateColumnName() + QStringLiteral("=") + basic::CStr(value));
        kf->MSRDC1->Refresh();
        kf->OLE1->setDataField(QStringLiteral("fname"));
        showDocumentWindow(Qt::NonModal);
    });
}

// ---- Back from a grid: the grid hides itself; these show this window as well -------------------------

#define SHOW_BROWSER_ON_BACK(handler) \
    void frmkerala::handler(frmGlobalSections*) { forms::get(QStringLiteral("frmkerala"))->show(); }

SHOW_BROWSER_ON_BACK(gsJudgmentCitation_BackClicked)
SHOW_BROWSER_ON_BACK(ObjSectionIndexKGSTGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjGenSaleTaxActGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjGSTPaperReportGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjGSTRuleGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjAlliedActGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjAlliedRuleGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjAlliedFormsGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjAlliedCircularsGB_BackClicked)
SHOW_BROWSER_ON_BACK(ObjAlliedNotificationsGB_BackClicked)

// ---- the list page's buttons: List1_Click has pointed the document already ----------------------------

void frmkerala::showDocumentModally() { showDocumentWindow(Qt::ApplicationModal); }

void frmkerala::cmdactgo_Click() { showDocumentModally(); }
void frmkerala::cmdrulego_Click() { showDocumentModally(); }
void frmkerala::cmdshgo_Click() { showDocumentModally(); }
void frmkerala::judgo_Click() { showDocumentModally(); }
void frmkerala::rngo_Click() { showDocumentModally(); }
void frmkerala::Command1_Click() { showDocumentModally(); }
void frmkerala::notGo_Click() { showDocumentModally(); }
void frmkerala::aligo_Click() { showDocumentModally(); }

// The monthly return form has no document of its own: it opens the return tool.
void frmkerala::formsgo_Click() {
    if (basic::Trim(Text1->text()) == kReturnFormName)
        openReturnChooser();
    else
        showDocumentModally();
}

void frmkerala::backToTree(forms::TreeView* tree, bool takeFocus) {
    Frame2->hide();
    Frame1->show();
    tree->show();
    tree->raise();
    if (takeFocus) shell::SafeSetFocus(tree);
}

void frmkerala::cmdactback_Click() { backToTree(Tvw, true); }
void frmkerala::cmdruleback_Click() { backToTree(tvw2, true); }
void frmkerala::notBack_Click() { backToTree(tvwn, true); }
void frmkerala::aliback_Click() { backToTree(tvwali, true); }
void frmkerala::judback_Click() { backToTree(tvw3, false); }
void frmkerala::rnback_Click() { backToTree(tvwr, false); }
void frmkerala::Command4_Click() { backToTree(tvwc, false); }
// Schedules and Forms come from the toolbar, not a tree: their Back leaves neither page.
void frmkerala::cmdshback_Click() {
    Frame1->hide();
    Frame2->hide();
}
void frmkerala::formsback_Click() {
    Frame1->hide();
    Frame2->hide();
}

void frmkerala::wireListPageButtons() {
    const std::pair<QPushButton*, void (frmkerala::*)()> buttons[] = {
        {cmdactgo, &frmkerala::cmdactgo_Click},       {cmdrulego, &frmkerala::cmdrulego_Click},
        {cmdshgo, &frmkerala::cmdshgo_Click},         {judgo, &frmkerala::judgo_Click},
        {formsgo, &frmkerala::formsgo_Click},         {rngo, &frmkerala::rngo_Click},
        {Command1, &frmkerala::Command1_Click},       {notGo, &frmkerala::notGo_Click},
        {aligo, &frmkerala::aligo_Click},             {cmdactback, &frmkerala::cmdactback_Click},
        {cmdruleback, &frmkerala::cmdruleback_Click}, {cmdshback, &frmkerala::cmdshback_Click},
        {judback, &frmkerala::judback_Click},         {formsback, &frmkerala::formsback_Click},
        {rnback, &frmkerala::rnback_Click},           {Command4, &frmkerala::Command4_Click},
        {notBack, &frmkerala::notBack_Click},         {aliback, &frmkerala::aliback_Click},
    };
    for (const auto& [b, handler] : buttons)
        forms::wire(b, &QPushButton::clicked, this, [this, handler = handler] { (this->*handler)(); });
}

}  // namespace library
