#pragma once
// The find bar of a document view: Ctrl+F in the view's window opens it over the foot of the view. It finds
// as the user types, without regard to case, lights every hit and says "3 of 17"; Enter or F3 goes to the
// next hit, Shift+Enter or Shift+F3 to the one before, both round the ends; Esc closes it and its marks.
// For RTF, HTML and text documents, and for a PDF in the text of its pages.
#include <QFrame>
#include <vector>

#include "platform/documents/hit_marks.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace documents {

class DocumentView;

class FindBar : public QFrame {
    Q_OBJECT
public:
    // Gives the view its find bar and the keys of its window; the bar is the view's child.
    static FindBar* attach(DocumentView* view);

    QLineEdit* field;
    QLabel* count;
    QToolButton *previous, *next, *closer;

    void open();             // shows the bar, the field's text selected, and finds it from the top of the view
    void close();
    void findNext();
    void findPrevious();
    int hitCount() const { return int(hits_.size()); }
    int currentHit() const { return current_; }  // index of hits, -1 when none

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit FindBar(DocumentView* view);
    void collect();          // the hits of the field's text
    int firstFrom(int from) const;
    void find();             // collect, the current one the first from `from_` on
    void go(int step);
    void show(int current);
    void place();
    DocumentView* view_;
    std::vector<TextRange> hits_;
    int current_ = -1;
    int from_ = 0;           // position where finding starts: the top of the view when the bar opened
};

}  // namespace documents
