#pragma once
// BookChooser: the dealer register and its books, to choose the dealer and the year the return window
// works on. Typing finds dealers by name, TIN and place; the arrows move among them, Tab goes to their
// years, Enter opens the book. New year makes the dealer's next year and opens it in one step.
#include "returns/dealer_register.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace returns {

class DealerRows;

class BookChooser : public QWidget {
    Q_OBJECT
public:
    explicit BookChooser(QWidget* parent = nullptr);

    QLineEdit* txtFind = nullptr;
    QTableView* lstDealers = nullptr;
    QListWidget* lstYears = nullptr;
    QLabel* lblCount = nullptr;
    QPushButton* cmdOpen = nullptr;
    QPushButton* cmdNewYear = nullptr;
    QPushButton* cmdYearBefore = nullptr;
    QPushButton* cmdAddDealer = nullptr;
    QPushButton* cmdEditDealer = nullptr;
    QPushButton* cmdRemoveDealer = nullptr;
    QPushButton* cmdNameBook = nullptr;
    QPushButton* cmdClose = nullptr;

    // Reads the register anew and stands on the book open now.
    void Reload();
    // The dealers whose name, TIN or place hold every word of the text.
    void Find(const QString& text);
    int ShownDealers() const;
    QString ShownTin(int row) const;

    // The dealer and year chosen; tin empty for "Dealer not named", year 0 when the dealer has none.
    QString ChosenTin() const;
    int ChosenYear() const;
    void Choose(const QString& tin, int firstYear = 0);

    // Opens the chosen book and hides; a book that cannot be opened is named in a box, and the chooser stays.
    bool OpenChosen();
    void NewYear();
    void YearBefore();
    void AddDealer();
    void EditDealer();
    void RemoveDealer();
    void NameBook();

signals:
    void bookOpened();
    void registerChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showYears();
    void enableButtons();
    void makeYear(int firstYear);
    bool closeBookWindows(const QStringList& names);
    DealerRows* rows_ = nullptr;
};

}  // namespace returns
