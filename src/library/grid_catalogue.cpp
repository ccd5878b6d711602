#include "library/grid_catalogue.h"

#include <QStringList>

namespace library {

// reference, name, opened from, key, Header, AutoSizeColumnIndex, SearchColumnIndex, DetailIndex,
// HiddenIDIndex, library file, OleTableName, PredicateColumnName, PredicateValueColumnIndex,
// AdditionalSearchConditions, record set by table, DontShowOleForm, query, GoClicked, BackClicked.
// The blanks inside the texts are the stored names' own and stay as they are.
const GridEntry kGridCatalogue[26] = {
    {&frmkerala::ObjActGlobalSections, "ObjActGlobalSections", "Tvw", "VAT", "Kerala VAT Act Sectionwse & Subjectwise", 2, 0, 0, -1, 1, "Kerala", "name", 1, "and type='Act'", true, false,
     "SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
     nullptr, nullptr},
    {&frmkerala::ObjSectionIndexKGSTGB, "ObjSectionIndexKGSTGB", "Tvw", "KGST", "Section index KGST", 1, 0, 1, -1, 1, "Kerala", "Search", 0, "", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala WHERE Kerala.name = 'Section index KGST';",
     &frmkerala::ObjSectionIndexKGSTGB_GoClicked, &frmkerala::ObjSectionIndexKGSTGB_BackClicked},
    {&frmkerala::ObjGenSaleTaxActGB, "ObjGenSaleTaxActGB", "Tvw", "GENERAL", "The Kerala General Sales Tax Act", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Act'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala WHERE Kerala.name = 'THE KERALA GENERAL SALES TAX ACT';",
     &frmkerala::ObjGenSaleTaxActGB_GoClicked, &frmkerala::ObjGenSaleTaxActGB_BackClicked},
    {&frmkerala::ObjGSTPaperReportGB, "ObjGSTPaperReportGB", "Tvw", "GST", "Paper & Report on KGST", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Act'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala WHERE Kerala.name IN ('1stDiscussion PaperGST', 'Report On GST Of Task Force');",
     &frmkerala::ObjGSTPaperReportGB_GoClicked, &frmkerala::ObjGSTPaperReportGB_BackClicked},
    {&frmkerala::ObjRuleGlobalSections, "ObjRuleGlobalSections", "tvw2", "Sectionwise", "THE KERALA VALUE ADDED TAX RULES 2003 TABLE OF CONTENTS", 2, 0, 0, -1, 1, "Kerala", "name", 1, "and type='Rules'", true, false,
     "SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as [RULE SECTION], Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='rules')) ORDER BY Kerala.ChapterNo, Kerala.name ;",
     nullptr, nullptr},
    {&frmkerala::ObjGSTRuleGB, "ObjGSTRuleGB", "tvw2", "GENERAL", "The Kerala General Sales Tax Rules", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Rules'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala WHERE Kerala.name IN ('KERALA GENERAL SALES TAX RULES');",
     &frmkerala::ObjGSTRuleGB_GoClicked, &frmkerala::ObjGSTRuleGB_BackClicked},
    {&frmkerala::gsCircularNumber, "gsCircularNumber", "tvwc", "Gen", "KERALA CIRCULARS NUMBERWISE", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.CircularNumber AS Search, IIf(InStr(1,[Keralafields].[CircularNumber],'-')>0,Left([Keralafields].[CircularNumber],InStr(1,[Keralafields].[CircularNumber],'-')-1),[Keralafields].[CircularNumber]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularNumber]))))>1)) ORDER BY Keralafields.CircularNumber ASC;",
     &frmkerala::gsCircularNumber_GoClicked, nullptr},
    {&frmkerala::gsCircularSection, "gsCircularSection", "tvwc", "Twor", "KERALA CIRCULARS SECTIONWISE", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.CircularSection AS Search, IIf(InStr(1,[Keralafields].[CircularSection],'-')>0,Left([Keralafields].[CircularSection],InStr(1,[Keralafields].[CircularSection],'-')-1),[Keralafields].[CircularSection]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularSection]))))>1)) ORDER BY Keralafields.CircularSection ASC;",
     &frmkerala::gsCircularSection_GoClicked, nullptr},
    {&frmkerala::gsCircularSubject, "gsCircularSubject", "tvwc", "cirsub", "KERALA CIRCULARS SUBJECTWISE", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.CircularSubject AS Search, IIf(InStr(1,[Keralafields].[CircularSubject],'-')>0,Left([Keralafields].[CircularSubject],InStr(1,[Keralafields].[CircularSubject],'-')-1),[Keralafields].[CircularSubject]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularSubject]))))>1)) ORDER BY Keralafields.CircularSubject ASC;",
     &frmkerala::gsCircularSubject_GoClicked, nullptr},
    {&frmkerala::gsNotificationSection, "gsNotificationSection", "tvwn", "Twon", "KERALA NOTIFICATIONS SECTIONWISE", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.NotifcaionSection AS Search, IIf(InStr(1,[Keralafields].[NotifcaionSection],'-')>0,Left([Keralafields].[NotifcaionSection],InStr(1,[Keralafields].[NotifcaionSection],'-')-1),[Keralafields].[NotifcaionSection]) AS [NOTIFICATION SECTION] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[NotifcaionSection]))))>1)) ORDER BY Keralafields.NotifcaionSection ASC;",
     &frmkerala::gsNotificationSection_GoClicked, nullptr},
    {&frmkerala::gsNotificationNumber, "gsNotificationNumber", "tvwn", "Sec2r", "KERALA NOTIFICATIONS NUMBERWISE", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.NotificationNumber AS Search, IIf(InStr(1,[Keralafields].[NotificationNumber],'-')>0,Left([Keralafields].[NotificationNumber],InStr(1,[Keralafields].[NotificationNumber],'-')-1),[Keralafields].[NotificationNumber]) AS [NOTIFICATION NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[NotificationNumber]))))>1)) ORDER BY Keralafields.NotificationNumber ASC;",
     &frmkerala::gsNotificationNumber_GoClicked, nullptr},
    {&frmkerala::gsNotificationSubject, "gsNotificationSubject", "tvwn", "Notsub", "KERALA NOTIFICATIONS SUBJECTWISE", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.NotificationSubject AS Search, IIf(InStr(1,[Keralafields].[NotificationSubject],'-')>0,Left([Keralafields].[NotificationSubject],InStr(1,[Keralafields].[NotificationSubject],'-')-1),[Keralafields].[NotificationSubject]) AS [NOTIFICATION SUBJECT] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[NotificationSubject]))))>1)) ORDER BY Keralafields.NotificationSubject ASC;",
     &frmkerala::gsNotificationSubject_GoClicked, nullptr},
    {&frmkerala::gsJudgmentSection, "gsJudgmentSection", "tvw3", "Twor", "KERALA JUDGMENT SECTIONS", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.VatJudgmentSection AS Search, IIf(InStr(1,[Keralafields].[VatJudgmentSection],'-')>0,Left([Keralafields].[VatJudgmentSection],InStr(1,[Keralafields].[VatJudgmentSection],'-')-1),[Keralafields].[VatJudgmentSection]) AS [SECTION] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[VatJudgmentSection]))))>1)) ORDER BY Keralafields.VatJudgmentSection ASC;",
     &frmkerala::gsJudgmentSection_GoClicked, nullptr},
    {&frmkerala::gsJudgmentCitation, "gsJudgmentCitation", "tvw3", "Sec1r", "KERALA JUDGMENT CITATIONS", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.VatJudgmentCitation AS Search, IIf(InStr(1,[Keralafields].[VatJudgmentCitation],'-')>0,Left([Keralafields].[VatJudgmentCitation],InStr(1,[Keralafields].[VatJudgmentCitation],'-')-1),[Keralafields].[VatJudgmentCitation]) AS [CITATION] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[VatJudgmentCitation]))))>1)) ORDER BY Keralafields.VatJudgmentCitation ASC;",
     &frmkerala::gsJudgmentCitation_GoClicked, &frmkerala::gsJudgmentCitation_BackClicked},
    {&frmkerala::gsJudgmentSubject, "gsJudgmentSubject", "tvw3", "Sec2r", "KERALA JUDGMENT SUBJECTS", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.VatJudgmentSubject AS Search, IIf(InStr(1,[Keralafields].[VatJudgmentSubject],'-')>0,Left([Keralafields].[VatJudgmentSubject],InStr(1,[Keralafields].[VatJudgmentSubject],'-')-1),[Keralafields].[VatJudgmentSubject]) AS [SUBJECT] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[VatJudgmentSubject]))))>1)) ORDER BY Keralafields.VatJudgmentSubject ASC;",
     &frmkerala::gsJudgmentSubject_GoClicked, nullptr},
    {&frmkerala::gsArJudgmentSection, "gsArJudgmentSection", "tvwr", "Twor", "KERALA OLD & RECENT JUDGMENT SECTIONS", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.RJudjmentSection AS Search, IIf(InStr(1,[Keralafields].[RJudjmentSection],'-')>0,Left([Keralafields].[RJudjmentSection],InStr(1,[Keralafields].[RJudjmentSection],'-')-1),[Keralafields].[RJudjmentSection]) AS [SECTION] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[RJudjmentSection]))))>1)) ORDER BY Keralafields.RJudjmentSection ASC;",
     &frmkerala::gsArJudgmentSection_GoClicked, nullptr},
    {&frmkerala::gsArJudgmentCitation, "gsArJudgmentCitation", "tvwr", "Sec1r", "KERALA OLD & RECENT JUDGMENT CITATIONS", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.RJudgmentCitation AS Search, IIf(InStr(1,[Keralafields].[RJudgmentCitation],'-')>0,Left([Keralafields].[RJudgmentCitation],InStr(1,[Keralafields].[RJudgmentCitation],'-')-1),[Keralafields].[RJudgmentCitation]) AS [CITATION] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[RJudgmentCitation]))))>1)) ORDER BY Keralafields.RJudgmentCitation ASC;",
     &frmkerala::gsArJudgmentCitation_GoClicked, nullptr},
    {&frmkerala::gsArJudgmentSubject, "gsArJudgmentSubject", "tvwr", "Subr", "KERALA OLD & RECENT JUDGMENT SUBJECTS", 1, 0, 1, -1, 1, "Kerala", "name", 0, "", false, true,
     "SELECT Keralafields.RJudgmentSubject AS Search, IIf(InStr(1,[Keralafields].[RJudgmentSubject],'-')>0,Left([Keralafields].[RJudgmentSubject],InStr(1,[Keralafields].[RJudgmentSubject],'-')-1),[Keralafields].[RJudgmentSubject]) AS [SUBJECT] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[RJudgmentSubject]))))>1)) ORDER BY Keralafields.RJudgmentSubject ASC;",
     &frmkerala::gsArJudgmentSubject_GoClicked, nullptr},
    {&frmkerala::ObjAlliedActGB, "ObjAlliedActGB", "tvwali", "Sec1al", "The Kerala Allied Act", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Allied'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('THE KERALA TAX ON LUXURIES ACTS 1976', 'THE KERALA MONEY-LENDERS ACT 1958 ', 'THE KERALA AGRICULTURAL INCOME TAX ACT') And Type ='Allied'",
     &frmkerala::ObjAlliedActGB_GoClicked, &frmkerala::ObjAlliedActGB_BackClicked},
    {&frmkerala::ObjAlliedRuleGB, "ObjAlliedRuleGB", "tvwali", "Sec2al", "The Kerala Allied Rules", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Allied'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('THE KERALA TAX ON LUXURIES RULES 1976','THE KERALA AGRICULTURAL INCOME TAX RULES', 'MANGALYA NIDHI CESS RULES') And Type ='Allied'",
     &frmkerala::ObjAlliedRuleGB_GoClicked, &frmkerala::ObjAlliedRuleGB_BackClicked},
    {&frmkerala::ObjAlliedFormsGB, "ObjAlliedFormsGB", "tvwali", "Sec3al", "The Kerala Allied Forms", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Allied'", false, true,
     nullptr,
     &frmkerala::ObjAlliedFormsGB_GoClicked, &frmkerala::ObjAlliedFormsGB_BackClicked},
    {&frmkerala::ObjAlliedCircularsGB, "ObjAlliedCircularsGB", "tvwali", "Sec4al", "The Kerala Allied Circulars", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Allied'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('xxxx Currently No items') And Type ='Allied'",
     &frmkerala::ObjAlliedCircularsGB_GoClicked, &frmkerala::ObjAlliedCircularsGB_BackClicked},
    {&frmkerala::ObjAlliedNotificationsGB, "ObjAlliedNotificationsGB", "tvwali", "Sec5al", "The Kerala Allied Notifications", 1, 0, 1, -1, 1, "Kerala", "Search", 0, " and type='Allied'", false, true,
     "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('KERALA LUXURY TAX NOTIFICATIONS') And Type ='Allied'",
     &frmkerala::ObjAlliedNotificationsGB_GoClicked, &frmkerala::ObjAlliedNotificationsGB_BackClicked},
    {&frmkerala::ObjScheduleGlobalSection, "ObjScheduleGlobalSection", "Toolbar2", "sch", "THE KERALA VALUE ADDED TAX ACT SCHEDULES", 2, 0, 0, 1, 3, "Allshedule", "ID", 1, "", false, true,
     "SELECT Allshedule.Schname As Search, Allshedule.ID, Allshedule.Schname As SCHEDULE FROM Allshedule WHERE (((Allshedule.Stid)='k')) ORDER BY Allshedule.Schname;",
     &frmkerala::ObjScheduleGlobalSection_GoClicked, nullptr},
    {&frmkerala::ObjFormGlobalSections, "ObjFormGlobalSections", "Toolbar2", "forms", "THE KERALA VALUE ADDED TAX FORMS", 2, 0, 0, -1, 1, "Kerala", "name", 1, "and type='Forms'", false, true,
     "SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as FORM, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE ( ((LCase(([Kerala].[type])))='forms')) ORDER BY Kerala.ChapterNo, Kerala.name;",
     &frmkerala::ObjFormGlobalSections_GoClicked, nullptr},
    {&frmkerala::ObjCAMenuItemGlobalSection, "ObjCAMenuItemGlobalSection", "Toolbar2", "ca", "C A Practice", 2, 1, 2, 1, 3, "CAPractice", "ID", 0, "", false, true,
     "SELECT ID, (CAPractice.name) & ' ' & (CAPractice.Type) AS Search, CAPractice.name AS Description FROM CAPractice WHERE (((Len(LTrim(RTrim([CAPractice].[name]))))>1)) ORDER BY CAPractice.Weight;",
     &frmkerala::ObjCAMenuItemGlobalSection_GoClicked, nullptr},
};

const GridEntry* findGridEntry(const QString& openedFrom, const QString& key) {
    for (const GridEntry& entry : kGridCatalogue)
        if (openedFrom == QLatin1String(entry.openedFrom) && key == QLatin1String(entry.key)) return &entry;
    return nullptr;
}

// Each name between single quotes, joined by " , ", the first with one blank before it. The list grows in
// three statements, each appending to the last.
QString AlliedFormsQuery() {
    QString names = QStringLiteral(
        " 'AGRICULTURAL INCOME TAX Forms' , 'AIT FORM 1' , 'AIT FORM 2' , 'LUXURY Forms' , 'FORMI' , "
        "'FORMIAAA' , 'FORMIB' , 'FORMII' , 'FORMIIA' , 'FORMIIAA' , 'FORMIIB' , 'FORMIIC' , 'FORMIII' , "
        "'FORMIIIA' , 'FORMIIIB' , 'FORMIIIC' , 'FORMIV' , 'FORMIVA' , 'FORMV' , 'FORMVI' , 'FORMVII' , "
        "'FORMVIII' , 'FORMIX'");
    names += QStringLiteral(
        " , 'Mangalya  FORM I' , 'Mangalya  FORM II' , 'Mangalya FORM III' , 'KML Forms' , 'KMLFORM- A' , "
        "'KMLFORM -AA' , 'KMLFORM -AAA' , 'KMLFORM- AAAA' , 'KMLFORM- B' , 'KMLFORM -C' , 'KMLFORM -D' , "
        "'KMLFORM- E' , 'KMLFORM -F' , 'KMLFORM -G' , 'KMLFORM -H' , 'KMLFORM -I' , 'KMLFORM -J' , "
        "'KMLFORM -K' , 'KMLFORM -L' , 'KMLFORM- M' , 'KMLFORM- N' , 'KMLFORM -O' , 'KMLFORM- P' , "
        "'KMLFORM- Q' , 'KMLFORM -R' , 'KMLFORM -RA' , 'KMLFORM -RB' , 'KMLFORM -RC' , 'KMLFORM -S' , "
        "'KMLFORM -T' , 'KMLFORM- U'");
    names += QStringLiteral(
        " , 'TRIBUNAL Forms' , 'Tri-FORM A' , 'Tri-FORM B' , 'Tri-FORM C' , 'Tri-FORM D' , 'Tri-FORM E' , "
        "'Tri-FORM F' , 'Tri-FORM G' , 'Tri-FORM H'");
    return QStringLiteral("SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In (") +
           names + QStringLiteral(") And Type ='Allied'");
}

}  // namespace library
