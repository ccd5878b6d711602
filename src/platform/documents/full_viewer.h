#pragma once
// "Open in full": the program's own maximised read-only viewer window, one for the whole run, reused by
// every document that is opened in full.
#include <QByteArray>
#include <QWidget>

namespace documents {

class DocumentView;

class FullViewer : public QWidget {
    Q_OBJECT
public:
    // The one viewer, made hidden on first call.
    static FullViewer* instance();
    // The viewer if it was made, else nullptr; for tests and for callers that must not make it.
    static FullViewer* existing();

    // Shows `bytes` maximised and brings the window to the front.
    void open(const QByteArray& bytes);
    DocumentView* view() const { return view_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    FullViewer();
    DocumentView* view_;
};

// Opens `bytes` in the full viewer.
void openInFull(const QByteArray& bytes);

}  // namespace documents
