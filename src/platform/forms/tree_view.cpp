#include "platform/forms/tree_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include "platform/forms/errors.h"
#include "platform/forms/keys.h"
#include "platform/forms/twips.h"

namespace forms {

namespace {
constexpr int kKeyRole = Qt::UserRole;
constexpr int kImageRole = Qt::UserRole + 1;
constexpr int kSelectedImageRole = Qt::UserRole + 2;
}  // namespace

// ---- Node

QTreeWidgetItem* Node::checked() const {
    if (!item_) throw objectNotSet();
    return item_;
}

QString Node::Key() const { return checked()->data(0, kKeyRole).toString(); }
QString Node::Text() const { return checked()->text(0); }
void Node::setText(const QString& text) { checked()->setText(0, text); }
bool Node::Expanded() const { return checked()->isExpanded(); }
void Node::setExpanded(bool expanded) { checked()->setExpanded(expanded); }

int Node::Index() const {
    auto* tree = static_cast<TreeView*>(checked()->treeWidget());
    return static_cast<int>(tree->Nodes.order_.indexOf(item_)) + 1;
}

// ---- NodeCollection

Node NodeCollection::Add(const QString& relative, TreeRelationship, const QString& key, const QString& text,
                         int image, int selectedImage) {
    auto parent = byKey_.constFind(relative);
    if (parent == byKey_.constEnd()) throw elementNotFound();
    return insert(*parent, key, text, image, selectedImage);
}

Node NodeCollection::Add(const QString& key, const QString& text, int image, int selectedImage) {
    return insert(nullptr, key, text, image, selectedImage);
}

Node NodeCollection::insert(QTreeWidgetItem* parent, const QString& key, const QString& text, int image,
                            int selectedImage) {
    if (byKey_.contains(key)) throw keyNotUnique();
    auto* item = new QTreeWidgetItem(QStringList{text});
    item->setData(0, kKeyRole, key);
    item->setData(0, kImageRole, image);
    item->setData(0, kSelectedImageRole, selectedImage);
    tree_.showIcon(item, false);
    if (parent)
        parent->addChild(item);
    else
        tree_.addTopLevelItem(item);
    byKey_.insert(key, item);
    order_.append(item);
    return Node(item);
}

Node NodeCollection::operator()(int index) const {
    if (index < 1 || index > Count()) throw indexOutOfBounds();
    return Node(order_[index - 1]);
}

Node NodeCollection::operator()(const QString& key) const {
    auto it = byKey_.constFind(key);
    if (it == byKey_.constEnd()) throw elementNotFound();
    return Node(*it);
}

void NodeCollection::Clear() {
    byKey_.clear();
    order_.clear();
    tree_.clear();
}

// ---- TreeView

TreeView::TreeView(QWidget* parent) : QTreeWidget(parent), Nodes(*this) {
    setHeaderHidden(true);
    setColumnCount(1);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setMouseTracking(true);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now, QTreeWidgetItem* before) {
        if (before) showIcon(before, false);
        if (now) showIcon(now, true);
    });
}

Node TreeView::SelectedItem() const { return Node(currentItem()); }

void TreeView::setSelectedItem(const Node& node) { setCurrentItem(node.item()); }

void TreeView::setImageList(const ImageList* images) {
    images_ = images;
    for (auto* item : Nodes.order_) showIcon(item, item == currentItem());
}

void TreeView::Refresh() { viewport()->update(); }

void TreeView::showIcon(QTreeWidgetItem* item, bool selected) const {
    if (!images_) return;
    int image = item->data(0, kImageRole).toInt();
    if (selected && item->data(0, kSelectedImageRole).toInt() != 0) image = item->data(0, kSelectedImageRole).toInt();
    item->setIcon(0, images_->image(image));
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    releaseEndsDoubleClick_ = false;
    pressedItem_ = itemAt(event->position().toPoint());
    emit MouseDown(buttonMask(event->button()), shiftMask(event->modifiers()), toTwips(event->position().toPoint().x()),
                   toTwips(event->position().toPoint().y()));
    QTreeWidget::mousePressEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton) return;
    // The release that ends a double click is no click of its own.
    if (releaseEndsDoubleClick_) {
        releaseEndsDoubleClick_ = false;
        return;
    }
    QTreeWidgetItem* item = itemAt(event->position().toPoint());
    if (item && item == pressedItem_) emit NodeClick(Node(item));
    emit Click();
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeWidget::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton) return;
    releaseEndsDoubleClick_ = true;
    emit DblClick();
}

void TreeView::mouseMoveEvent(QMouseEvent* event) {
    emit MouseMove(buttonMask(event->buttons()), shiftMask(event->modifiers()), toTwips(event->position().toPoint().x()),
                   toTwips(event->position().toPoint().y()));
    QTreeWidget::mouseMoveEvent(event);
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    emit KeyDown(keyCode(*event), shiftMask(event->modifiers()));
    QTreeWidget::keyPressEvent(event);
}

}  // namespace forms
