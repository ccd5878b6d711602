#include "returns/e_filing_window.h"

#include "platform/basic/clock.h"
#include "platform/basic/indian_amount.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "returns/bill_row.h"
#include "returns/log.h"
#include "returns/form_ten_store.h"
#include "returns/form_ten_view.h"
#include "returns/frm_normal.h"
#include "returns/remembered_folders.h"
#include "returns/return_book.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace returns {

namespace {

const QString kFolderKey = QStringLiteral("eFiling");

enum ItemRole { KindRole = Qt::UserRole, RowRole };

// Every bill as the lists would write it, to tell whether the book still holds what the window shows.
QStringList billLines(const FilingMonth& m) {
    QStringList lines;
    for (const FilingBill& b : m.bills)
        lines << QStringList{QString::number(int(b.kind)), QString::number(b.row), b.date.toString(Qt::ISODate), b.party, b.tin,
                             b.billNo, b.rate, QString::number(b.amount, 'f', 2), QString::number(b.tax, 'f', 2),
                             QString::number(b.cess, 'f', 2), b.amountBlank ? QStringLiteral("blank") : QString()}
                     .join(QChar(0x1f));
    return lines;
}

QListWidgetItem* billItem(const QString& text, FilingKind kind, int row) {
    auto* item = new QListWidgetItem(text);
    item->setData(KindRole, int(kind));
    item->setData(RowRole, row);
    item->setToolTip(QStringLiteral("Enter or a double click opens the return window on this bill"));
    return item;
}

}  // namespace

EFilingWindow::EFilingWindow(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("E - Filing"));
    auto* layout = new QVBoxLayout(this);

    auto* top = new QHBoxLayout;
    cboMonth = new QComboBox(this);
    auto* monthLabel = new QLabel(QStringLiteral("&Month"), this);
    monthLabel->setBuddy(cboMonth);
    top->addWidget(monthLabel);
    top->addWidget(cboMonth);
    top->addStretch(1);
    layout->addLayout(top);
    FillBookMonths(cboMonth);
    connect(cboMonth, &QComboBox::activated, this, [this](int index) { showMonth(cboMonth->itemData(index).toString()); });

    lblBills = new QLabel(this);
    lblBills->setWordWrap(true);
    layout->addWidget(lblBills);

    auto* checksLabel = new QLabel(QStringLiteral("&Checks before filing (Enter or a double click opens the bill):"), this);
    lstChecks = new QListWidget(this);
    checksLabel->setBuddy(lstChecks);
    layout->addWidget(checksLabel);
    layout->addWidget(lstChecks, 3);
    auto* changedLabel = new QLabel(QStringLiteral("Bills whose &TIN the lists change:"), this);
    lstChanged = new QListWidget(this);
    changedLabel->setBuddy(lstChanged);
    layout->addWidget(changedLabel);
    layout->addWidget(lstChanged, 1);
    // Activation is a double click, or Enter on the item.
    for (QListWidget* list : {lstChecks, lstChanged}) connect(list, &QListWidget::itemActivated, this, &EFilingWindow::openBill);

    auto* where = new QHBoxLayout;
    auto* folderLabel = new QLabel(QStringLiteral("&Folder"), this);
    txtFolder = new QLineEdit(RememberedFolder(kFolderKey), this);
    folderLabel->setBuddy(txtFolder);
    cmdFolder = new QPushButton(QStringLiteral("C&hoose..."), this);
    where->addWidget(folderLabel);
    where->addWidget(txtFolder, 1);
    where->addWidget(cmdFolder);
    layout->addLayout(where);
    connect(cmdFolder, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, QStringLiteral("Folder for the e-filing lists"), txtFolder->text());
        if (!folder.isEmpty()) txtFolder->setText(QDir::toNativeSeparators(folder));
    });

    auto* buttons = new QHBoxLayout;
    lblWritten = new QLabel(this);
    lblWritten->setWordWrap(true);
    buttons->addWidget(lblWritten, 1);
    cmdWrite = new QPushButton(QStringLiteral("&Write the lists"), this);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    buttons->addWidget(cmdWrite);
    buttons->addWidget(cmdClose);
    layout->addLayout(buttons);
    connect(cmdWrite, &QPushButton::clicked, this, [this] { writeFiles(); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    resize(900, 640);
}

void EFilingWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return;
    // The month the return window shows, when it is open; else the month of today, as it starts with.
    QString month = basic::Clock::today().toString(QStringLiteral("MMMM"));
    if (forms::exists(QStringLiteral("frmNormal"))) {
        const QString shown = forms::get<frmNormal>(QStringLiteral("frmNormal"))->txtRPTo->text().trimmed();
        for (const QString& m : FormTenMonths())
            if (m.compare(shown, Qt::CaseInsensitive) == 0) month = m;
    }
    showMonth(month);
    lstChecks->setFocus();
}

// Back from the return window, where bills may have been added since: the lists follow the book.
void EFilingWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible() && !month_.month.isEmpty())
        showChangedBills();
}

bool EFilingWindow::showChangedBills() {
    FilingMonth fresh;
    // A read that fails here says nothing: the window keeps what it shows, and writing reads again.
    if (basic::resume([&] { fresh = ReadFilingMonth(month_.month); }).number() != 0) return false;
    if (billLines(fresh) == billLines(month_)) return false;
    showMonth(month_.month);
    return true;
}

void EFilingWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) close();
    else QWidget::keyPressEvent(event);
}

void EFilingWindow::showMonth(const QString& month) {
    FilingMonth read;
    read.month = month;
    const basic::RuntimeError e = basic::resume([&] { read = ReadFilingMonth(month); });
    if (e.number() != 0) qCWarning(lcReturns) << "the bills of" << month << "could not be read:" << e.number() << e.description();
    if (e.number() != 0)
        forms::MsgBox(QStringLiteral("The bills of ") + month + QStringLiteral(" cannot be read from the book: ") + e.description(),
                      forms::vbExclamation, QStringLiteral("E - Filing"));
    month_ = read;
    FillBookMonths(cboMonth);
    cboMonth->setCurrentIndex(cboMonth->findData(month));

    QStringList counts;
    for (FilingKind kind : kFilingKinds) {
        const auto bills = month_.of(kind);
        double value = 0, tax = 0;
        for (const FilingBill* b : bills) {
            value += b->amount;
            tax += b->tax;
        }
        counts << QStringLiteral("%1: %2 bill(s), value %3, tax %4")
                      .arg(FilingKindName(kind))
                      .arg(bills.size())
                      .arg(basic::IndianAmount(value), basic::IndianAmount(tax));
    }
    lblBills->setText(counts.join(QLatin1Char('\n')));

    lstChecks->clear();
    for (const FilingFinding& f : month_.findings) lstChecks->addItem(billItem(f.text(), f.kind, f.row));
    if (month_.findings.empty()) lstChecks->addItem(QStringLiteral("Every bill passes the checks."));
    lstChecks->setCurrentRow(0);
    lstChanged->clear();
    for (const FilingBill* b : month_.changed()) {
        const QString why = b->tin.isEmpty() ? QStringLiteral("no TIN") : QStringLiteral("TIN ") + b->tin + QStringLiteral(" refused");
        const FilingFinding where{b->kind, b->row, b->billNo, b->party, why + QStringLiteral(": goes as ") + b->filedTin};
        lstChanged->addItem(billItem(where.text(), b->kind, b->row));
    }
    lstChanged->setCurrentRow(0);
    lblWritten->clear();
}

void EFilingWindow::openBill(QListWidgetItem* item) {
    if (!item || !item->data(RowRole).isValid()) return;
    const auto kind = FilingKind(item->data(KindRole).toInt());
    OpenBillRow(month_.month, IsPurchase(kind), kind == FilingKind::InterStatePurchases ? 1 : 0, item->data(RowRole).toInt());
}

bool EFilingWindow::writeFiles() {
    const QString folder = QDir::fromNativeSeparators(txtFolder->text().trimmed());
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
        forms::MsgBox(QStringLiteral("Nothing was written: the folder \"") + txtFolder->text() +
                          QStringLiteral("\" is not there. Choose a folder and write again."),
                      forms::vbExclamation, QStringLiteral("Not written"));
        txtFolder->setFocus();
        return false;
    }
    if (showChangedBills()) {
        forms::MsgBox(QStringLiteral("Nothing was written: the bills of ") + month_.month +
                          QStringLiteral(" in the book are no longer those the window showed. Look at the lists again and write again."),
                      forms::vbInformation, QStringLiteral("Not written"));
        return false;
    }
    if (month_.bills.empty()) {
        forms::MsgBox(QStringLiteral("Nothing was written: ") + month_.month + QStringLiteral(" has no bills in the book."),
                      forms::vbInformation, QStringLiteral("Not written"));
        return false;
    }
    if (!month_.findings.empty() &&
        forms::MsgBox(QStringLiteral("The checks found %1 thing(s) to look at before filing.\nWrite the lists anyway?")
                          .arg(month_.findings.size()),
                      forms::vbYesNo | forms::vbQuestion | forms::vbDefaultButton2, QStringLiteral("E - Filing")) != forms::vbYes)
        return false;
    QStringList written;
    const basic::RuntimeError e = basic::resume([&] { written = WriteFilingFiles(month_, folder, CurrentBook().tin); });
    if (e.number() != 0) {
        qCWarning(lcReturns) << "the e-filing lists were not all written:" << e.description();
        forms::MsgBox(QStringLiteral("The lists were not all written: ") + e.description(), forms::vbExclamation,
                      QStringLiteral("Not written"));
        return false;
    }
    RememberFolder(kFolderKey, QDir::toNativeSeparators(folder));
    QStringList names;
    for (const QString& f : written) names << QFileInfo(f).fileName();
    const auto changed = month_.changed();
    lblWritten->setText(QStringLiteral("Written to ") + QDir::toNativeSeparators(folder) + QStringLiteral(": ") + names.join(QStringLiteral(", ")) +
                        (changed.empty() ? QString() : QStringLiteral(". %1 bill(s) go with a changed TIN: see the list above.").arg(changed.size())));
    return true;
}

}  // namespace returns
