#pragma once
// frmSelect, the chooser in front of the return window, and the two small windows its other options
// open: the E-Filing window and the "Direct To Form" window, both of which say what they will hold.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QWidget>

namespace returns {

class frmSelect : public QWidget {
    Q_OBJECT
public:
    explicit frmSelect(QWidget* parent = nullptr);

    QRadioButton* Option1 = nullptr;
    QRadioButton* Option2 = nullptr;
    QRadioButton* Option3 = nullptr;
    QPushButton* cmdClose = nullptr;
    // The book the return window will work on, and the way to the register to choose another.
    QLabel* lblBook = nullptr;
    QPushButton* cmdBook = nullptr;

    // The language's Show: Form_Load on first showing, then Form_Activate.
    Q_INVOKABLE void Show();
    void Form_Load();
    void Form_Activate();
    // Double click and Enter choose the option; only the double click hides the chooser after.
    void Option1_DblClick();
    void Option1_KeyPress(int KeyAscii);
    void Option2_DblClick();
    void Option2_KeyPress(int KeyAscii);
    void Option3_DblClick();
    void Option3_KeyPress(int KeyAscii);
    void cmdClose_Click();
    void cmdBook_Click();
    // The line naming the book open now, or saying why there is none.
    void ShowBook();

private:
    void choose(QRadioButton* option);
    bool loaded_ = false;
    QString bookTrouble_;   // why the last book did not open by itself
    bool thenReturnWindow_ = false;   // the register was reached by Form No. 52
};

// Where the monthly return will be prepared for filing on line.
class frmEFiling : public QWidget {
    Q_OBJECT
public:
    explicit frmEFiling(QWidget* parent = nullptr);
    QLabel* lblPurpose = nullptr;
    QPushButton* cmdClose = nullptr;
};

// The return pages filled straight in, for the dealer and year the chooser hands over.
class frmDirectToForm : public QWidget {
    Q_OBJECT
public:
    explicit frmDirectToForm(QWidget* parent = nullptr);
    QLabel* lblPurpose = nullptr;
    QLineEdit* txtDealerName = nullptr;
    QLineEdit* txtTIN = nullptr;
    QLineEdit* txtCST = nullptr;
    QLineEdit* txtYear = nullptr;
    QPushButton* cmdClose = nullptr;
};

}  // namespace returns
