// Opening files by the system's connection strings, keys, the shared handle and its transactions.
#include "fixture.h"
#include "support/case_name.h"

namespace {

using Connections = StoreFixture;

// A keyed file and the return file opened by each form of the string; a wrong key, no key or a missing
// file refused (error 0: it opens), and a missing file not made by the attempt.
struct OpenCase { const char* name; QString file, tail; int error; bool lowerCaseForm = false; };

const OpenCase kOpens[] = {
    {"KeyedFile", "\\1309214SD02.mdb;", "Uid=admin;Pwd=lantern", 0},
    {"TrailingSemicolon", "\\1309214SD02.mdb;", "Uid=admin;Pwd=lantern;", 0},
    {"LowerCaseWordsAndNoUser", "/1309214SD02.mdb", "", 0, true},
    {"WrongKey", "\\1309214SD02.mdb;", "Uid=admin;Pwd=bergamot;", -2147467259},
    {"NoKey", "\\1309214SD02.mdb;", "Uid=admin;", -2147467259},
    {"FileWithoutKey", "\\nwForm10DB.mdb", "", 0},
    {"MissingFile", "\\missing.mdb", "", -2147467259},
};

class ConnectionStrings : public StoreFixture, public ::testing::WithParamInterface<OpenCase> {};

TEST_P(ConnectionStrings, OpenByEveryFormOfTheStringAndRefuseAnyOtherKey) {
    store::Connection keyed;
    keyed.Create(connectionString(QStringLiteral("\\1309214SD02.mdb;"), QStringLiteral("Uid=admin;Pwd=lantern")));
    keyed.Execute(QStringLiteral("CREATE TABLE t (x)"));
    const OpenCase& c = GetParam();
    const QString string = c.lowerCaseForm
                               ? QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=%1%2;uid=;PWD=lantern").arg(dir.path(), c.file)
                               : connectionString(c.file, c.tail);
    store::Connection other;
    EXPECT_EQ(errorNumber([&] { other.Open(string); }), c.error);
    EXPECT_EQ(other.State(), c.error ? 0 : 1);
    if (other.State()) other.Close();
    EXPECT_FALSE(QFile::exists(dir.path() + QStringLiteral("/missing.mdb")));
}

INSTANTIATE_TEST_SUITE_P(Strings, ConnectionStrings, ::testing::ValuesIn(kOpens), CaseName());

TEST_F(Connections, ShareOneHandleSoATransactionCoversEveryConnection) {
    store::Connection second;
    second.Open(connectionString());
    EXPECT_EQ(cn.BeginTrans(), 1);
    second.Execute(QStringLiteral("DELETE * FROM  tblPurchase1"));
    EXPECT_EQ(cn.BeginTrans(), 2);
    EXPECT_EQ(second.Execute(QStringLiteral("INSERT INTO tblMPage2 (cCode) VALUES ('')")), 1);
    cn.RollbackTrans();
    EXPECT_EQ(query(QStringLiteral("SELECT Count(*) AS n FROM tblMPage2")), QStringLiteral("0"));
    EXPECT_EQ(query(QStringLiteral("SELECT Count(*) AS n FROM tblPurchase1")), QStringLiteral("0"));
    cn.RollbackTrans();
    EXPECT_EQ(query(QStringLiteral("SELECT Count(*) AS n FROM tblPurchase1")), QStringLiteral("4"));
    EXPECT_EQ(errorNumber([&] { cn.CommitTrans(); }), -2147467259);

    second.BeginTrans();
    cn.Execute(QStringLiteral("DELETE * FROM  tblRptSales"));
    second.CommitTrans();
    cn.Close();
    cn.Open();
    EXPECT_EQ(query(QStringLiteral("SELECT Count(*) AS n FROM tblRptSales")), QStringLiteral("0"));
}

// On a full disk the database rolls the whole transaction back by itself: no statement after that
// failure runs outside the transaction, and the rollback that follows is quiet.
TEST_F(Connections, TransactionEndedByTheDatabaseTakesNoFurtherStatement) {
    cn.BeginTrans();
    cn.Execute(QStringLiteral("DELETE * FROM  tblPurchase1"));
    cn.Execute(QStringLiteral("PRAGMA max_page_count = ") + query(QStringLiteral("PRAGMA page_count")));
    const auto refused = [&](const std::function<void()>& statement) {
        const basic::RuntimeError e = basic::resume(statement);
        return e.description() == QLatin1String("database or disk is full") ? e.number() : 0;
    };
    EXPECT_EQ(refused([&] { cn.Execute("INSERT INTO tblPurchase1 (Party) VALUES ('" + QString(20000, u'x') + "')"); }),
              -2147467259);
    EXPECT_EQ(refused([&] { cn.Execute(QStringLiteral("INSERT INTO tblMPage2 (cCode) VALUES ('')")); }), -2147467259);
    EXPECT_EQ(refused([&] { cn.ConfirmTrans(); }), -2147467259);
    EXPECT_EQ(errorNumber([&] { cn.RollbackTrans(); }), 0);
    EXPECT_EQ(query(QStringLiteral("SELECT Count(*) AS n FROM tblMPage2")), QStringLiteral("0"));
    EXPECT_EQ(query(QStringLiteral("SELECT Count(*) AS n FROM tblPurchase1")), QStringLiteral("4"));
    EXPECT_EQ(cn.BeginTrans(), 1);
}

}  // namespace
