#pragma once
// frmTextSearch, "Search the library": the words of every document of the library. Results follow the
// typing after a short pause; the search runs on a thread of its own so that no key ever waits for it.
// Each result gives the title, the kind, the date and the words around the hits; Enter or a double click
// shows the document in keralaforms at its first hit, with every hit lit.
#include <QWidget>
#include <atomic>
#include <memory>
#include <vector>

#include "platform/store/text_index.h"
#include "platform/store/text_query.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QThread;
class QTimer;

namespace library {

class frmTextSearch : public QWidget {
    Q_OBJECT
public:
    frmTextSearch();
    ~frmTextSearch() override;

    QLineEdit* txtQuery;
    QComboBox* cboKind;      // "All kinds", then each kind of document
    QLabel* lblStatus;
    QListWidget* lstResults;
    QLabel* lblHelp;
    QTimer* tmrPause;        // the pause after a key before the search starts

    // The keys of what the last search found, best first ("<table>:<rowid>").
    QStringList resultKeys() const;

    void txtQuery_Change();
    void txtQuery_KeyPress(int key);
    void cboKind_Click();
    void lstResults_DblClick();
    // Sends the query now; the results come with Searched().
    void Search();
    // Shows a result's document in the document window; the first result when none is chosen.
    void OpenResult();

signals:
    void Searched();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Worker;
    void fitResults();
    void showResults(int generation, const std::vector<store::TextHit>& hits, const QString& failure,
                     bool indexed);
    std::vector<store::TextHit> hits_;
    store::TextQuery shownQuery_;
    std::unique_ptr<Worker> worker_;
    std::atomic<int> latest_{0};      // the newest search asked for
    int shownGeneration_ = 0;         // the search whose results are shown
    bool openWhenFound_ = false;
};

}  // namespace library
