#include "returns/dealer_form.h"

#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace returns {

namespace {

const QString kTitle = QStringLiteral("Dealer");

QLineEdit* box(QWidget* parent, const QString& text, const QString& hint = QString()) {
    auto* b = new QLineEdit(text, parent);
    b->setPlaceholderText(hint);
    return b;
}

}  // namespace

DealerForm::DealerForm(DealerRegister& reg, Purpose purpose, const Dealer& dealer, const QString& year, QWidget* parent)
    : QDialog(parent), reg_(reg), purpose_(purpose), editing_(purpose == Purpose::Edit ? dealer.tin : QString()) {
    setWindowTitle(purpose == Purpose::Add ? QStringLiteral("New dealer")
                   : purpose == Purpose::Edit ? QStringLiteral("Dealer's details")
                                              : QStringLiteral("Name the dealer"));
    lblPurpose = new QLabel(this);
    lblPurpose->setWordWrap(true);
    if (purpose == Purpose::Name)
        lblPurpose->setText(QStringLiteral("The book \"%1\" %2 becomes the book of %2 of this dealer. Give a dealer of the "
                                           "register by the TIN, or a new one.")
                                .arg(QStringLiteral("Dealer not named"), year));
    else
        lblPurpose->setText(QStringLiteral("Name and TIN are needed; the rest may wait. The return's Place starts with the "
                                           "place given here."));
    txtName = box(this, dealer.name);
    txtTIN = box(this, dealer.tin, QStringLiteral("11 digits, 32... in Kerala"));
    txtTIN->setMaxLength(40);
    txtCST = box(this, dealer.cst);
    txtAddress = new QPlainTextEdit(dealer.address, this);
    txtAddress->setTabChangesFocus(true);
    txtAddress->setFixedHeight(txtName->sizeHint().height() * 3);
    txtPlace = box(this, dealer.place);
    txtPhone = box(this, dealer.phone, QStringLiteral("optional"));
    txtEmail = box(this, dealer.email, QStringLiteral("optional"));
    // The TIN is written in every bill of a dealer's books: once they have one it stays.
    if (purpose == Purpose::Edit && !reg.YearsOf(dealer.tin).isEmpty()) {
        txtTIN->setReadOnly(true);
        txtTIN->setToolTip(QStringLiteral("The TIN of a dealer who has books stays as it is."));
    }

    auto* fields = new QFormLayout;
    fields->addRow(QStringLiteral("&Name"), txtName);
    fields->addRow(QStringLiteral("&TIN"), txtTIN);
    fields->addRow(QStringLiteral("&CST number"), txtCST);
    fields->addRow(QStringLiteral("&Address"), txtAddress);
    fields->addRow(QStringLiteral("&Place"), txtPlace);
    fields->addRow(QStringLiteral("P&hone"), txtPhone);
    fields->addRow(QStringLiteral("&E-mail"), txtEmail);

    cmdSave = new QPushButton(purpose == Purpose::Name ? QStringLiteral("&Give the book") : QStringLiteral("&Save"), this);
    cmdSave->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblPurpose);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    resize(520, sizeHint().height());

    connect(cmdSave, &QPushButton::clicked, this, [this] {
        if (save()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

Dealer DealerForm::dealer() const {
    return {txtTIN->text().trimmed(), txtName->text().trimmed(), txtCST->text().trimmed(), txtAddress->toPlainText().trimmed(),
            txtPlace->text().trimmed(),  txtPhone->text().trimmed(), txtEmail->text().trimmed()};
}

bool DealerForm::save() {
    const Dealer d = dealer();
    if (purpose_ == Purpose::Name) {
        if (const std::optional<Dealer> holder = reg_.Find(d.tin)) {
            if (forms::MsgBox(QStringLiteral("The TIN %1 is that of %2. Give the book to %2?").arg(d.tin, holder->name),
                              forms::vbYesNo + forms::vbQuestion, kTitle) != forms::vbYes)
                return false;
            saved_ = *holder;
            return true;
        }
    }
    const DealerCheck check = reg_.Check(d, editing_);
    if (!check.refusal.isEmpty()) {
        forms::MsgBox(check.refusal, forms::vbExclamation, kTitle);
        (check.refusal.contains(QLatin1String("TIN")) ? txtTIN : txtName)->setFocus();
        return false;
    }
    if (!check.warning.isEmpty() &&
        forms::MsgBox(check.warning + QStringLiteral("\n\nKeep this TIN?"), forms::vbYesNo + forms::vbExclamation, kTitle) !=
            forms::vbYes) {
        txtTIN->setFocus();
        return false;
    }
    const basic::RuntimeError e = basic::resume([&] {
        if (purpose_ == Purpose::Edit) reg_.Update(editing_, d);
        else reg_.Add(d);
    });
    if (e.number() != 0) {
        forms::MsgBox(QStringLiteral("The dealer was not saved: ") + e.description(), forms::vbExclamation, kTitle);
        return false;
    }
    saved_ = d;
    return true;
}

}  // namespace returns
