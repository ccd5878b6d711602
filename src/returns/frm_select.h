#pragma once
// frmSelect, the chooser in front of the return window, and the windows its other options open: the
// E-Filing window and the "Direct To Form" window, whose work is in files of their own.
#include "returns/e_filing_window.h"
#include "returns/form_ten_view.h"

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
    QRadioButton* thenOption_ = nullptr;   // the option that led to the register, to follow on its book
};

// The month's lists for filing on line, and the checks before filing.
class frmEFiling : public EFilingWindow {
    Q_OBJECT
public:
    explicit frmEFiling(QWidget* parent = nullptr) : EFilingWindow(parent) {}
};

// The return itself, Form No. 10, for the dealer and year the chooser hands over (txtDealerName, txtTIN,
// txtCST, txtYear are FormTenWindow's).
class frmDirectToForm : public FormTenWindow {
    Q_OBJECT
public:
    explicit frmDirectToForm(QWidget* parent = nullptr) : FormTenWindow(parent) {}
};

}  // namespace returns
