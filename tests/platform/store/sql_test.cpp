// The statements the system sends, as it writes them, over a small database: the rows they give.
#include "fixture.h"

namespace {

struct Case { const char* statement, *rows; };

TEST_F(StoreFixture, RealStatementsGiveTheRowsOfTheDesktopEngine) {
    const Case cases[] = {
        // The label cut of the index grids: IIf(InStr(...)) keeps what stands before the first hyphen.
        {"SELECT Keralafields.CircularNumber AS Search, IIf(InStr(1,[Keralafields].[CircularNumber],'-')>0,Left([Keralafields].[CircularNumber],InStr(1,[Keralafields].[CircularNumber],'-')-1),[Keralafields].[CircularNumber]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularNumber]))))>1)) ORDER BY Keralafields.CircularNumber ASC;",
                      "a-b-c|a;B-2|B;Circular 5|Circular 5"},
        // + keeps Null; names compare without regard to case; LCase on a bracketed column.
        {"SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
                      "Section 1 Levy of tax|Section 1|Levy of tax;<Null>|Section 2|<Null>"},
        // & joins a Null as the empty text.
        {"SELECT ID, (CAPractice.name) & ' ' & (CAPractice.Type) AS Search, CAPractice.name AS Description FROM CAPractice WHERE (((Len(LTrim(RTrim([CAPractice].[name]))))>1)) ORDER BY CAPractice.Weight;",
                      "2|Tax |Tax;1|Audit Guide|Audit"},
        {"Select  * from Keralafields where lcase(`ActSection`) like '%input% %tax%' ORDER BY ActSection",
                      "4|  z |input  and output tax;2|Circular 5|Input Tax credit"},
        {"SELECT Keralafields.ID, Keralafields.ActSection FROM Keralafields WHERE (((Keralafields.ActSection) Is Not Null)) ORDER BY Keralafields.ID;",
                      "1|12-Sale;2|Input Tax credit;4|input  and output tax;5|Syntax;6|Sales Tax-inputs"},
        {"SELECT Globalvat.fname FROM Globalvat WHERE (((Globalvat.name)='default') AND ((Globalvat.type)='default'));",
                      "<bytes 4>"},
        {"SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('Rule 1', 'SECTION 0') And Type ='Act'",
                      "Section 0|Section 0"},
        // No blank before ORDER; dates order by date, not by their text; 'May' finds 'MAY'.
        {"SELECT * FROM tblPurchase1 WHERE cCode='' AND cMonth= 'May'ORDER BY BillDate",
                      "4|2008-01-15|P4|1|<Null>|<Null>||MAY;2|2008-09-26|P2|50.5|<Null>|<Null>||May;1|2008-10-02|P1|100|<Null>|<Null>||May"},
        {"SELECT * FROM  tblRptSales Where cCode =''AND cMonth= 'May'AND cAddress= ''", "|May||1.5"},
        {"SELECT SlNo FROM tblPurchase1 WHERE BillDate>=#18/Sep/2008# AND BillDate<#12/31/2008# ORDER BY BillDate",
                      "2;1"}};
    for (const Case& c : cases) EXPECT_EQ(query(QString::fromUtf8(c.statement)), QString::fromUtf8(c.rows)) << c.statement;
}

// One expression rule per row: operators, functions and literals of the desktop dialect.
TEST_F(StoreFixture, ExpressionsFollowTheDesktopRules) {
    const Case cases[] = {  // rows: the value on the row of ID 2
        {"InStr('abc','B')", "2"}, {"InStr(3,'abcabc','a')", "4"}, {"InStr('abc','z')", "0"},
        {"InStr(1,SecDesc,'-')", "<Null>"}, {"Mid('abcdef',2,3)", "bcd"}, {"Mid('abcdef',4)", "def"},
        {"Right('abcdef',2)", "ef"}, {"Left('abc',5)", "abc"}, {"UCase('abc') & LCase('DÉF')", "ABCdéf"},
        {"Len(Trim('  ab  '))", "2"}, {"1 + 2 * 3", "7"}, {"10 - 2 + 1", "9"}, {"'a' + 1", "a1"},
        {"name + SecDesc", "<Null>"}, {"name & SecDesc", "Section 2"}, {"SecDesc & SecDesc", "<Null>"},
        {"'x' & 1 + 2", "x3"}, {"IIf(ChapterNo>0,'yes','no')", "yes"}, {"#18/Dec/1982#", "1982-12-18"},
        {"\"dq\"", "dq"}, {"[Kerala].[name]", "Section 2"}, {"`type`", "ACT"}};
    for (const Case& c : cases)
        EXPECT_EQ(query(QStringLiteral("SELECT %1 AS v FROM Kerala WHERE ID = 2").arg(QString::fromUtf8(c.statement))),
                  QString::fromUtf8(c.rows)) << c.statement;
}

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
