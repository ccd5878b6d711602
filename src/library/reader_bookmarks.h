#pragma once
// The reader's bookmarks: Ctrl+D marks the open document; the bookmarks window lists them by folder,
// narrows the list as the user types, opens one with Enter, and exports and imports a reading list as a
// file, so that a practice shares one.
#include <QWidget>

#include "platform/documents/reader_store.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace library {

// Marks the document (once: a second mark tells where the first one stands) and says so in the window.
void bookmarkDocument(QWidget* window, const documents::DocumentName& document);

// A short word over the foot of a window that goes by itself.
void flash(QWidget* window, const QString& text);

class BookmarksWindow : public QWidget {
    Q_OBJECT
public:
    BookmarksWindow();

    QLineEdit* txtFilter;
    QTreeWidget* tree;           // folders, each with its bookmarks; bookmarks of no folder stand at the top
    QLabel* lblCount;
    QPushButton *cmdOpen, *cmdNewFolder, *cmdMove, *cmdRemove, *cmdExport, *cmdImport;

    // Reads the bookmarks anew and applies the filter.
    void reload();
    // Shows the bookmarks whose title, kind or folder hold every word typed.
    void applyFilter();
    // Opens the chosen bookmark (the first shown, when none is chosen) in the document window.
    void openCurrent();
    void newFolder();
    void moveCurrent(const QString& folder);
    void removeCurrent();        // asks once; a folder goes with its bookmarks moved out of it
    // The reading list written to, or read from, a file; false with a box when it cannot be.
    bool exportTo(const QString& path);
    bool importFrom(const QString& path);
    // The ids of the bookmarks shown, in their order.
    QList<qint64> shownIds() const;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTreeWidgetItem* firstShown() const;
    void askMove();
};

}  // namespace library
