// The statements the system sends, as it writes them, over a small database: the rows they give.
#include "fixture.h"

namespace {

struct StatementCase {
    const char* statement;
    const char* rows;
};

class RealStatements : public StoreFixture, public ::testing::WithParamInterface<StatementCase> {};

TEST_P(RealStatements, GiveTheRowsOfTheDesktopEngine) {
    EXPECT_EQ(query(QString::fromUtf8(GetParam().statement)), QString::fromUtf8(GetParam().rows));
}

INSTANTIATE_TEST_SUITE_P(Store, RealStatements, ::testing::Values(
    // The label cut of the index grids: IIf(InStr(...)) keeps what stands before the first hyphen.
    StatementCase{"SELECT Keralafields.CircularNumber AS Search, IIf(InStr(1,[Keralafields].[CircularNumber],'-')>0,Left([Keralafields].[CircularNumber],InStr(1,[Keralafields].[CircularNumber],'-')-1),[Keralafields].[CircularNumber]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularNumber]))))>1)) ORDER BY Keralafields.CircularNumber ASC;",
                  "a-b-c|a;B-2|B;Circular 5|Circular 5"},
    // + keeps Null; names compare without regard to case; LCase on a bracketed column.
    StatementCase{"SELECT Kerala.name + ' ' + Kerala.SecDesc as Search , Kerala.name as SECTION, Kerala.SecDesc as DESCRIPTION FROM Kerala WHERE (((Kerala.name)<>'THE KERALA GENERAL SALES TAX ACT') AND ((Kerala.ChapterNo)>0) AND ((LCase(([Kerala].[type])))='act')) ORDER BY Kerala.ChapterNo, Kerala.name;",
                  "Section 1 Levy of tax|Section 1|Levy of tax;<Null>|Section 2|<Null>"},
    // & joins a Null as the empty text.
    StatementCase{"SELECT ID, (CAPractice.name) & ' ' & (CAPractice.Type) AS Search, CAPractice.name AS Description FROM CAPractice WHERE (((Len(LTrim(RTrim([CAPractice].[name]))))>1)) ORDER BY CAPractice.Weight;",
                  "2|Tax |Tax;1|Audit Guide|Audit"},
    StatementCase{"Select  * from Keralafields where lcase(`ActSection`) like '%input% %tax%' ORDER BY ActSection",
                  "4|  z |input  and output tax;2|Circular 5|Input Tax credit"},
    StatementCase{"SELECT Keralafields.ID, Keralafields.ActSection FROM Keralafields WHERE (((Keralafields.ActSection) Is Not Null)) ORDER BY Keralafields.ID;",
                  "1|12-Sale;2|Input Tax credit;4|input  and output tax;5|Syntax;6|Sales Tax-inputs"},
    StatementCase{"SELECT Globalvat.fname FROM Globalvat WHERE (((Globalvat.name)='default') AND ((Globalvat.type)='default'));",
                  "<bytes 4>"},
    StatementCase{"SELECT Kerala.name AS Search, Kerala.name AS [Section] FROM Kerala where name In ('Rule 1', 'SECTION 0') And Type ='Act'",
                  "Section 0|Section 0"},
    // No blank before ORDER; dates order by date, not by their text; 'May' finds 'MAY'.
    StatementCase{"SELECT * FROM tblPurchase1 WHERE cCode='' AND cMonth= 'May'ORDER BY BillDate",
                  "4|2008-01-15|P4|1|<Null>|<Null>||MAY;2|2008-09-26|P2|50.5|<Null>|<Null>||May;1|2008-10-02|P1|100|<Null>|<Null>||May"},
    StatementCase{"SELECT * FROM  tblRptSales Where cCode =''AND cMonth= 'May'AND cAddress= ''", "|May||1.5"},
    StatementCase{"SELECT SlNo FROM tblPurchase1 WHERE BillDate>=#18/Sep/2008# AND BillDate<#12/31/2008# ORDER BY BillDate",
                  "2;1"}));

// Statements that change the store, then a look at what they left.
struct ChangeCase {
    const char* statement;
    const char* check;
    const char* rows;
};

class ChangingStatements : public StoreFixture, public ::testing::WithParamInterface<ChangeCase> {};

TEST_P(ChangingStatements, RunAsWrittenAndLeaveNoRecordSetOpen) {
    store::Recordset rs;
    rs.Open(QString::fromUtf8(GetParam().statement), cn, store::Recordset::adOpenKeyset,
            store::Recordset::adLockOptimistic);
    EXPECT_EQ(rs.State(), 0);
    EXPECT_EQ(query(QString::fromUtf8(GetParam().check)), QString::fromUtf8(GetParam().rows));
}

INSTANTIATE_TEST_SUITE_P(Store, ChangingStatements, ::testing::Values(
    ChangeCase{"DELETE * FROM  tblPurchase1  WHERE cCode='' AND cMonth='May'", "SELECT SlNo FROM tblPurchase1", "3"},
    ChangeCase{"DELETE * FROM  tblPurchase1", "SELECT Count(*) AS n FROM tblPurchase1", "0"},
    ChangeCase{" UPDATE tblMPage1   SET SL13= '0',SL14= '12.50'  WHERE cCode='' AND cYear='2008' AND cSequence='Monthly'  AND cRPFrom='may'",
               "SELECT SL13, SL14 FROM tblMPage1", "0|12.50"},
    ChangeCase{" INSERT INTO tblMPage2 (   cCode , cYear , cSequence , cRPFrom )     VALUES   ('','2008','Monthly','May')",
               "SELECT cRPFrom, FrmFlg FROM tblMPage2", "May|<Null>"}));

// One expression rule per row: operators, functions and literals of the desktop dialect.
struct ExpressionCase {
    const char* expression;
    const char* value;
};

class Expressions : public StoreFixture, public ::testing::WithParamInterface<ExpressionCase> {};

TEST_P(Expressions, FollowTheDesktopRules) {
    EXPECT_EQ(query(QStringLiteral("SELECT %1 AS v FROM Kerala WHERE ID = 2").arg(QString::fromUtf8(GetParam().expression))),
              QString::fromUtf8(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(Store, Expressions, ::testing::Values(
    ExpressionCase{"InStr('abc','B')", "2"}, ExpressionCase{"InStr(3,'abcabc','a')", "4"},
    ExpressionCase{"InStr('abc','z')", "0"}, ExpressionCase{"InStr(1,SecDesc,'-')", "<Null>"},
    ExpressionCase{"Mid('abcdef',2,3)", "bcd"}, ExpressionCase{"Mid('abcdef',4)", "def"},
    ExpressionCase{"Right('abcdef',2)", "ef"}, ExpressionCase{"Left('abc',5)", "abc"},
    ExpressionCase{"UCase('abc') & LCase('DÉF')", "ABCdéf"}, ExpressionCase{"Len(Trim('  ab  '))", "2"},
    ExpressionCase{"1 + 2 * 3", "7"}, ExpressionCase{"10 - 2 + 1", "9"}, ExpressionCase{"'a' + 1", "a1"},
    ExpressionCase{"name + SecDesc", "<Null>"}, ExpressionCase{"name & SecDesc", "Section 2"},
    ExpressionCase{"SecDesc & SecDesc", "<Null>"}, ExpressionCase{"'x' & 1 + 2", "x3"},
    ExpressionCase{"IIf(ChapterNo>0,'yes','no')", "yes"}, ExpressionCase{"#18/Dec/1982#", "1982-12-18"},
    ExpressionCase{"\"dq\"", "dq"}, ExpressionCase{"[Kerala].[name]", "Section 2"},
    ExpressionCase{"`type`", "ACT"}));

TEST_F(StoreFixture, FailedStatementRaisesTheDatabaseMessageAndChangesNothing) {
    cn.Execute(QStringLiteral("CREATE TABLE t (n INTEGER CHECK (n < 3))"));
    cn.Execute(QStringLiteral("INSERT INTO t VALUES (1), (2)"));
    try {
        cn.Execute(QStringLiteral("UPDATE t SET n = n + 1"));
        FAIL() << "no error";
    } catch (const basic::RuntimeError& e) {
        EXPECT_EQ(e.number(), -2147467259);
        EXPECT_EQ(e.source(), QStringLiteral("Vorlan store"));
        EXPECT_TRUE(e.description().contains(QStringLiteral("constraint"))) << e.description().toStdString();
    }
    EXPECT_EQ(query(QStringLiteral("SELECT n FROM t ORDER BY n")), QStringLiteral("1;2"));
    EXPECT_THROW(query(QStringLiteral("SELECT nope FROM t")), basic::RuntimeError);
}

}  // namespace
