#include "platform/forms/list_box.h"

#include "platform/forms/errors.h"

namespace forms {

namespace {
constexpr int kItemDataRole = Qt::UserRole;

// Holds Click back while the entries themselves change.
class Quiet {
public:
    explicit Quiet(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Quiet() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};
}  // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    // The chosen entry is the selected one: a focused list with a current but unselected row has none.
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!quiet_) emit Click();
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { emit DblClick(); });
}

void ListBox::AddItem(const QString& text, int index) {
    Quiet quiet(quiet_);
    if (index < -1 || index > count()) throw invalidArrayIndex();
    auto* item = new QListWidgetItem(text);
    item->setData(kItemDataRole, 0);
    const int row = index == -1 ? count() : index;
    insertItem(row, item);
    newIndex_ = row;
}

void ListBox::RemoveItem(int index) {
    Quiet quiet(quiet_);
    delete checkedItem(index);
}

void ListBox::Clear() {
    Quiet quiet(quiet_);
    clear();
    newIndex_ = -1;
}

int ListBox::ListIndex() const {
    const auto selected = selectedItems();
    return selected.isEmpty() ? -1 : row(selected.front());
}

void ListBox::setListIndex(int index) {
    if (index < -1 || index >= count()) throw basic::RuntimeError(380, QStringLiteral("Invalid property value"));
    if (index == -1) {
        clearSelection();
        setCurrentItem(nullptr);
    } else {
        setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
    }
}

QString ListBox::Text() const {
    const int index = ListIndex();
    return index == -1 ? QString() : item(index)->text();
}

QListWidgetItem* ListBox::checkedItem(int index) const {
    if (index < 0 || index >= count()) throw invalidArrayIndex();
    return item(index);
}

QString ListBox::List(int index) const { return checkedItem(index)->text(); }

int ListBox::ItemData(int index) const { return checkedItem(index)->data(kItemDataRole).toInt(); }

void ListBox::setItemData(int index, int data) { checkedItem(index)->setData(kItemDataRole, data); }

int ListBox::FindString(const QString& prefix) const {
    for (int i = 0; i < count(); ++i)
        if (item(i)->text().startsWith(prefix, Qt::CaseInsensitive)) return i;
    return -1;
}

}  // namespace forms
