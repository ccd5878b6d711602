// Every list statement the law browser sends, run through MyMOD on the sample library, against the rows
// the sample sources say it should give.
#include "library_fixture.h"

#include "platform/basic/variant.h"
#include "platform/forms/msgbox.h"

#include <algorithm>

using basic::Variant;

namespace {

QStringList column(store::Recordset rs, int index) {
    QStringList out;
    if (rs.isNothing()) return out;
    for (; !rs.Eof(); rs.MoveNext()) {
        const Variant v = rs.Fields(index).Value();
        out << (v.isNull() ? QStringLiteral("<null>") : basic::CStr(v));
    }
    return out;
}

QStringList sortedNoCase(QStringList list) {
    std::sort(list.begin(), list.end(), [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    return list;
}

QString indexQuery(const QString& c, const QString& caption) {
    return QStringLiteral("SELECT Keralafields.%1 AS Search, IIf(InStr(1,[Keralafields].[%1],'-')>0,Left([Keralafields].[%1],"
                          "InStr(1,[Keralafields].[%1],'-')-1),[Keralafields].[%1]) AS [%2] FROM Keralafields WHERE "
                          "(((Len(LTrim(RTrim([Keralafields].[%1]))))>1)) ORDER BY Keralafields.%1 ASC;")
        .arg(c, caption);
}

}  // namespace

class LibraryStatements : public LibraryFixture {};

// The twelve index lists: entries longer than one character, in order, each shown by its label before the
// first hyphen while the whole entry rides along as Search.
TEST_F(LibraryStatements, IndexListsCutTheLabelAtTheFirstHyphen) {
    const QStringList columns = {"CircularNumber", "CircularSection", "CircularSubject", "NotifcaionSection",
                                 "NotificationNumber", "NotificationSubject", "VatJudgmentSection",
                                 "VatJudgmentCitation", "VatJudgmentSubject", "RJudjmentSection", "RJudgmentCitation",
                                 "RJudgmentSubject"};
    forms::MsgBoxRecorder boxes;
    for (const QString& c : columns) {
        QStringList want;
        for (const auto& row : sampleRows("Keralafields"))
            if (row.contains(c) && basic::Trim(row[c]).size() > 1) want << row[c];
        want = sortedNoCase(want);
        QStringList wantLabels;
        for (const QString& w : want) wantLabels << (w.contains(u'-') ? w.left(w.indexOf(u'-')) : w);
        store::Recordset rs = shell::getRecordSetByCn(indexQuery(c, "LABEL"), shell::cnLibrary1);
        ASSERT_FALSE(rs.isNothing()) << c.toStdString();
        EXPECT_EQ(column(rs, 0), want) << c.toStdString();
        rs.MoveFirst();
        EXPECT_EQ(column(rs, 1), wantLabels) << c.toStdString();
        EXPECT_FALSE(want.isEmpty()) << c.toStdString();
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(LibraryStatements, KeralaListsGiveTheirRows) {
    auto namesOf = [](const QString& type, bool sectionList) {
        QList<QPair<int, QString>> rows;
        for (const auto& r : sampleRows("Kerala")) {
            if (r.value("type").toLower() != type) continue;
            if (sectionList && (r.value("ChapterNo").toInt() <= 0 || r["name"] == "THE KERALA GENERAL SALES TAX ACT"))
                continue;
            rows.append({r.value("ChapterNo").toInt(), r["name"]});
        }
        std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) {
            return a.first != b.first ? a.first < b.first : a.second.compare(b.second, Qt::CaseInsensitive) < 0;
        });
        QStringList out;
        for (const auto& r : rows) out << r.second;
        return out;
    };
    const std::pair<const char*, QStringList> cases[] = {
        {"SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
         namesOf("act", true)},
        {"SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as [RULE SECTION], Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='rules')) ORDER BY Kerala.ChapterNo, Kerala.name ;",
         namesOf("rules", true)},
        {"SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as FORM, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE ( ((LCase(([Kerala].[type])))='forms')) ORDER BY Kerala.ChapterNo, Kerala.name;",
         namesOf("forms", false)},
        {"SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('THE KERALA TAX ON LUXURIES ACTS 1976', 'THE KERALA MONEY-LENDERS ACT 1958 ', 'THE KERALA AGRICULTURAL INCOME TAX ACT') And Type ='Allied'",
         {"THE KERALA TAX ON LUXURIES ACTS 1976", "THE KERALA MONEY-LENDERS ACT 1958 ", "THE KERALA AGRICULTURAL INCOME TAX ACT"}},
        {"SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('xxxx Currently No items') And Type ='Allied'",
         {}},
    };
    forms::MsgBoxRecorder boxes;
    for (auto [query, want] : cases) {
        QStringList got = column(shell::getRecordSetByCn(query, shell::cnLibrary1), 1);
        if (QString(query).contains("In (")) {  // no order asked for
            std::sort(got.begin(), got.end());
            std::sort(want.begin(), want.end());
        }
        EXPECT_EQ(got, want) << query;
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(LibraryStatements, JoinsKeepTheirNullRules) {
    forms::MsgBoxRecorder boxes;
    // "+" joining a Null description gives Null; "&" joins it as empty.
    store::Recordset act = shell::getRecordSet(
        "SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
        "Kerala");
    bool sawNull = false;
    for (; !act.Eof(); act.MoveNext()) {
        const Variant desc = act.Fields("DESCRIPTION").Value();
        const Variant search = act.Fields("Search").Value();
        sawNull |= desc.isNull();
        EXPECT_EQ(search.isNull() ? QStringLiteral("<null>") : search.text(),
                  desc.isNull() ? QStringLiteral("<null>") : act.Fields("SECTION").Value().text() + " " + desc.text());
    }
    EXPECT_TRUE(sawNull);

    store::Recordset ca = shell::getRecordSetByCn(
        "SELECT ID, (CAPractice.name) & ' ' & (CAPractice.Type) AS Search, CAPractice.name AS Description FROM CAPractice WHERE (((Len(LTrim(RTrim([CAPractice].[name]))))>1)) ORDER BY CAPractice.Weight;",
        shell::cnLibrary3);
    QList<QPair<double, QString>> want;
    for (const auto& r : sampleRows("CAPractice"))
        if (basic::Trim(r["name"]).size() > 1) want.append({r["Weight"].toDouble(), r["name"] + " " + r.value("Type")});
    std::sort(want.begin(), want.end());
    QStringList wantSearch;
    for (const auto& w : want) wantSearch << w.second;
    EXPECT_EQ(column(ca, 1), wantSearch);

    store::Recordset sch = shell::getRecordSetByCn(
        "SELECT Allshedule.Schname As Search, Allshedule.ID, Allshedule.Schname As SCHEDULE FROM Allshedule WHERE (((Allshedule.Stid)='k')) ORDER BY Allshedule.Schname;",
        shell::cnLibrary3);
    QStringList wantSch;
    for (const auto& r : sampleRows("Allshedule"))
        if (r.value("Stid") == "k") wantSch << r["Schname"];
    EXPECT_EQ(column(sch, 2), sortedNoCase(wantSch));
    EXPECT_TRUE(boxes.boxes().empty());
}

// The list page's fill and word search, and the document lookups, as the browser sends them.
TEST_F(LibraryStatements, ListPageAndDocumentQueries) {
    forms::MsgBoxRecorder boxes;
    store::Recordset fill;
    fill.Open("SELECT Keralafields.ID, Keralafields.ActSection FROM Keralafields WHERE (((Keralafields.ActSection) Is Not Null)) ORDER BY Keralafields.ID;",
              shell::cnLibrary1, store::Recordset::adOpenDynamic, store::Recordset::adLockOptimistic);
    int want = 0;
    for (const auto& r : sampleRows("Keralafields")) want += r.contains("ActSection");
    EXPECT_EQ(fill.RecordCount(), want);

    store::Recordset words;
    words.Open("Select  * from Keralafields where lcase(`ActSection`) like '%short% %title%' ORDER BY ActSection",
               shell::getConnectionForTable("Keralafields"), store::Recordset::adOpenDynamic, store::Recordset::adLockOptimistic);
    EXPECT_EQ(column(words, 1), QStringList{"1-Short title"});

    EXPECT_FALSE(shell::IsQueryReturnsNullCnStr("select fname from Kerala where name='1'", shell::strLibraryCn1));
    EXPECT_TRUE(shell::IsQueryReturnsNullCnStr("select fname from Kerala where name='no such row'", shell::strLibraryCn1));
    EXPECT_TRUE(shell::IsNameInGlobalvat("default"));
    EXPECT_FALSE(shell::IsNameInGlobalvat("no such judgment"));
    EXPECT_TRUE(boxes.boxes().empty());
    EXPECT_NE(basic::resume([] { shell::IsNameInGlobalvat("O'Neil Agencies v. State"); }).number(), 0);
}
