#pragma once
// A table's name and a keyed collection of them: which tables each library file holds.
#include <QString>
#include <memory>
#include <vector>

namespace shell {

class clsTableCollection;

class clsTable {
public:
    // The collection the table belongs to; reading it when none is set gives a new empty one.
    std::shared_ptr<clsTableCollection> getClsTableCollection();
    void setClsTableCollection(const std::shared_ptr<clsTableCollection>& owner) { owner_ = owner; }
    const QString& TableName() const { return tableName_; }
    void setTableName(const QString& name) { tableName_ = name; }

private:
    std::weak_ptr<clsTableCollection> owner_;  // weak: the collection owns its tables, not the other way
    std::shared_ptr<clsTableCollection> orphanOwner_;  // the one made on a read with none set
    QString tableName_;
};

// Members keyed by table name; keys compare without regard to letter case.
class clsTableCollection {
public:
    std::shared_ptr<clsTable> Add(const QString& TableName, const std::shared_ptr<clsTableCollection>& owner,
                                  const QString& key);
    // Index counts from 1; an unknown key or index raises run-time error 5.
    std::shared_ptr<clsTable> Item(int index) const;
    std::shared_ptr<clsTable> Item(const QString& key) const;
    int Count() const { return int(mCol.size()); }
    void Remove(int index);
    void Remove(const QString& key);
    // True when Item finds the key; never raises.
    bool Contains(const QString& key) const;

    auto begin() const { return mCol.begin(); }  // NewEnum
    auto end() const { return mCol.end(); }

private:
    struct Member {
        QString key;  // empty when added without a key
        std::shared_ptr<clsTable> table;
    };
    std::vector<Member> mCol;
    int find(const QString& key) const;

public:
    using const_iterator = std::vector<Member>::const_iterator;
};

}  // namespace shell
