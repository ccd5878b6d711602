#include "shell/cls_table.h"

#include "platform/basic/runtime_error.h"

namespace shell {

namespace {
basic::RuntimeError invalidArgument() {
    return basic::RuntimeError(5, QStringLiteral("Invalid procedure call or argument"));
}
}  // namespace

std::shared_ptr<clsTableCollection> clsTable::getClsTableCollection() {
    auto owner = owner_.lock();
    if (!owner) {
        owner = std::make_shared<clsTableCollection>();
        owner_ = owner;
        orphanOwner_ = owner;
    }
    return owner;
}

std::shared_ptr<clsTable> clsTableCollection::Add(const QString& TableName,
                                                  const std::shared_ptr<clsTableCollection>& owner,
                                                  const QString& key) {
    if (!key.isEmpty() && find(key) >= 0)
        throw basic::RuntimeError(457, QStringLiteral("This key is already associated with an element of this collection"));
    auto table = std::make_shared<clsTable>();
    table->setTableName(TableName);
    table->setClsTableCollection(owner);
    mCol.push_back({key, table});
    return table;
}

int clsTableCollection::find(const QString& key) const {
    for (size_t i = 0; i < mCol.size(); ++i)
        if (!mCol[i].key.isEmpty() && mCol[i].key.compare(key, Qt::CaseInsensitive) == 0) return int(i);
    return -1;
}

std::shared_ptr<clsTable> clsTableCollection::Item(int index) const {
    if (index < 1 || index > Count()) throw invalidArgument();
    return mCol[size_t(index - 1)].table;
}

std::shared_ptr<clsTable> clsTableCollection::Item(const QString& key) const {
    const int i = find(key);
    if (i < 0) throw invalidArgument();
    return mCol[size_t(i)].table;
}

void clsTableCollection::Remove(int index) {
    if (index < 1 || index > Count()) throw invalidArgument();
    mCol.erase(mCol.begin() + (index - 1));
}

void clsTableCollection::Remove(const QString& key) {
    const int i = find(key);
    if (i < 0) throw invalidArgument();
    mCol.erase(mCol.begin() + i);
}

bool clsTableCollection::Contains(const QString& key) const { return find(key) >= 0; }

}  // namespace shell
