// List statements of the law browser run through MyMOD on the sample library, against the rows the sample
// sources say they give. The row counts of every grid are pinned through the screens in section_handlers_test.
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

// The Act list in chapter order, then by name without regard to case, the old Act left out; "+" joining a
// Null description gives a Null Search, where "&" would have joined it as empty.
TEST_F(LibraryStatements, ActListKeepsItsOrderAndItsNullRule) {
    QList<QPair<int, QString>> rows;
    for (const auto& r : sampleRows("Kerala"))
        if (r.value("type").toLower() == "act" && r.value("ChapterNo").toInt() > 0 &&
            r["name"] != "THE KERALA GENERAL SALES TAX ACT")
            rows.append({r.value("ChapterNo").toInt(), r["name"]});
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first : a.second.compare(b.second, Qt::CaseInsensitive) < 0;
    });
    QStringList want;
    for (const auto& r : rows) want << r.second;
    forms::MsgBoxRecorder boxes;
    store::Recordset act = shell::getRecordSet(
        "SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
        "Kerala");
    EXPECT_EQ(column(act, 1), want);
    act.MoveFirst();
    bool sawNull = false;
    for (; !act.Eof(); act.MoveNext()) {
        const Variant desc = act.Fields("DESCRIPTION").Value();
        const Variant search = act.Fields("Search").Value();
        sawNull |= desc.isNull();
        EXPECT_EQ(search.isNull() ? QStringLiteral("<null>") : search.text(),
                  desc.isNull() ? QStringLiteral("<null>") : act.Fields("SECTION").Value().text() + " " + desc.text());
    }
    EXPECT_TRUE(sawNull);
    EXPECT_TRUE(boxes.boxes().empty());
}
