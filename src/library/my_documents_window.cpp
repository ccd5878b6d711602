#include "library/my_documents_window.h"

#include "library/document_guess.h"
#include "library/library_text.h"
#include "library/reader_documents.h"
#include "platform/basic/settings.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDate>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

namespace library {

namespace {

const QString kTitle = QStringLiteral("My documents");
const QString kFolderSetting = QStringLiteral("MyDocuments/lastFolder");

QStringList kinds() { return QStringList(kTextKinds) << kOtherKind; }

// The kind is chosen from the library's kinds.
class KindDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
        auto* box = new QComboBox(parent);
        box->addItems(kinds());
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        static_cast<QComboBox*>(editor)->setCurrentText(index.data().toString());
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        model->setData(index, static_cast<QComboBox*>(editor)->currentText());
    }
};

// A date as the user writes it: 14-03-2006, 14.03.2006, 14/3/2006 or 2006-03-14; "" clears it.
QString readDate(const QString& typed, bool* ok) {
    *ok = true;
    if (typed.trimmed().isEmpty()) return QString();
    for (const char* format : {"d-M-yyyy", "d.M.yyyy", "d/M/yyyy", "yyyy-M-d"}) {
        const QDate date = QDate::fromString(typed.trimmed(), QString::fromLatin1(format));
        if (date.isValid()) return date.toString(Qt::ISODate);
    }
    *ok = false;
    return QString();
}

QString shownDate(const QString& iso) {
    const QDate date = QDate::fromString(iso, Qt::ISODate);
    return date.isValid() ? date.toString(QStringLiteral("dd-MM-yyyy")) : QString();
}

}  // namespace

MyDocumentsWindow::MyDocumentsWindow()
    : txtFilter(new QLineEdit(this)), grid(new QTableWidget(this)), lblCount(new QLabel(this)),
      cmdAddFiles(new QPushButton(QStringLiteral("Add &documents…"), this)),
      cmdAddFolder(new QPushButton(QStringLiteral("Add a &folder…"), this)),
      cmdOpen(new QPushButton(QStringLiteral("&Open"), this)), cmdRemove(new QPushButton(QStringLiteral("&Remove"), this)) {
    setObjectName(QStringLiteral("MyDocumentsWindow"));
    setWindowTitle(kTitle);
    resize(980, 560);
    txtFilter->setPlaceholderText(QStringLiteral("Type to narrow the list"));
    txtFilter->setClearButtonEnabled(true);
    grid->setColumnCount(6);
    grid->setHorizontalHeaderLabels({QStringLiteral("Kind"), QStringLiteral("Title"), QStringLiteral("Number"),
                                     QStringLiteral("Date"), QStringLiteral("File"), QStringLiteral("Added")});
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    grid->setItemDelegateForColumn(colKind, new KindDelegate(grid));
    grid->verticalHeader()->hide();
    grid->setAlternatingRowColors(true);
    grid->horizontalHeader()->setSectionResizeMode(colTitle, QHeaderView::Stretch);
    for (const auto& [column, width] : {std::pair{colKind, 110}, {colNumber, 120}, {colDate, 95}, {colFile, 170}, {colAdded, 120}})
        grid->setColumnWidth(column, width);
    cmdAddFiles->setToolTip(QStringLiteral("PDF, RTF, HTML or text files"));
    cmdAddFolder->setToolTip(QStringLiteral("Every document of a folder and its subfolders"));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Find:"), this));
    top->addWidget(txtFilter, 1);
    top->addWidget(lblCount);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {cmdAddFiles, cmdAddFolder}) buttons->addWidget(b);
    buttons->addStretch(1);
    for (QPushButton* b : {cmdOpen, cmdRemove}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(grid, 1);
    layout->addWidget(new QLabel(QStringLiteral("Enter opens a document; F2 changes the cell chosen; the kind, title, "
                                                "number and date were read from the document's first lines."), this));
    layout->addLayout(buttons);

    connect(txtFilter, &QLineEdit::textEdited, this, [this] { applyFilter(); });
    connect(grid, &QTableWidget::cellChanged, this, [this](int row, int column) { forms::guard([&] { cellChanged(row, column); }); });
    connect(grid, &QTableWidget::cellDoubleClicked, this, [this] { openCurrent(); });
    connect(cmdOpen, &QPushButton::clicked, this, [this] { forms::guard([this] { openCurrent(); }); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { forms::guard([this] { removeChosen(); }); });
    connect(cmdAddFiles, &QPushButton::clicked, this, [this] {
        const QStringList files = QFileDialog::getOpenFileNames(
            this, QStringLiteral("Add documents"), basic::Settings().value(kFolderSetting).toString(),
            QStringLiteral("Documents (*.pdf *.rtf *.htm *.html *.txt);;All files (*)"));
        if (files.isEmpty()) return;
        basic::Settings().setValue(kFolderSetting, QFileInfo(files.first()).absolutePath());
        forms::guard([&] { addChosen(files); });
    });
    connect(cmdAddFolder, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, QStringLiteral("Add a folder of documents"),
                                                                 basic::Settings().value(kFolderSetting).toString());
        if (folder.isEmpty()) return;
        basic::Settings().setValue(kFolderSetting, folder);
        forms::guard([&] { addChosen({folder}); });
    });
    grid->installEventFilter(this);
    txtFilter->installEventFilter(this);
}

qint64 MyDocumentsWindow::idAt(int row) const {
    const QTableWidgetItem* item = grid->item(row, colTitle);
    return item ? item->data(Qt::UserRole).toLongLong() : 0;
}

void MyDocumentsWindow::reload() {
    const std::vector<MyDocument> all = myDocuments().list();
    loading_ = true;
    grid->setUpdatesEnabled(false);
    grid->clearContents();
    grid->setRowCount(int(all.size()));
    for (int row = 0; row < int(all.size()); ++row) {
        const MyDocument& d = all[size_t(row)];
        const QString cells[] = {d.kind, d.title, d.number, shownDate(d.date), d.file, d.added.toString(QStringLiteral("dd-MM-yyyy hh:mm"))};
        for (int c = 0; c < 6; ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            if (c >= colFile) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
            grid->setItem(row, c, item);
        }
        grid->item(row, colTitle)->setData(Qt::UserRole, d.id);
        grid->item(row, colTitle)->setToolTip(d.title);
    }
    grid->setUpdatesEnabled(true);
    loading_ = false;
    applyFilter();
}

void MyDocumentsWindow::applyFilter() {
    const QStringList words = txtFilter->text().split(u' ', Qt::SkipEmptyParts);
    int shown = 0;
    for (int row = 0; row < grid->rowCount(); ++row) {
        bool all = true;
        for (const QString& w : words) {
            bool found = false;
            for (int c = 0; c < grid->columnCount() && !found; ++c) found = grid->item(row, c)->text().contains(w, Qt::CaseInsensitive);
            all = all && found;
        }
        grid->setRowHidden(row, !all);
        shown += all;
    }
    lblCount->setText(words.isEmpty() ? (grid->rowCount() == 1 ? QStringLiteral("1 document") : QStringLiteral("%1 documents").arg(grid->rowCount()))
                                      : QStringLiteral("%1 of %2").arg(shown).arg(grid->rowCount()));
}

void MyDocumentsWindow::cellChanged(int row, int column) {
    if (loading_) return;
    const std::optional<MyDocument> old = myDocuments().document(idAt(row));
    if (!old) return;
    MyDocument d = *old;
    const QString typed = grid->item(row, column)->text().trimmed();
    bool ok = true;
    switch (column) {
    case colKind: ok = kinds().contains(typed); if (ok) d.kind = typed; break;
    case colTitle: ok = !typed.isEmpty(); if (ok) d.title = typed; break;
    case colNumber: d.number = typed; break;
    case colDate: d.date = readDate(typed, &ok); break;
    default: return;
    }
    if (!ok) {
        forms::MsgBox(column == colDate ? QStringLiteral("Give the date as dd-mm-yyyy, for instance 14-03-2006.")
                                        : column == colTitle ? QStringLiteral("A document needs a title.")
                                                             : QStringLiteral("Choose one of the kinds of the list."),
                      forms::vbExclamation, kTitle);
    } else {
        myDocuments().change(d);
    }
    // What is shown is what is kept.
    const QString kept[] = {d.kind, d.title, d.number, shownDate(d.date)};
    loading_ = true;
    grid->item(row, column)->setText(kept[column]);
    loading_ = false;
}

void MyDocumentsWindow::addChosen(const QStringList& paths) {
    const QStringList files = filesToAdd(paths);
    if (files.isEmpty()) {
        forms::MsgBox(QStringLiteral("There is no file to add there."), forms::vbInformation, kTitle);
        return;
    }
    QProgressDialog progress(QStringLiteral("Adding %1 files…").arg(files.size()), QStringLiteral("Cancel"), 0, int(files.size()), this);
    progress.setWindowTitle(kTitle);
    progress.setWindowModality(Qt::WindowModal);
    // Shown at once: a folder may hold thousands of files, and Cancel must be there from the first.
    progress.setMinimumDuration(0);
    progress.setValue(0);
    bool cancelled = false;
    const std::vector<AddedFile> outcome = addFiles(myDocuments(), files, [&](int done, int total) {
        progress.setValue(done);
        // Every file lets the window draw and Cancel be pressed, whatever the dialog itself decides.
        QCoreApplication::processEvents();
        if (done < total) progress.setLabelText(QStringLiteral("Adding %1 of %2: %3").arg(done + 1).arg(total).arg(QFileInfo(files[done]).fileName()));
        cancelled = progress.wasCanceled();
        return !cancelled;
    });
    progress.close();
    reload();
    bool allAdded = true;
    for (const AddedFile& f : outcome) allAdded = allAdded && f.id;
    forms::MsgBox(addingReport(outcome, cancelled), allAdded && !cancelled ? forms::vbInformation : forms::vbExclamation, kTitle);
}

void MyDocumentsWindow::openCurrent() {
    int row = grid->currentRow();
    if (row < 0 || grid->isRowHidden(row))
        for (row = 0; row < grid->rowCount() && grid->isRowHidden(row); ++row) {}
    if (row >= grid->rowCount()) return;
    openDocument(kMyDocumentsTable + u':' + QString::number(idAt(row)));
}

void MyDocumentsWindow::removeChosen() {
    QList<int> rows;
    for (const QModelIndex& index : grid->selectionModel()->selectedRows()) rows << index.row();
    if (rows.isEmpty() && grid->currentRow() >= 0) rows << grid->currentRow();
    if (rows.isEmpty()) return;
    const QString text = rows.size() == 1 ? QStringLiteral("Remove \"%1\" from your documents?").arg(grid->item(rows[0], colTitle)->text())
                                          : QStringLiteral("Remove the %1 chosen documents from your documents?").arg(rows.size());
    if (forms::MsgBox(text, forms::vbYesNo | forms::vbQuestion | forms::vbDefaultButton2, kTitle) != forms::vbYes) return;
    for (const int row : rows) myDocuments().remove(idAt(row));
    reload();
}

void MyDocumentsWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    reload();
    grid->setFocus();
    if (grid->rowCount() > 0 && grid->currentRow() < 0) grid->selectRow(0);
}

void MyDocumentsWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

bool MyDocumentsWindow::eventFilter(QObject* watched, QEvent* event) {
    // While a cell is edited the keys go to its editor, not here.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            forms::guard([this] { openCurrent(); });
            return true;
        }
        if (watched == grid && key == Qt::Key_Delete) {
            forms::guard([this] { removeChosen(); });
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace library
