// Opening files by the system's connection strings, keys, the shared handle and its transactions.
#include "fixture.h"

namespace {

using Connections = StoreFixture;

TEST_F(Connections, OpenByEveryFormOfTheStringAndRefuseAnyOtherKey) {
    const QString sd02 = QStringLiteral("\\1309214SD02.mdb;");
    store::Connection keyed;
    keyed.Create(connectionString(sd02, QStringLiteral("Uid=admin;Pwd=lantern")));
    keyed.Execute(QStringLiteral("CREATE TABLE t (x)"));
    const struct { QString connectionString; int error; } cases[] = {   // error 0: it opens
        {connectionString(sd02, QStringLiteral("Uid=admin;Pwd=lantern")), 0},
        {connectionString(sd02, QStringLiteral("Uid=admin;Pwd=lantern;")), 0},
        {QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=%1/1309214SD02.mdb;uid=;PWD=lantern")
             .arg(dir.path()), 0},
        {connectionString(sd02, QStringLiteral("Uid=admin;Pwd=bergamot;")), -2147467259},
        {connectionString(sd02, QStringLiteral("Uid=admin;")), -2147467259},
        {connectionString(QStringLiteral("\\nwForm10DB.mdb")), 0},
        {connectionString(QStringLiteral("\\missing.mdb")), -2147467259},
    };
    for (const auto& c : cases) {
        store::Connection other;
        EXPECT_EQ(errorNumber([&] { other.Open(c.connectionString); }), c.error) << c.connectionString.toStdString();
        EXPECT_EQ(other.State(), c.error ? 0 : 1);
        if (other.State()) other.Close();
    }
    EXPECT_FALSE(QFile::exists(dir.path() + QStringLiteral("/missing.mdb")));
}

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
