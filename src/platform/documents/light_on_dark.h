#pragma once
// Light on dark: a document view can show its document as light ink on a dark ground; one choice for every
// view of the program, remembered, Ctrl+Shift+L in the view's window. The view's pixels are inverted as they
// are drawn, so every colour a document names keeps its contrast, and the document and its print stay as
// they are. Until the reader chooses, it follows the desktop: a dark desktop reads dark.
//
// Off, a text document is ink on paper whatever the desktop's palette: a document is read as printed.
#include <QObject>
#include <QWidget>

class QAction;
class QAbstractScrollArea;

namespace documents {

class DocumentView;

class LightOnDark : public QObject {
    Q_OBJECT
public:
    static LightOnDark& shared();
    bool on() const { return on_; }
    void setOn(bool on);  // saved, and every view follows
    void toggle() { setOn(!on_); }

signals:
    void changed(bool on);

private:
    LightOnDark();
    bool on_ = false;
};

// A layer over the visible part of a scroll area that turns what lies under it light on dark. It lets the
// mouse through, and follows the area's viewport.
class InvertingLayer : public QWidget {
    Q_OBJECT
public:
    explicit InvertingLayer(QAbstractScrollArea* area);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractScrollArea* area_;
};

// The view's layers and its toggle.
class ViewDarkness : public QObject {
    Q_OBJECT
public:
    static ViewDarkness* attach(DocumentView* view);
    QAction* toggle;

private:
    explicit ViewDarkness(DocumentView* view);
    void apply(bool on);
    InvertingLayer *overText_, *overPdf_;
};

}  // namespace documents
