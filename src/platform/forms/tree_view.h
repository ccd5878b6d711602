#pragma once
// The keyed tree of the windows. Nodes are added by key under a relative node; a handler reads the
// node through SelectedItem().Key(). Events: NodeClick and Click on the release of a left click
// (Click anywhere in the control), DblClick once for a double click, with no second Click after it.
#include <QHash>
#include <QTreeWidget>
#include <QVector>

#include "platform/forms/image_list.h"

namespace forms {

enum TreeRelationship { tvwChild = 4 };

// A node, by reference; valid while its tree lives. An empty Node is "Nothing": reading it raises
// run-time error 91, as an unset SelectedItem does.
class Node {
public:
    Node() = default;
    bool isNothing() const { return item_ == nullptr; }
    QString Key() const;
    QString Text() const;
    void setText(const QString& text);
    bool Expanded() const;
    void setExpanded(bool expanded);
    int Index() const;                          // order of adding, from 1
    QTreeWidgetItem* item() const { return item_; }
    bool operator==(const Node& other) const { return item_ == other.item_; }

private:
    friend class NodeCollection;
    friend class TreeView;
    explicit Node(QTreeWidgetItem* item) : item_(item) {}
    QTreeWidgetItem* checked() const;
    QTreeWidgetItem* item_ = nullptr;
};

class TreeView;

class NodeCollection {
public:
    explicit NodeCollection(TreeView& tree) : tree_(tree) {}

    // A node under the relative node. A missing relative raises 35601 "Element not found", a key
    // already in the tree 35602 "Key is not unique in collection". Image 0: none; selectedImage 0:
    // the node keeps its image when selected.
    Node Add(const QString& relative, TreeRelationship relationship, const QString& key, const QString& text,
             int image = 0, int selectedImage = 0);
    // A root node.
    Node Add(const QString& key, const QString& text, int image = 0, int selectedImage = 0);

    Node operator()(int index) const;           // from 1; out of range raises 35600
    Node operator()(const QString& key) const;  // an unknown key raises 35601
    int Count() const { return static_cast<int>(order_.size()); }
    void Clear();

private:
    friend class Node;
    friend class TreeView;
    Node insert(QTreeWidgetItem* parent, const QString& key, const QString& text, int image, int selectedImage);

    TreeView& tree_;
    QHash<QString, QTreeWidgetItem*> byKey_;
    QVector<QTreeWidgetItem*> order_;
};

class TreeView : public QTreeWidget {
    Q_OBJECT
public:
    explicit TreeView(QWidget* parent = nullptr);

    NodeCollection Nodes;

    Node SelectedItem() const;
    void setSelectedItem(const Node& node);
    void setImageList(const ImageList* images);
    const ImageList* imageList() const { return images_; }
    QString ToolTipText() const { return toolTip(); }
    void setToolTipText(const QString& text) { setToolTip(text); }
    // The control's own setting: true for a shown control on a window not yet shown.
    bool Visible() const { return parentWidget() ? isVisibleTo(parentWidget()) : isVisible(); }
    void Refresh();

signals:
    void Click();
    void DblClick();
    void NodeClick(forms::Node node);
    void KeyDown(int keyCode, int shift);
    void MouseDown(int button, int shift, int x, int y);    // x, y in twips
    void MouseMove(int button, int shift, int x, int y);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class NodeCollection;
    void showIcon(QTreeWidgetItem* item, bool selected) const;

    const ImageList* images_ = nullptr;
    QTreeWidgetItem* pressedItem_ = nullptr;
    bool releaseEndsDoubleClick_ = false;
};

}  // namespace forms
