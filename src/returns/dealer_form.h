#pragma once
// DealerForm: one dealer's details, to add a dealer to the register, to change one, or to name the
// dealer of a book "Dealer not named". Save checks them by the register's rules: a refusal is said in
// a box and the form stays; a warning is asked about.
#include "returns/dealer_register.h"

#include <QDialog>

class QLineEdit;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace returns {

class DealerForm : public QDialog {
    Q_OBJECT
public:
    enum class Purpose { Add, Edit, Name };
    // For Edit, `dealer` is the dealer as the register has them; for Name, `year` is the book's.
    DealerForm(DealerRegister& reg, Purpose purpose, const Dealer& dealer = Dealer(), const QString& year = QString(),
               QWidget* parent = nullptr);

    QLabel* lblPurpose = nullptr;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtTIN = nullptr;
    QLineEdit* txtCST = nullptr;
    QPlainTextEdit* txtAddress = nullptr;
    QLineEdit* txtPlace = nullptr;
    QLineEdit* txtPhone = nullptr;
    QLineEdit* txtEmail = nullptr;
    QPushButton* cmdSave = nullptr;
    QPushButton* cmdCancel = nullptr;

    Dealer dealer() const;           // as typed
    // Checks and stores the dealer; true when stored (or, for Name, when the dealer is in the register
    // and may take the book), and the form closes.
    bool save();
    // The dealer saved: for Name, the one the book goes to.
    const Dealer& saved() const { return saved_; }

private:
    DealerRegister& reg_;
    Purpose purpose_;
    QString editing_;
    Dealer saved_;
};

}  // namespace returns
