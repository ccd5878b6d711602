#pragma once
// The reader's zoom: one size for every document view of the program, a percentage of the size a document
// is written in, in steps from 50 to 400. Ctrl++ (or Ctrl+=), Ctrl+- and Ctrl+0 in the view's window, and
// the wheel with Ctrl over the document, change it; it is remembered for the next document and the next run.
// Text grows by the resolution its layout is made for: the document stays as it is, nothing is read again,
// and only the lines in sight are laid out at once. PDF pages grow from the width that fits the view.
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QTextDocument>
#include <QTimer>
#include <vector>

class QAction;

namespace documents {

class DocumentView;

class Zoom : public QObject {
    Q_OBJECT
public:
    static Zoom& shared();  // read from the settings on first use
    static const std::vector<int>& steps();

    int percent() const { return percent_; }
    // The nearest step is taken; it is saved, and every view follows.
    void setPercent(int percent);
    void stepIn();
    void stepOut();
    void reset() { setPercent(100); }
    // Writes a step not yet saved now, as the program ends.
    void save();

signals:
    void changed(int percent);

private:
    Zoom();
    int percent_ = 100;
    QTimer save_;
};

// One view kept at the shared zoom, with its keys and the wheel.
class ViewZoom : public QObject {
    Q_OBJECT
public:
    static ViewZoom* attach(DocumentView* view);
    QAction *zoomIn, *zoomOut, *actualSize;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit ViewZoom(DocumentView* view);
    void apply(bool keepPlace);
    void applyToPdf();
    DocumentView* view_;
    QImage resolution_;         // the paint device the text's layout is made for
    QPointer<QTextDocument> laidOut_;  // the text document last given it
    int wheel_ = 0;             // wheel turn not yet a whole step, in eighths of a degree
};

}  // namespace documents
