// DataGrid over a record set of 1,000 rows: the current row, bookmarks through filters, columns.
#include "platform/forms/data_grid.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "platform/basic/runtime_error.h"
#include "platform/store/connection.h"

using basic::Variant;

namespace {

struct Numbers {
    QTemporaryDir dir;
    store::Connection cn;
    store::Recordset rs;
    Numbers() {
        cn.Create(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dir.filePath("n.mdb"));
        cn.Execute(QStringLiteral("CREATE TABLE N (ID INTEGER, Label TEXT)"));
        cn.BeginTrans();
        for (int i = 1; i <= 1000; ++i)
            cn.Execute(QStringLiteral("INSERT INTO N VALUES (%1, 'row %1')").arg(i));
        cn.CommitTrans();
        rs.setCursorLocation(store::Recordset::adUseClient);
        rs.Open(QStringLiteral("SELECT ID, Label FROM N ORDER BY ID"), cn, store::Recordset::adOpenStatic);
    }
};

int errorOf(const std::function<void()>& f) { return basic::resume(f).number(); }

}  // namespace

TEST(DataGrid, CurrentRowAndBookmarksFollowTheFilter) {
    Numbers n;
    forms::DataGrid grid;
    grid.setDataSource(n.rs);
    ASSERT_EQ(grid.RowCount(), 1000);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_TRUE(grid.GetBookmark(-1).isNull() && grid.GetBookmark(1000).isNull());
    const Variant b500 = grid.GetBookmark(499);
    grid.setBookmark(b500);
    EXPECT_EQ(grid.Row(), 499);
    EXPECT_EQ(grid.ColumnText(1), QStringLiteral("row 500"));
    EXPECT_EQ(basic::CStr(n.rs.Fields(0).Value()), QStringLiteral("500"));   // the record set follows

    n.rs.setFilter(QStringLiteral("ID >=990"));
    grid.Refresh();
    EXPECT_EQ(grid.RowCount(), 11);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.ColumnText(0), QStringLiteral("990"));
    EXPECT_EQ(errorOf([&] { grid.setBookmark(b500); }), 6153);
    EXPECT_EQ(grid.Row(), 0);
    grid.SelBookmarksAdd(grid.GetBookmark(2));
    EXPECT_EQ(grid.SelBookmarks(0), grid.GetBookmark(2));
    grid.SelBookmarksRemove(0);
    EXPECT_EQ(grid.SelBookmarksCount(), 0);

    n.rs.setFilter(QStringLiteral("ID <0"));
    grid.Refresh();
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_TRUE(grid.Bookmark().isNull());
    EXPECT_TRUE(grid.ColumnValue(1).isNull());
    EXPECT_EQ(errorOf([&] { grid.setBookmark(b500); }), 6153);
}

TEST(DataGrid, ColumnsKeepTheirSettingsUntilRebound) {
    Numbers n;
    forms::DataGrid grid;
    grid.setDataSource(n.rs);
    ASSERT_EQ(grid.ColumnCount(), 2);
    EXPECT_EQ(grid.ColumnCaption(1), QStringLiteral("Label"));
    grid.setColumnWidth(1, 3000);
    EXPECT_EQ(grid.ColumnWidth(1), 3000);
    EXPECT_EQ(grid.columnWidth(1), 200);
    grid.setColumnVisible(0, false);
    EXPECT_TRUE(grid.isColumnHidden(0));
    EXPECT_EQ(errorOf([&] { grid.ColumnWidth(2); }), 6148);
    EXPECT_EQ(errorOf([&] { grid.setColumnVisible(-1, true); }), 6148);
    grid.ReBind();   // keeps the fields it has
    EXPECT_TRUE(grid.isColumnHidden(0));
    grid.ClearFields();
    grid.ReBind();
    EXPECT_FALSE(grid.isColumnHidden(0));
    EXPECT_EQ(grid.ColumnWidth(1), 1500);
}
