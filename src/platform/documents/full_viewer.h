#pragma once
// "Open in full": the program's own maximised read-only viewer window, one for the whole run, reused by
// every document that is opened in full. A document opened with its folder has live links: a link to a
// file of that folder opens it here, at the bookmark after "#" if one is named.
#include <QByteArray>
#include <QString>
#include <QWidget>
#include <functional>

namespace documents {

class DocumentView;

class FullViewer : public QWidget {
    Q_OBJECT
public:
    // The one viewer, made hidden on first call.
    static FullViewer* instance();
    // The viewer if it was made, else nullptr; for tests and for callers that must not make it.
    static FullViewer* existing();

    // Shows `bytes` maximised and brings the window to the front. Its links resolve in `linkFolder`;
    // with none they lead nowhere.
    void open(const QByteArray& bytes, const QString& linkFolder = QString());
    // Follows a link as a click on it does: "#name" moves to a bookmark of the shown document, "file" or
    // "file#name" opens a file of the link folder. A file that cannot be read leaves the viewer as it was.
    void followLink(const QString& target);
    DocumentView* view() const { return view_; }
    // Calls `hook` with the viewer when it is made, so that the layers above give it keys of their own.
    static void whenMade(std::function<void(FullViewer*)> hook);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    FullViewer();
    DocumentView* view_;
    QString linkFolder_;
};

// Opens `bytes` in the full viewer, its links resolving in `linkFolder` when one is given.
void openInFull(const QByteArray& bytes, const QString& linkFolder = QString());

}  // namespace documents
