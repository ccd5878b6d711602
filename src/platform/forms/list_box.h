#pragma once
// The list box of the windows: texts with a number each (ItemData), indices from 0, ListIndex -1 for
// no entry. Click follows every change of the chosen entry, by mouse, keys or by setting ListIndex,
// but not AddItem, RemoveItem or Clear.
#include <QListWidget>

namespace forms {

class ListBox : public QListWidget {
    Q_OBJECT
public:
    explicit ListBox(QWidget* parent = nullptr);

    void AddItem(const QString& text, int index = -1);   // -1 appends
    void RemoveItem(int index);
    void Clear();
    int ListCount() const { return count(); }
    int ListIndex() const;
    void setListIndex(int index);                        // -1 chooses none; beyond the list raises 380
    QString Text() const;                                // the chosen entry's text, "" with none
    QString List(int index) const;                       // out of range raises 381
    int ItemData(int index) const;
    void setItemData(int index, int data);
    int NewIndex() const { return newIndex_; }           // where the last AddItem put its entry; -1 after Clear

    // The first entry, from the top, whose text starts with the prefix without regard to case; -1 if none.
    int FindString(const QString& prefix) const;

signals:
    void Click();
    void DblClick();

private:
    QListWidgetItem* checkedItem(int index) const;

    int newIndex_ = -1;
    bool quiet_ = false;
};

}  // namespace forms
