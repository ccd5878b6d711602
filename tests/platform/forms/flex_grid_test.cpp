#include "platform/forms/flex_grid.h"

#include "platform/forms/twips.h"
#include "support/printers.h"

#include <QTest>
#include <functional>
#include <gtest/gtest.h>

namespace {

// A grid shaped as the bill grids are: ten columns, one fixed row and column, a few hundred rows.
struct Grid {
    forms::FlexGrid g;
    QStringList events;
    Grid(int rows = 300) {
        g.Move(0, 0, 9000, 3000);
        g.setCols(10);
        g.setRows(rows);
        g.setRowHeightMin(300);
        g.setRowHeight(0, 400);
        for (int c = 0; c < 10; ++c) g.setColWidth(c, c == 2 ? 3450 : 1100);
        for (int r = 0; r < rows; ++r) g.setTextMatrix(r, 0, QString::number(r));
        g.show();
        QObject::connect(&g, &forms::FlexGrid::LeaveCell, [this] { note("L"); });
        QObject::connect(&g, &forms::FlexGrid::EnterCell, [this] { note("E"); });
    }
    void note(const char* what) { events << QStringLiteral("%1%2,%3").arg(what).arg(g.Row()).arg(g.Col()); }
    QPoint pixelOf(int r, int c) {
        g.setRow(r);
        g.setCol(c);
        return QPoint(forms::twips(g.CellLeft() + g.CellWidth() / 2), forms::twips(g.CellTop() + g.CellHeight() / 2));
    }
    void click(QPoint grid) { QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, grid - g.viewport()->pos()); }
};

TEST(FlexGrid, MovingTheCurrentCellRaisesLeaveThenEnterOnce) {
    const struct { const char* name; std::function<void(Grid&)> act; QStringList events; } cases[] = {
        {"same row", [](Grid& t) { t.g.setRow(1); }, {}},
        {"new row", [](Grid& t) { t.g.setRow(2); }, {"L1,1", "E2,1"}},
        {"new col", [](Grid& t) { t.g.setCol(9); }, {"L1,1", "E1,9"}},
        {"click a cell", [](Grid& t) { t.click(QPoint(forms::twips(1100 + 3450 + 500), forms::twips(400 + 300 + 150))); },
         {"L1,1", "E2,2"}},
        {"click the caption row", [](Grid& t) { t.click(QPoint(forms::twips(1600), forms::twips(200))); }, {}},
        {"click the current cell", [](Grid& t) { t.click(QPoint(forms::twips(1600), forms::twips(550))); }, {}},
        {"down key", [](Grid& t) { QTest::keyClick(&t.g, Qt::Key_Down); }, {"L1,1", "E2,1"}},
    };
    for (const auto& tc : cases) {
        Grid t;
        tc.act(t);
        EXPECT_EQ(t.events, tc.events) << tc.name;
    }
}

TEST(FlexGrid, CellGeometryPointsAtTheCellEvenWhenScrolled) {
    Grid t(5000);
    const int targets[][2] = {{1, 1}, {7, 9}, {4000, 2}, {4999, 9}, {2, 1}, {4999, 1}};
    for (const auto& rc : targets) {
        const QPoint at = t.pixelOf(rc[0], rc[1]);
        EXPECT_LE(t.g.CellTop() + t.g.CellHeight(), t.g.Height()) << rc[0];
        EXPECT_LE(t.g.CellLeft() + t.g.CellWidth(), t.g.Width()) << rc[1];
        EXPECT_EQ(t.g.CellHeight(), forms::toTwips(forms::twips(300) - 1));
        // Step to a neighbour that is in view too, then click where the geometry said the target is.
        const int top = t.g.TopRow(), left = t.g.LeftCol();
        t.g.setRow(rc[0] > top ? rc[0] - 1 : rc[0] + 1);
        t.g.setCol(rc[1] > left ? rc[1] - 1 : rc[1] + 1);
        ASSERT_EQ(t.g.TopRow(), top);
        ASSERT_EQ(t.g.LeftCol(), left);
        t.click(at);
        EXPECT_EQ(t.g.Row(), rc[0]);
        EXPECT_EQ(t.g.Col(), rc[1]);
    }
}

TEST(FlexGrid, ReshapingKeepsTextAndClampsTheCursorSilently) {
    Grid t(6);
    t.g.setTextMatrix(5, 9, "x");
    t.g.setTextMatrix(2, 3, "y");
    t.g.setRow(5);
    t.g.setCol(9);
    t.events.clear();
    t.g.setCols(5);
    t.g.setRows(3);
    EXPECT_EQ(t.events, QStringList());
    EXPECT_EQ(t.g.Row(), 2);
    EXPECT_EQ(t.g.Col(), 4);
    EXPECT_EQ(t.g.TextMatrix(2, 3), "y");
    t.g.setRows(6);
    t.g.setCols(10);
    EXPECT_EQ(t.g.TextMatrix(5, 9), "");
    t.g.Clear();
    EXPECT_EQ(t.g.TextMatrix(2, 3), "");
    EXPECT_EQ(t.g.Rows(), 6);
}

}  // namespace
