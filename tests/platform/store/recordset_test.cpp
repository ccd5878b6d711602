// Moving, reading, writing back, filtering and cloning record sets.
#include "fixture.h"
#include "support/case_name.h"

namespace {

using store::Recordset;

using Recordsets = StoreFixture;

TEST_F(Recordsets, MovesAndRaisesThePlatformErrors) {
    Recordset rs = open(QStringLiteral("SELECT ID FROM Kerala ORDER BY ID"));
    EXPECT_EQ(rs.RecordCount(), 5);
    EXPECT_FALSE(rs.Bof());
    rs.MoveLast();
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.AbsolutePosition(), Recordset::adPosEOF);
    EXPECT_EQ(errorNumber([&] { rs.MoveNext(); }), 3021);
    EXPECT_EQ(errorNumber([&] { rs.Fields(0).Value(); }), 3021);
    rs.Move(-2);
    EXPECT_EQ(rs.Fields(QStringLiteral("id")).Value(), basic::Variant(4));
    rs.Move(-10);
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(errorNumber([&] { rs.MovePrevious(); }), 3021);
    rs.setAbsolutePosition(3);
    EXPECT_EQ(rs.Fields(0).Value(), basic::Variant(3));
    EXPECT_EQ(errorNumber([&] { rs.Fields(QStringLiteral("nope")); }), 3265);
    EXPECT_EQ(errorNumber([&] { rs.Fields(1); }), 3265);

    Recordset empty = open(QStringLiteral("SELECT ID FROM Kerala WHERE ID > 99"));
    EXPECT_TRUE(empty.Bof() && empty.Eof());
    EXPECT_EQ(errorNumber([&] { empty.MoveFirst(); }), 3021);
    rs.Close();
    EXPECT_EQ(errorNumber([&] { rs.MoveFirst(); }), 3704);
    EXPECT_EQ(errorNumber([&] { rs.Open(QStringLiteral("SELECT 1")); }), 0);   // on its active connection
    EXPECT_EQ(errorNumber([&] { rs.Open(QStringLiteral("SELECT 1")); }), 3705);
}

TEST_F(Recordsets, AddNewAndEditWriteRowsBackWithDatesAsIsoText) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM tblPurchase1 WHERE cCode='' AND cMonth= 'July'ORDER BY BillDate"), cn,
            Recordset::adOpenKeyset, Recordset::adLockOptimistic);
    for (int day : {26, 3}) {
        rs.AddNew();
        rs.Fields(QStringLiteral("BillDate")) = QDate(2008, 9, day);
        rs.Fields(QStringLiteral("Amount")) = QStringLiteral("12.50");
        rs.Fields(QStringLiteral("cMonth")) = QStringLiteral("July");
        rs.Update();
    }
    EXPECT_EQ(rs.Fields(QStringLiteral("Amount")).Value(), basic::Variant(12.5));   // as the table holds it
    rs.MoveFirst();
    rs.Fields(QStringLiteral("Party")) = QStringLiteral("edited");
    rs.MoveNext();   // leaving the row writes it
    EXPECT_EQ(query(QStringLiteral("SELECT BillDate, typeof(BillDate) AS t, Party, SlNo FROM tblPurchase1 "
                                   "WHERE cMonth='july' ORDER BY BillDate")),
              QStringLiteral("2008-09-03|text|<Null>|<Null>;2008-09-26|text|edited|<Null>"));

    Recordset readOnly = rs.Clone(Recordset::adLockReadOnly);
    EXPECT_EQ(errorNumber([&] { readOnly.AddNew(); }), 3251);
    Recordset joined = open(QStringLiteral("SELECT Kerala.name FROM Kerala, CAPractice"));
    EXPECT_EQ(errorNumber([&] { joined.Fields(0) = QStringLiteral("x"); }), 3251);
}

// A filter narrows the rows in memory: the rows left, or "3001" for a filter that is refused, which leaves
// the rows as they were.
struct FilterCase { const char* name; const char* filter; const char* want; };

const FilterCase kFilters[] = {
    {"Equals", "Amt =12.5", "2"},
    {"GreaterThan", "Amt >0", "1,2"},
    {"NotEqualPassesOverNull", "Amt <>0", "1,2,3"},
    {"LikeAnyCase", "CIRCULAR NUMBER LIKE '*TAX*'", "1,2"},
    {"BracketedNameAndPercent", "[CIRCULAR NUMBER] LIKE '%tax%'", "1,2"},
    {"TwoLikesJoinedByAnd", "CIRCULAR NUMBER LIKE '*tax*' AND CIRCULAR NUMBER LIKE '*input*'", "1"},
    {"LikeAtTheStart", "CIRCULAR NUMBER LIKE 'input*'", "1"},
    {"LikeAtTheStartFindsNone", "CIRCULAR NUMBER LIKE 'tax*'", ""},
    {"LikeAtTheEnd", "CIRCULAR NUMBER LIKE '*tax'", "2"},
    {"DoubledQuote", "CIRCULAR NUMBER LIKE 'IT''S TAX'", "2"},
    {"LikeOnANumber", "Amt LIKE '*2.5'", "2"},
    {"DoubledQuoteWithinStars", "CIRCULAR NUMBER LIKE '*it''s*'", "2"},
    {"PercentSignAsText", "CIRCULAR NUMBER LIKE '*50%*'", "3"},
    {"DatesBetween", "D>=#18/Dec/1982# AND D<#19/Dec/1982# ", "1"},
    {"EmptyFilterEveryRow", "", "1,2,3,4"},
    {"UnknownColumnRefused", "Nope =1", "3001"},
    {"TextForANumberRefused", "Amt =abc", "3001"},
    {"LikeWithoutPatternRefused", "Amt LIKE", "3001"},
    {"OrRefused", "Amt =1 OR Amt =2", "3001"},
};

class RecordsetFilters : public Recordsets, public ::testing::WithParamInterface<FilterCase> {};

TEST_P(RecordsetFilters, NarrowTheRowsInMemory) {
    cn.Execute(QStringLiteral("CREATE TABLE f (ID INTEGER, [CIRCULAR NUMBER] TEXT, D DATETIME, Amt DOUBLE)"));
    cn.Execute(QStringLiteral("INSERT INTO f VALUES (1,'Input Tax-12','1982-12-18',5), (2,'it''s tax','1982-12-19',12.5), "
                              "(3,'50% rebate',NULL,-1), (4,NULL,'1982-12-17',0)"));
    Recordset rs = open(QStringLiteral("SELECT * FROM f ORDER BY ID"));
    const basic::RuntimeError e = basic::resume([&] { rs.setFilter(QString::fromUtf8(GetParam().filter)); });
    QStringList ids;
    if (e.number()) {
        ids << QString::number(e.number());
        EXPECT_EQ(rs.RecordCount(), 4);   // the filter before stays
    }
    for (; !e.number() && !rs.Eof(); rs.MoveNext()) ids << basic::CStr(rs.Fields(0).Value());
    EXPECT_EQ(ids.join(u','), QString::fromUtf8(GetParam().want));
}

INSTANTIATE_TEST_SUITE_P(Filters, RecordsetFilters, ::testing::ValuesIn(kFilters), CaseName());

}  // namespace

// A record set that keeps filtering as the user types lets through the same rows as one that filters once,
// whatever the order of the filters, and after a row changes.
TEST_F(Recordsets, SuccessiveFiltersAgreeWithOneFilterOnFreshRows) {
    cn.Execute(QStringLiteral("CREATE TABLE w (ID INTEGER, T TEXT, N INTEGER)"));
    const char* words[] = {"input", "tax", "credit", "inputs", "taxable", "sale", "in", "put"};
    for (int i = 0; i < 64; ++i)
        cn.Execute(QStringLiteral("INSERT INTO w VALUES (%1, '%2 %3', %4)")
                       .arg(i).arg(QString::fromUtf8(words[i % 8]), QString::fromUtf8(words[(i / 8) % 8])).arg(i % 3));
    Recordset typing = open(QStringLiteral("SELECT * FROM w ORDER BY ID"));
    const auto agree = [&](const char* f) {
        typing.setFilter(QString::fromUtf8(f));
        Recordset once = open(QStringLiteral("SELECT * FROM w ORDER BY ID"));
        once.setFilter(QString::fromUtf8(f));
        EXPECT_EQ(rowsText(typing), rowsText(once)) << f;
    };
    for (const char* f : {"T LIKE '*i*'", "T LIKE '*in*'", "T LIKE '*inp*'", "T LIKE '*in*'",
                          "T LIKE '*input*' AND T LIKE '*t*'", "T LIKE '*input*' AND T LIKE '*ta*'", "T LIKE '*input*'",
                          "T LIKE 'in*'", "T LIKE 'input*'", "T LIKE '*tax'", "T LIKE '*x'", "T LIKE 'input tax'",
                          "T LIKE '*'", "N =1", "N =1 AND T LIKE '*sale*'", "N =2 AND T LIKE '*sale*'", "T LIKE 'sale*'",
                          "T LIKE 'sale'"})
        agree(f);
    // After a row changes under the filter.
    typing.setFilter(QStringLiteral("T LIKE '*credit*'"));
    typing.MoveFirst();
    typing.Fields(QStringLiteral("T")) = QStringLiteral("sale");
    typing.Update();
    for (const char* f : {"T LIKE '*credit*'", "T LIKE 'sale'"}) agree(f);
}
