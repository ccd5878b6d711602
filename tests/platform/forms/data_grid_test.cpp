// DataGrid over a record set of 1,000 rows: the current row and bookmarks through filters.
#include "platform/forms/data_grid.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "platform/basic/runtime_error.h"

using basic::Variant;

TEST(DataGrid, CurrentRowAndBookmarksFollowTheFilter) {
    QTemporaryDir dir;
    store::Connection cn;
    cn.Create(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dir.filePath("n.mdb"));
    cn.Execute(QStringLiteral("CREATE TABLE N (ID INTEGER, Label TEXT)"));
    cn.Execute(QStringLiteral("INSERT INTO N WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM i WHERE n < 1000) "
                              "SELECT n, 'row ' || n FROM i"));
    store::Recordset rs;
    rs.setCursorLocation(store::Recordset::adUseClient);
    rs.Open(QStringLiteral("SELECT ID, Label FROM N ORDER BY ID"), cn, store::Recordset::adOpenStatic);
    forms::DataGrid grid;
    grid.setDataSource(rs);
    ASSERT_EQ(grid.RowCount(), 1000);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_TRUE(grid.GetBookmark(-1).isNull() && grid.GetBookmark(1000).isNull());
    const Variant b500 = grid.GetBookmark(499), b995 = grid.GetBookmark(994);
    grid.setBookmark(b500);
    EXPECT_EQ(grid.Row(), 499);
    EXPECT_EQ(grid.ColumnText(1), QStringLiteral("row 500"));
    EXPECT_EQ(basic::CStr(rs.Fields(0).Value()), QStringLiteral("500"));   // the record set follows

    rs.setFilter(QStringLiteral("ID >=990"));
    grid.Refresh();
    EXPECT_EQ(grid.RowCount(), 11);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.ColumnText(0), QStringLiteral("990"));
    EXPECT_EQ(basic::resume([&] { grid.setBookmark(b500); }).number(), 6153);
    EXPECT_EQ(grid.Row(), 0);
    grid.setBookmark(b995);   // a bookmark taken before the filter finds its row through it
    EXPECT_EQ(grid.ColumnText(0), QStringLiteral("995"));
    grid.SelBookmarksAdd(grid.GetBookmark(2));
    EXPECT_EQ(grid.SelBookmarks(0), grid.GetBookmark(2));
    grid.SelBookmarksRemove(0);
    EXPECT_EQ(grid.SelBookmarksCount(), 0);

    rs.setFilter(QStringLiteral("ID <0"));
    grid.Refresh();
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_TRUE(grid.Bookmark().isNull());
    EXPECT_TRUE(grid.ColumnValue(1).isNull());
    EXPECT_EQ(basic::resume([&] { grid.setBookmark(b500); }).number(), 6153);
}

