#pragma once
// frmkerala, "Kerala": the law browser of the state. Its toolbar puts one of seven category trees in front
// (the tree page, Frame1) or opens a grid straight away; the list page (Frame2) holds the section list
// that some nodes fill. The window lives for the whole run: leaving it hides it and brings "main" back.
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <cstdint>

#include "platform/basic/variant.h"
#include "platform/forms/image_list.h"
#include "platform/forms/tree_view.h"

namespace forms {
class ListBox;
class StatusBar;
class Toolbar;
}  // namespace forms

namespace library {

class frmGlobalSections;
struct GridEntry;

class frmkerala : public QWidget {
    Q_OBJECT
public:
    explicit frmkerala(QWidget* parent = nullptr);

    // ---- controls -----------------------------------------------------------------------------------
    forms::Toolbar* Toolbar2 = nullptr;
    forms::StatusBar* StatusBar1 = nullptr;
    QGroupBox* Frame1 = nullptr;
    forms::TreeView *Tvw = nullptr, *tvw2 = nullptr, *tvwc = nullptr, *tvwn = nullptr, *tvw3 = nullptr,
                    *tvwr = nullptr, *tvwali = nullptr;
    QGroupBox* Frame2 = nullptr;
    QLabel* Label1 = nullptr;
    QLineEdit* Text3 = nullptr;
    QPushButton* Cmdwordsearch = nullptr;
    QLineEdit* Text1 = nullptr;
    forms::ListBox* List1 = nullptr;
    QPushButton *cmdactgo = nullptr, *cmdrulego = nullptr, *cmdshgo = nullptr, *judgo = nullptr,
                *formsgo = nullptr, *rngo = nullptr, *Command1 = nullptr, *notGo = nullptr, *aligo = nullptr;
    QPushButton *cmdactback = nullptr, *cmdruleback = nullptr, *cmdshback = nullptr, *judback = nullptr,
                *formsback = nullptr, *rnback = nullptr, *Command4 = nullptr, *notBack = nullptr,
                *aliback = nullptr;
    forms::ImageList ImageList1;    // the two node pictures: 1 closed, 2 selected
    forms::ImageList ImageList2;    // the eleven toolbar pictures

    // ---- state --------------------------------------------------------------------------------------
    QString CurrentToolbarKey;
    forms::Node LastRootNode;
    std::int16_t ResizeValue = 0;

    // The grids, one per catalogue entry, made on their first opening and kept for the run.
    frmGlobalSections *ObjActGlobalSections = nullptr, *ObjRuleGlobalSections = nullptr,
                      *ObjFormGlobalSections = nullptr, *ObjScheduleGlobalSection = nullptr,
                      *gsCircularNumber = nullptr, *gsCircularSubject = nullptr, *gsCircularSection = nullptr,
                      *gsJudgmentCitation = nullptr, *gsJudgmentSection = nullptr, *gsJudgmentSubject = nullptr,
                      *gsArJudgmentCitation = nullptr, *gsArJudgmentSection = nullptr,
                      *gsArJudgmentSubject = nullptr, *gsNotificationNumber = nullptr,
                      *gsNotificationSubject = nullptr, *gsNotificationSection = nullptr,
                      *ObjSectionIndexKGSTGB = nullptr, *ObjGenSaleTaxActGB = nullptr,
                      *ObjGSTPaperReportGB = nullptr, *ObjGSTRuleGB = nullptr, *ObjAlliedActGB = nullptr,
                      *ObjAlliedRuleGB = nullptr, *ObjAlliedFormsGB = nullptr, *ObjAlliedCircularsGB = nullptr,
                      *ObjAlliedNotificationsGB = nullptr, *ObjCAMenuItemGlobalSection = nullptr;

    // ---- window events ------------------------------------------------------------------------------
    void Form_Load();
    void Form_Resize();
    // UnloadMode 0 is the window's own close box; every other mode passes.
    void Form_QueryUnload(bool& Cancel, int UnloadMode);
    void Form_MouseDown();
    void Toolbar2_ButtonClick(const QString& key);

    // ---- trees --------------------------------------------------------------------------------------
    void Tvw_KeyDown(int KeyCode, int Shift);
    void Tvw_MouseDown();
    void Tvw_MouseMove();
    // A node opens the grid of its catalogue row (made once, shown again); keys with no row do nothing.
    void Tvw_DblClick();
    void tvw2_DblClick();
    void tvwc_DblClick();
    void tvwn_DblClick();
    void tvw3_DblClick();
    void tvwr_DblClick();
    void tvwali_Click();
    void LOAD_CA_MENU_GRID();
    void SHOW_CA_MENU_GRID();

    // Mode 0 registers the component file, mode 1 unregisters it; any other mode gives 0 and calls nothing.
    void RegisterComponent(const QString& fileName, int mode, std::int32_t& result);

    // ---- answers to the grids and to the list page's buttons (section_handlers.cpp) -----------------
    // Each GoClicked handler points keralaforms at its query and shows it; its own errors end in one box.
    void gsNotificationNumber_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsNotificationSubject_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsNotificationSection_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsCircularSection_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsCircularSubject_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsCircularNumber_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsArJudgmentCitation_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsArJudgmentSection_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsArJudgmentSubject_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsJudgmentCitation_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsJudgmentSection_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void gsJudgmentSubject_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjSectionIndexKGSTGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjGenSaleTaxActGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjGSTPaperReportGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjGSTRuleGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjAlliedActGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjAlliedRuleGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjAlliedFormsGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjAlliedCircularsGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjAlliedNotificationsGB_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjFormGlobalSections_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjScheduleGlobalSection_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    void ObjCAMenuItemGlobalSection_GoClicked(frmGlobalSections* frm, basic::Variant& value);
    // The BackClicked handlers show this window again; the other grids have none.
    void gsJudgmentCitation_BackClicked(frmGlobalSections* frm);
    void ObjSectionIndexKGSTGB_BackClicked(frmGlobalSections* frm);
    void ObjGenSaleTaxActGB_BackClicked(frmGlobalSections* frm);
    void ObjGSTPaperReportGB_BackClicked(frmGlobalSections* frm);
    void ObjGSTRuleGB_BackClicked(frmGlobalSections* frm);
    void ObjAlliedActGB_BackClicked(frmGlobalSections* frm);
    void ObjAlliedRuleGB_BackClicked(frmGlobalSections* frm);
    void ObjAlliedFormsGB_BackClicked(frmGlobalSections* frm);
    void ObjAlliedCircularsGB_BackClicked(frmGlobalSections* frm);
    void ObjAlliedNotificationsGB_BackClicked(frmGlobalSections* frm);
    // The list page: a Go shows the document List1_Click prepared; a Back returns to a tree or to none.
    void cmdactgo_Click();
    void cmdrulego_Click();
    void cmdshgo_Click();
    void judgo_Click();
    void formsgo_Click();
    void rngo_Click();
    void Command1_Click();
    void notGo_Click();
    void aligo_Click();
    void cmdactback_Click();
    void cmdruleback_Click();
    void cmdshback_Click();
    void judback_Click();
    void formsback_Click();
    void rnback_Click();
    void Command4_Click();
    void notBack_Click();
    void aliback_Click();

    // ---- end of the grid answers ----------------------------------------------------------------------

    // ---- the list page (frm_kerala_list_page.cpp) ---------------------------------------------------
    // The fills of the list page: "Sectionwise" of Tvw lists the act's sections; "Index" and "FullText"
    // of tvw2 put their one entry. Tvw_DblClick and tvw2_DblClick call them for those keys.
    void FillSectionwiseList();
    void FillRulesList(const QString& key);
    // A click points keralaforms at the entry's document by CurrentToolbarKey; Go then shows it.
    void List1_Click();
    void Text3_Change();
    void Text3_KeyPress(int KeyAscii);
    void Text3_GotFocus();
    void Text3_LostFocus();
    void Cmdwordsearch_Click();
    void wireListPage();
    // ---- end of the list page -----------------------------------------------------------------------

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    // the grid answers' own steps (section_handlers.cpp)
    void wireListPageButtons();
    void openGrid(const GridEntry& entry);
    void loadGrid(const GridEntry& entry);
    void showGrid(frmGlobalSections* grid);
    void showSelectStatus();
    void pointAndShow(const QString& connection, const QString& query);
    void backToTree(forms::TreeView* tree, bool takeFocus);
    void showDocumentModally();
    void openReturnChooser();
    void buildControls();
    void fillTrees();
    void showTree(forms::TreeView* tree, bool takeFocus);
    void openScheduleGrid();
    void openFormsGrid();
};

}  // namespace library
