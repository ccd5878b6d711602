#include "returns/bill_import_window.h"

#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

namespace returns {

namespace {

const QColor kTitleRow(235, 235, 235);
const QColor kHeaderRow(214, 228, 245);
const QColor kRefusedRow(248, 215, 215);
const QColor kRemarkRow(252, 243, 207);

// "A" to "Z", "AA", ...: the columns as a spreadsheet names them.
QString columnName(int c) {
    QString name;
    for (++c; c > 0; c = (c - 1) / 26) name.prepend(QChar(u'A' + (c - 1) % 26));
    return name;
}

QString counted(std::size_t n, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(n).arg(QLatin1String(n == 1 ? one : many));
}

// What a bill row goes into the grid as: the texts of columns 1 to 8, as after typing.
QString gridTexts(const BillLine& line) {
    QStringList cells;
    for (int c = kFirstBillField; c <= kLastBillField; ++c)
        if (line.filled[std::size_t(c)]) cells << BillFieldName(BillField(c)) + QStringLiteral(": ") + line.cells[std::size_t(c)].trimmed();
    return QStringLiteral("Goes into the grid as\n") + cells.join(QLatin1Char('\n'));
}

std::vector<BillField> fieldsByPlace(int columns) {
    std::vector<BillField> f;
    for (int c = 0; c < columns; ++c) f.push_back(c < kLastBillField ? BillField(c + 1) : BillField::None);
    return f;
}

}  // namespace

BillImportWindow::BillImportWindow(const QString& fileName, sheets::SheetContents first, SheetReading readSheet,
                                   std::vector<ImportTarget> targets, int target, QWidget* parent)
    : QDialog(parent), fileName_(fileName), readSheet_(std::move(readSheet)), sheet_(std::move(first)),
      targets_(std::move(targets)) {
    setWindowTitle(QStringLiteral("Import bills from %1").arg(QFileInfo(fileName).fileName()));
    resize(980, 640);

    sheetBox = new QComboBox(this);
    headerBox = new QSpinBox(this);
    headerBox->setSpecialValueText(QStringLiteral("none"));
    targetBox = new QComboBox(this);
    for (const ImportTarget& t : targets_) targetBox->addItem(t.name);
    targetBox->setCurrentIndex(std::clamp(target, 0, int(targets_.size()) - 1));

    auto* choices = new QHBoxLayout;
    auto* left = new QFormLayout;
    auto* file = new QLabel(QFileInfo(fileName).fileName(), this);
    file->setToolTip(QDir::toNativeSeparators(fileName));
    left->addRow(QStringLiteral("File:"), file);
    left->addRow(QStringLiteral("&Sheet:"), sheetBox);
    left->addRow(QStringLiteral("&Header in row:"), headerBox);
    auto* right = new QFormLayout;
    right->addRow(QStringLiteral("&Into:"), targetBox);
    choices->addLayout(left);
    choices->addSpacing(24);
    choices->addLayout(right);
    choices->addStretch();

    table = new QTableWidget(this);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->horizontalHeader()->setDefaultSectionSize(120);
    table->verticalHeader()->setDefaultSectionSize(22);

    summary = new QLabel(this);
    summary->setWordWrap(true);
    notesList = new QListWidget(this);
    notesList->setMaximumHeight(150);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    okButton = buttons->button(QDialogButtonBox::Ok);
    okButton->setText(QStringLiteral("&Fill the grid"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(new QLabel(QStringLiteral("The sheet's first rows, and what each column is read as:"), this));
    layout->addWidget(table, 1);
    layout->addWidget(summary);
    layout->addWidget(new QLabel(QStringLiteral("Rows that are not filled in, and why:"), this));
    layout->addWidget(notesList);
    layout->addWidget(buttons);

    connect(sheetBox, &QComboBox::currentTextChanged, this, [this](const QString& name) {
        if (!filling_) chooseSheet(name);
    });
    connect(headerBox, &QSpinBox::valueChanged, this, [this](int row) {
        if (!filling_) chooseHeaderRow(row - 1);
    });
    connect(targetBox, &QComboBox::currentIndexChanged, this, [this] {
        if (!filling_) reread();
    });
    connect(notesList, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
        const int row = item->data(Qt::UserRole).toInt();
        if (row >= 0 && row < table->rowCount() - 1) table->scrollToItem(table->item(row + 1, 0));
    });
    showSheet();
}

int BillImportWindow::target() const { return targetBox->currentIndex(); }

void BillImportWindow::chooseSheet(const QString& name) {
    if (name == sheet_.sheetName) return;
    sheets::SheetContents next;
    const basic::RuntimeError e = basic::resume([&] { next = readSheet_(name); });
    if (e.number() != 0) {
        forms::MsgBox(e.description(), forms::vbExclamation, windowTitle());
        filling_ = true;
        sheetBox->setCurrentText(sheet_.sheetName);
        filling_ = false;
        return;
    }
    sheet_ = std::move(next);
    showSheet();
}

void BillImportWindow::chooseHeaderRow(int row) {
    headerRow_ = row;
    const int columns = table->columnCount();
    if (row >= 0 && row < int(sheet_.rows.size())) {
        fields_ = GuessBillFields(sheet_.rows[std::size_t(row)]);
        fields_.resize(std::size_t(columns), BillField::None);
    } else {
        fields_ = fieldsByPlace(columns);
    }
    filling_ = true;
    headerBox->setValue(row + 1);
    for (int c = 0; c < columns; ++c) fieldBoxes[std::size_t(c)]->setCurrentIndex(int(fields_[std::size_t(c)]));
    filling_ = false;
    reread();
}

void BillImportWindow::chooseField(int column, BillField field) {
    // A field is read from one column: choosing it for this one takes it from any other.
    for (std::size_t c = 0; c < fields_.size(); ++c)
        if (field != BillField::None && fields_[c] == field) fields_[c] = BillField::None;
    fields_[std::size_t(column)] = field;
    filling_ = true;
    for (std::size_t c = 0; c < fields_.size(); ++c) fieldBoxes[c]->setCurrentIndex(int(fields_[c]));
    filling_ = false;
    reread();
}

// The sheet's rows into the table, with a list of fields over each column.
void BillImportWindow::showSheet() {
    filling_ = true;
    sheetBox->clear();
    sheetBox->addItems(sheet_.sheetNames);
    sheetBox->setCurrentText(sheet_.sheetName);
    const int shown = std::min(int(sheet_.rows.size()), kPreviewRows);
    int columns = 1;
    for (int r = 0; r < shown; ++r) columns = std::max(columns, int(sheet_.rows[std::size_t(r)].size()));
    table->clear();
    table->setRowCount(shown + 1);
    table->setColumnCount(columns);
    QStringList letters, numbers{QStringLiteral("Read as")};
    for (int c = 0; c < columns; ++c) letters << columnName(c);
    for (int r = 0; r < shown; ++r) numbers << QString::number(r + 1);
    table->setHorizontalHeaderLabels(letters);
    table->setVerticalHeaderLabels(numbers);
    fieldBoxes.clear();
    for (int c = 0; c < columns; ++c) {
        auto* box = new QComboBox(table);
        for (int f = 0; f <= kLastBillField; ++f) box->addItem(BillFieldName(BillField(f)));
        connect(box, &QComboBox::currentIndexChanged, this, [this, c](int f) {
            if (!filling_) chooseField(c, BillField(f));
        });
        table->setCellWidget(0, c, box);
        fieldBoxes.push_back(box);
    }
    for (int r = 0; r < shown; ++r) {
        const QStringList& cells = sheet_.rows[std::size_t(r)];
        for (int c = 0; c < columns; ++c) table->setItem(r + 1, c, new QTableWidgetItem(cells.value(c)));
    }
    table->resizeColumnsToContents();
    for (int c = 0; c < columns; ++c) table->setColumnWidth(c, std::clamp(table->columnWidth(c), 120, 220));
    headerBox->setRange(0, std::max(1, shown));
    filling_ = false;
    chooseHeaderRow(FindHeaderRow(sheet_.rows));
}

void BillImportWindow::reread() {
    const ImportTarget& t = targets_[std::size_t(target())];
    reading_ = ReadBills(sheet_, headerRow_, fields_, t.rateEntries);
    notesList->clear();
    for (const ImportNote& n : reading_.notes) {
        auto* item = new QListWidgetItem(n.text, notesList);
        item->setData(Qt::UserRole, n.row);
        if (n.refused) item->setForeground(QColor(150, 0, 0));
    }
    QString text;
    if (!reading_.blocker.isEmpty()) {
        text = QStringLiteral("<span style='color:#a00000'><b>%1</b></span>").arg(reading_.blocker.toHtmlEscaped());
    } else {
        text = QStringLiteral("<b>%1</b> will go into %2 after bill %3.")
                   .arg(counted(reading_.bills.size(), "bill", "bills"), t.name.toHtmlEscaped())
                   .arg(t.lastBill);
        if (reading_.refusedRows > 0)
            text += QStringLiteral(" <span style='color:#a00000'>%1 cannot be read and %2 left out.</span>")
                        .arg(counted(std::size_t(reading_.refusedRows), "row", "rows"),
                             QLatin1String(reading_.refusedRows == 1 ? "is" : "are"));
    }
    if (reading_.emptyRows > 0)
        text += QStringLiteral(" %1 skipped.").arg(counted(std::size_t(reading_.emptyRows), "empty row", "empty rows"));
    if (sheet_.truncated)
        text += QStringLiteral(" Only the first %1 rows were read.").arg(QLocale(QLocale::English).toString(kImportRowLimit));
    summary->setText(text);
    okButton->setEnabled(reading_.blocker.isEmpty());
    paintRows();
}

void BillImportWindow::paintRows() {
    QHash<int, const ImportNote*> notes;
    for (const ImportNote& n : reading_.notes)
        if (n.row >= 0 && (!notes.contains(n.row) || n.refused)) notes[n.row] = &n;
    QHash<int, const BillLine*> bills;
    for (std::size_t i = 0; i < reading_.bills.size() && reading_.billRows[i] < kPreviewRows; ++i)
        bills[reading_.billRows[i]] = &reading_.bills[i];
    for (int r = 0; r + 1 < table->rowCount(); ++r) {
        QColor colour(Qt::white);
        QString tip;
        if (r < headerRow_) colour = kTitleRow;
        else if (r == headerRow_) colour = kHeaderRow;
        else if (const ImportNote* n = notes.value(r)) colour = n->refused ? kRefusedRow : kRemarkRow, tip = n->text;
        if (const BillLine* bill = bills.value(r)) tip = (tip.isEmpty() ? QString() : tip + QStringLiteral("\n")) + gridTexts(*bill);
        for (int c = 0; c < table->columnCount(); ++c) {
            QTableWidgetItem* item = table->item(r + 1, c);
            item->setBackground(colour);
            item->setToolTip(tip);
            QFont font = item->font();
            font.setBold(r == headerRow_);
            item->setFont(font);
        }
    }
}

}  // namespace returns
