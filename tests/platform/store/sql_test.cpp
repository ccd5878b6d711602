// The statements the system sends, as it writes them, over a small database: the rows they give.
#include "fixture.h"
#include "support/case_name.h"

namespace {

struct Case { const char* name, *statement, *rows; };

class RealStatements : public StoreFixture, public ::testing::WithParamInterface<Case> {};

TEST_P(RealStatements, GiveTheRowsOfTheDesktopEngine) {
    EXPECT_EQ(query(QString::fromUtf8(GetParam().statement)), QString::fromUtf8(GetParam().rows));
}

INSTANTIATE_TEST_SUITE_P(
    Sql, RealStatements,
    ::testing::Values(
        // The label cut of the index grids: IIf(InStr(...)) keeps what stands before the first hyphen.
        Case{"LabelCutBeforeFirstHyphen", "SELECT Keralafields.CircularNumber AS Search, IIf(InStr(1,[Keralafields].[CircularNumber],'-')>0,Left([Keralafields].[CircularNumber],InStr(1,[Keralafields].[CircularNumber],'-')-1),[Keralafields].[CircularNumber]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularNumber]))))>1)) ORDER BY Keralafields.CircularNumber ASC;",
                      "a-b-c|a;B-2|B;Circular 5|Circular 5"},
        // + keeps Null; names compare without regard to case; LCase on a bracketed column.
        Case{"PlusKeepsNullAndLCaseOfBracketedColumn", "SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
                      "Section 1 Levy of tax|Section 1|Levy of tax;<Null>|Section 2|<Null>"},
        // & joins a Null as the empty text.
        Case{"AmpersandJoinsNullAsEmpty", "SELECT ID, (CAPractice.name) & ' ' & (CAPractice.Type) AS Search, CAPractice.name AS Description FROM CAPractice WHERE (((Len(LTrim(RTrim([CAPractice].[name]))))>1)) ORDER BY CAPractice.Weight;",
                      "2|Tax |Tax;1|Audit Guide|Audit"},
        Case{"BackQuotedColumnAndLike", "Select  * from Keralafields where lcase(`ActSection`) like '%input% %tax%' ORDER BY ActSection",
                      "4|  z |input  and output tax;2|Circular 5|Input Tax credit"},
        Case{"IsNotNull", "SELECT Keralafields.ID, Keralafields.ActSection FROM Keralafields WHERE (((Keralafields.ActSection) Is Not Null)) ORDER BY Keralafields.ID;",
                      "1|12-Sale;2|Input Tax credit;4|input  and output tax;5|Syntax;6|Sales Tax-inputs"},
        Case{"GlobalvatDefaultDocument", "SELECT Globalvat.fname FROM Globalvat WHERE (((Globalvat.name)='default') AND ((Globalvat.type)='default'));",
                      "<bytes 4>"},
        Case{"InListAndMixedCase", "SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('Rule 1', 'SECTION 0') And Type ='Act'",
                      "Section 0|Section 0"},
        // No blank before ORDER; dates order by date, not by their text; 'May' finds 'MAY'.
        Case{"NoBlankBeforeOrderAndDatesByDate", "SELECT * FROM tblPurchase1 WHERE cCode='' AND cMonth= 'May'ORDER BY BillDate",
                      "4|2008-01-15|P4|1|<Null>|<Null>||MAY;2|2008-09-26|P2|50.5|<Null>|<Null>||May;1|2008-10-02|P1|100|<Null>|<Null>||May"},
        Case{"RptSalesWithoutBlanks", "SELECT * FROM  tblRptSales Where cCode =''AND cMonth= 'May'AND cAddress= ''", "|May||1.5"},
        Case{"DateLiterals", "SELECT SlNo FROM tblPurchase1 WHERE BillDate>=#18/Sep/2008# AND BillDate<#12/31/2008# ORDER BY BillDate",
                      "2;1"}),
    CaseName());

// One expression rule per row: operators, functions and literals of the desktop dialect; the value on the
// row of ID 2.
class Expressions : public StoreFixture, public ::testing::WithParamInterface<Case> {};

TEST_P(Expressions, FollowTheDesktopRules) {
    EXPECT_EQ(query(QStringLiteral("SELECT %1 AS v FROM Kerala WHERE ID = 2").arg(QString::fromUtf8(GetParam().statement))),
              QString::fromUtf8(GetParam().rows));
}

INSTANTIATE_TEST_SUITE_P(
    Sql, Expressions,
    ::testing::Values(Case{"InStrFindsWithoutCase", "InStr('abc','B')", "2"},
                      Case{"InStrFromAStart", "InStr(3,'abcabc','a')", "4"},
                      Case{"InStrMissing", "InStr('abc','z')", "0"},
                      Case{"InStrOfNull", "InStr(1,SecDesc,'-')", "<Null>"},
                      Case{"MidWithLength", "Mid('abcdef',2,3)", "bcd"},
                      Case{"MidToTheEnd", "Mid('abcdef',4)", "def"},
                      Case{"Right", "Right('abcdef',2)", "ef"},
                      Case{"LeftBeyondTheEnd", "Left('abc',5)", "abc"},
                      Case{"UCaseAndLCase", "UCase('abc') & LCase('DÉF')", "ABCdéf"},
                      Case{"LenOfTrim", "Len(Trim('  ab  '))", "2"},
                      Case{"Precedence", "1 + 2 * 3", "7"},
                      Case{"LeftToRight", "10 - 2 + 1", "9"},
                      Case{"PlusJoinsTextAndNumber", "'a' + 1", "a1"},
                      Case{"PlusWithNull", "name + SecDesc", "<Null>"},
                      Case{"AmpersandWithNull", "name & SecDesc", "Section 2"},
                      Case{"AmpersandOfNulls", "SecDesc & SecDesc", "<Null>"},
                      Case{"AmpersandAfterPlus", "'x' & 1 + 2", "x3"},
                      Case{"IIf", "IIf(ChapterNo>0,'yes','no')", "yes"},
                      Case{"DateLiteral", "#18/Dec/1982#", "1982-12-18"},
                      Case{"DoubleQuotedText", "\"dq\"", "dq"},
                      Case{"BracketedNames", "[Kerala].[name]", "Section 2"},
                      Case{"BackQuotedName", "`type`", "ACT"}),
    CaseName());

TEST_F(StoreFixture, FailedStatementRaisesTheDatabaseMessageAndChangesNothing) {
    cn.Execute(QStringLiteral("CREATE TABLE t (n INTEGER CHECK (n < 3))"));
    cn.Execute(QStringLiteral("INSERT INTO t VALUES (1), (2)"));
    const basic::RuntimeError e = basic::resume([&] { cn.Execute(QStringLiteral("UPDATE t SET n = n + 1")); });
    EXPECT_EQ(e.number(), -2147467259);
    EXPECT_EQ(e.source(), QStringLiteral("Vorlan store"));
    EXPECT_TRUE(e.description().contains(QStringLiteral("constraint"))) << e.description().toStdString();
    EXPECT_EQ(query(QStringLiteral("SELECT n FROM t ORDER BY n")), QStringLiteral("1;2"));
    EXPECT_THROW(query(QStringLiteral("SELECT nope FROM t")), basic::RuntimeError);
}

}  // namespace
