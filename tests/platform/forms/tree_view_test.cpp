#include "platform/forms/tree_view.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/forms/runtime_errors.h"
#include "support/printers.h"

namespace {

// A tree shaped like the main window's: a root, "States" under it, states under that, one more under the root.
class TreeViewClicks : public testing::Test {
protected:
    void SetUp() override {
        tree.Nodes.Add("One", "Vorlan on VAT laws", 1);
        tree.Nodes.Add("One", forms::tvwChild, "Two", "States", 1, 2);
        tree.Nodes.Add("Two", forms::tvwChild, "And", "Andhra Pradesh", 1, 2);
        tree.Nodes.Add("Two", forms::tvwChild, "Ker", "Kerala", 1, 2);
        tree.Nodes.Add("One", forms::tvwChild, "Centr", "Central Sales Tax", 1, 2);
        tree.Nodes(1).setExpanded(true);
        tree.Nodes(2).setExpanded(true);
        forms::wire(&tree, &forms::TreeView::Click, &tree, [this] { events << "Click:" + tree.SelectedItem().Key(); });
        forms::wire(&tree, &forms::TreeView::DblClick, &tree,
                    [this] { events << "DblClick:" + tree.SelectedItem().Key(); });
        forms::wire(&tree, &forms::TreeView::NodeClick, &tree,
                    [this](const forms::Node& node) { events << "NodeClick:" + node.Key(); });
        tree.resize(300, 300);
        tree.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    }
    QPoint at(const QString& key) { return tree.visualItemRect(tree.Nodes(key).item()).center(); }

    forms::TreeView tree;
    QStringList events;
};

// Through the window system, so that a double click arrives as a user's does: press, release, press,
// double click, release. A double click is one click and one double click: no second Click on its release.
TEST_F(TreeViewClicks, MouseGivesTheEventsWithTheNodeSelected) {
    for (const auto& [name, doubleClick] : {std::pair{"Ker", false}, {"One", false}, {"And", true}, {"Centr", true}}) {
        const QString key = QString::fromUtf8(name);
        const QPoint pos = tree.viewport()->mapTo(&tree, at(key));
        events.clear();
        if (doubleClick)
            QTest::mouseDClick(tree.windowHandle(), Qt::LeftButton, {}, pos);
        else
            QTest::mouseClick(tree.windowHandle(), Qt::LeftButton, {}, pos);
        EXPECT_EQ(tree.SelectedItem().Key(), key);
        QStringList want{"NodeClick:" + key, "Click:" + key};
        if (doubleClick) want << "DblClick:" + key;
        EXPECT_EQ(events, want);
    }
}

TEST_F(TreeViewClicks, ClickBesideTheNodesKeepsTheSelection) {
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, at("Ker"));
    events.clear();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, QPoint(150, 290));
    EXPECT_EQ(tree.SelectedItem().Key(), QStringLiteral("Ker"));
    EXPECT_EQ(events, QStringList{"Click:Ker"});
}

TEST(TreeViewNodes, SelectedNodeShowsItsSelectedImage) {
    forms::ImageList images;
    QPixmap closed(16, 16), open(16, 16);
    closed.fill(Qt::red);
    open.fill(Qt::green);
    images.Add(QIcon(closed));
    images.Add(QIcon(open));
    forms::TreeView tree;
    tree.setImageList(&images);
    tree.Nodes.Add("One", "Kerala Value Added  Tax Act", 1);
    tree.Nodes.Add("One", forms::tvwChild, "VAT", "Sectionwise & Subjectwise", 1, 2);
    auto colour = [](const forms::Node& node) { return node.item()->icon(0).pixmap(16, 16).toImage().pixel(8, 8); };
    EXPECT_EQ(colour(tree.Nodes("VAT")), QColor(Qt::red).rgb());
    tree.setSelectedItem(tree.Nodes("VAT"));
    EXPECT_EQ(colour(tree.Nodes("VAT")), QColor(Qt::green).rgb());
    tree.setSelectedItem(tree.Nodes("One"));   // no selected image of its own: keeps image 1
    EXPECT_EQ(colour(tree.Nodes("One")), QColor(Qt::red).rgb());
    EXPECT_EQ(colour(tree.Nodes("VAT")), QColor(Qt::red).rgb());
}

}  // namespace
