#pragma once
// "My documents": the grid of the user's own documents. "Add documents…" takes files, "Add a folder…" a
// folder and its subfolders, with a progress bar that Cancel stops; the kind, title, number and date
// that were guessed are changed in their cells (F2 or a click on the chosen cell); Enter or a double
// click opens a document in the document window; Remove (or Delete) asks once.
#include <QWidget>
#include <vector>

#include "library/my_documents.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace library {

class MyDocumentsWindow : public QWidget {
    Q_OBJECT
public:
    MyDocumentsWindow();

    enum Column { colKind, colTitle, colNumber, colDate, colFile, colAdded };

    QLineEdit* txtFilter;
    QTableWidget* grid;
    QLabel* lblCount;
    QPushButton *cmdAddFiles, *cmdAddFolder, *cmdOpen, *cmdRemove;

    void reload();
    void applyFilter();
    // Adds the files and folders chosen, with the progress bar; then says what was added and what not.
    void addChosen(const QStringList& paths);
    void openCurrent();
    void removeChosen();     // asks once for all the chosen rows
    qint64 idAt(int row) const;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cellChanged(int row, int column);
    bool loading_ = false;
};

}  // namespace library
