#include "returns/book_chooser.h"

#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "returns/dealer_form.h"
#include "returns/return_books.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <map>

namespace returns {

namespace {
const QString kTitle = QStringLiteral("Dealers and years");
}  // namespace

// The dealers of the register with their years, and the ones the words typed so far let through.
class DealerRows : public QAbstractTableModel {
public:
    struct Row {
        Dealer dealer;
        QList<int> years;
        QString words;         // name, TIN and place, case folded: what typing finds
    };
    std::vector<Row> all;
    std::vector<int> shown;

    using QAbstractTableModel::QAbstractTableModel;
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(shown.size()); }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 3; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
        const Dealer& d = row(index.row()).dealer;
        const QString& text = index.column() == 0 ? d.name : index.column() == 1 ? d.tin : d.place;
        // A name of any length is kept whole; the list shows its start.
        return role == Qt::DisplayRole ? QVariant(text.left(200)) : QVariant(text.left(1000));
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return section == 0 ? QStringLiteral("Dealer") : section == 1 ? QStringLiteral("TIN") : QStringLiteral("Place");
    }
    const Row& row(int shownRow) const { return all[size_t(shown[size_t(shownRow)])]; }

    void load(const DealerRegister& reg) {
        std::map<QString, QList<int>> years;
        for (const BookKey& b : reg.Books()) years[b.tin] << b.firstYear;
        beginResetModel();
        all.clear();
        if (years.count(QString())) all.push_back({Dealer{QString(), kDealerNotNamed, {}, {}, {}, {}, {}}, years[QString()], {}});
        for (Dealer& d : reg.Dealers()) {
            QList<int>& y = years[d.tin];
            all.push_back({std::move(d), y, {}});
        }
        for (Row& r : all) r.words = (r.dealer.name + u' ' + r.dealer.tin + u' ' + r.dealer.place).toCaseFolded();
        endResetModel();
    }
    void find(const QString& text) {
        const QStringList words = text.toCaseFolded().split(u' ', Qt::SkipEmptyParts);
        beginResetModel();
        shown.clear();
        for (int i = 0; i < int(all.size()); ++i) {
            bool all_words = true;
            for (const QString& w : words) all_words = all_words && all[size_t(i)].words.contains(w);
            if (all_words) shown.push_back(i);
        }
        endResetModel();
    }
};

BookChooser::BookChooser(QWidget* parent) : QWidget(parent) {
    setWindowTitle(kTitle);
    rows_ = new DealerRows(this);
    txtFind = new QLineEdit(this);
    txtFind->setPlaceholderText(QStringLiteral("Type a name, a TIN or a place"));
    txtFind->setClearButtonEnabled(true);
    auto* findLabel = new QLabel(QStringLiteral("&Find:"), this);
    findLabel->setBuddy(txtFind);

    lstDealers = new QTableView(this);
    lstDealers->setModel(rows_);
    lstDealers->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstDealers->setSelectionMode(QAbstractItemView::SingleSelection);
    lstDealers->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstDealers->verticalHeader()->hide();
    lstDealers->verticalHeader()->setDefaultSectionSize(lstDealers->fontMetrics().height() + 6);
    lstDealers->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    lstDealers->setColumnWidth(1, 130);
    lstDealers->setColumnWidth(2, 150);
    lstDealers->setWordWrap(false);
    lstDealers->setTabKeyNavigation(false);

    lstYears = new QListWidget(this);
    lstYears->setMaximumWidth(150);
    auto* yearsLabel = new QLabel(QStringLiteral("&Years"), this);
    yearsLabel->setBuddy(lstYears);
    lblCount = new QLabel(this);

    cmdOpen = new QPushButton(QStringLiteral("&Open"), this);
    cmdNewYear = new QPushButton(QStringLiteral("&New year"), this);
    cmdYearBefore = new QPushButton(QStringLiteral("Year &before"), this);
    cmdAddDealer = new QPushButton(QStringLiteral("&Add dealer"), this);
    cmdEditDealer = new QPushButton(QStringLiteral("&Edit dealer"), this);
    cmdRemoveDealer = new QPushButton(QStringLiteral("&Remove dealer"), this);
    cmdNameBook = new QPushButton(QStringLiteral("Na&me the dealer"), this);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdOpen->setToolTip(QStringLiteral("Open the book of this dealer and year (Enter)"));
    cmdNewYear->setToolTip(QStringLiteral("Make the dealer's next year and open it"));
    cmdNameBook->setToolTip(QStringLiteral("Give this book of \"%1\" to a dealer").arg(kDealerNotNamed));

    auto* find = new QHBoxLayout;
    find->addWidget(findLabel);
    find->addWidget(txtFind);
    auto* years = new QVBoxLayout;
    years->addWidget(yearsLabel);
    years->addWidget(lstYears);
    auto* lists = new QHBoxLayout;
    lists->addWidget(lstDealers, 1);
    lists->addLayout(years);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {cmdOpen, cmdNewYear, cmdYearBefore, cmdAddDealer, cmdEditDealer, cmdRemoveDealer, cmdNameBook})
        buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(find);
    layout->addLayout(lists, 1);
    layout->addWidget(lblCount);
    layout->addLayout(buttons);
    resize(860, 480);

    for (QWidget* w : {static_cast<QWidget*>(txtFind), static_cast<QWidget*>(lstDealers), static_cast<QWidget*>(lstYears)})
        w->installEventFilter(this);
    connect(txtFind, &QLineEdit::textChanged, this, [this](const QString& t) { Find(t); });
    connect(lstDealers->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { showYears(); });
    connect(lstDealers, &QTableView::doubleClicked, this, [this] { OpenChosen(); });
    connect(lstYears, &QListWidget::itemDoubleClicked, this, [this] { OpenChosen(); });
    connect(lstYears, &QListWidget::currentRowChanged, this, [this] { enableButtons(); });
    connect(cmdOpen, &QPushButton::clicked, this, [this] { OpenChosen(); });
    connect(cmdNewYear, &QPushButton::clicked, this, [this] { NewYear(); });
    connect(cmdYearBefore, &QPushButton::clicked, this, [this] { YearBefore(); });
    connect(cmdAddDealer, &QPushButton::clicked, this, [this] { AddDealer(); });
    connect(cmdEditDealer, &QPushButton::clicked, this, [this] { EditDealer(); });
    connect(cmdRemoveDealer, &QPushButton::clicked, this, [this] { RemoveDealer(); });
    connect(cmdNameBook, &QPushButton::clicked, this, [this] { NameBook(); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::hide);
}

void BookChooser::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Reload();
    txtFind->setFocus();
    txtFind->selectAll();
}

void BookChooser::Reload() {
    const QString tin = BookIsOpen() ? CurrentBook().tin : ChosenTin();
    const int year = BookIsOpen() ? CurrentBook().firstYear : ChosenYear();
    rows_->load(Register());
    Find(txtFind->text());
    Choose(tin, year);
}

void BookChooser::Find(const QString& text) {
    const QString before = ChosenTin();
    rows_->find(text);
    int books = 0;
    for (const DealerRows::Row& r : rows_->all) books += int(r.years.size());
    const int dealers = int(rows_->all.size()) - (rows_->all.size() && rows_->all.front().dealer.tin.isEmpty() ? 1 : 0);
    if (rows_->all.empty()) lblCount->setText(QStringLiteral("No dealers yet: Add dealer (Alt+A) puts the first one in."));
    else if (text.trimmed().isEmpty()) lblCount->setText(QStringLiteral("%1 dealers, %2 books").arg(dealers).arg(books));
    else lblCount->setText(QStringLiteral("%1 of %2 dealers").arg(ShownDealers()).arg(dealers));
    Choose(before);
    if (ChosenTin() != before || !lstDealers->currentIndex().isValid()) Choose(ShownTin(0));
}

int BookChooser::ShownDealers() const { return rows_->rowCount(); }

QString BookChooser::ShownTin(int row) const {
    return row >= 0 && row < ShownDealers() ? rows_->row(row).dealer.tin : QString();
}

QString BookChooser::ChosenTin() const {
    const QModelIndex i = lstDealers->currentIndex();
    return i.isValid() ? rows_->row(i.row()).dealer.tin : QString();
}

int BookChooser::ChosenYear() const {
    const QListWidgetItem* item = lstYears->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

void BookChooser::Choose(const QString& tin, int firstYear) {
    for (int r = 0; r < ShownDealers(); ++r) {
        if (rows_->row(r).dealer.tin != tin) continue;
        lstDealers->setCurrentIndex(rows_->index(r, 0));
        lstDealers->scrollTo(rows_->index(r, 0));
        showYears();
        for (int y = 0; firstYear && y < lstYears->count(); ++y)
            if (lstYears->item(y)->data(Qt::UserRole).toInt() == firstYear) lstYears->setCurrentRow(y);
        return;
    }
    if (ShownDealers() == 0) {
        lstDealers->setCurrentIndex(QModelIndex());
        showYears();
    }
}

// The years of the dealer, the one open now chosen, else the latest.
void BookChooser::showYears() {
    lstYears->clear();
    const QModelIndex i = lstDealers->currentIndex();
    if (i.isValid()) {
        const DealerRows::Row& r = rows_->row(i.row());
        for (int y : r.years) {
            const bool open = BookIsOpen() && CurrentBook().tin == r.dealer.tin && CurrentBook().firstYear == y;
            auto* item = new QListWidgetItem(YearText(y) + (open ? QStringLiteral("  (open)") : QString()), lstYears);
            item->setData(Qt::UserRole, y);
            if (open) lstYears->setCurrentItem(item);
        }
        if (!lstYears->currentItem() && lstYears->count()) lstYears->setCurrentRow(lstYears->count() - 1);
    }
    enableButtons();
}

void BookChooser::enableButtons() {
    const bool dealer = lstDealers->currentIndex().isValid();
    const bool named = dealer && !ChosenTin().isEmpty();
    cmdOpen->setEnabled(ChosenYear() != 0);
    cmdNewYear->setEnabled(named);
    cmdYearBefore->setEnabled(named);
    cmdEditDealer->setEnabled(named);
    cmdRemoveDealer->setEnabled(named);
    cmdNameBook->setEnabled(dealer && !named && ChosenYear() != 0);
}

bool BookChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const int k = key->key();
    if (k == Qt::Key_Return || k == Qt::Key_Enter) {
        OpenChosen();
        return true;
    }
    if (k == Qt::Key_Escape) {
        hide();
        return true;
    }
    if (watched == txtFind && (k == Qt::Key_Up || k == Qt::Key_Down || k == Qt::Key_PageUp || k == Qt::Key_PageDown)) {
        // The arrows move among the dealers while the typing goes on.
        QKeyEvent copy(key->type(), k, key->modifiers());
        QCoreApplication::sendEvent(lstDealers, &copy);
        return true;
    }
    if (watched == lstDealers && !key->text().isEmpty() && key->text().at(0).isPrint() && !(key->modifiers() & Qt::AltModifier)) {
        // Typing on the list goes on in the find box.
        txtFind->setFocus();
        txtFind->insert(key->text());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool BookChooser::OpenChosen() {
    if (ChosenYear() == 0) return false;
    const ReturnBook book = BookOf(Register(), {ChosenTin(), ChosenYear()});
    // The windows that show a month of the book open now close first, the form asking to keep what was
    // typed in that book: left open, a save or a filing would go to the next book under the old figures.
    if ((!BookIsOpen() || KeyOf(CurrentBook()) != KeyOf(book)) &&
        !closeBookWindows({QStringLiteral("frmDirectToForm"), QStringLiteral("frmEFiling")}))
        return false;
    const QString failed = OpenBook(book);
    if (!failed.isEmpty()) {
        forms::MsgBox(failed, forms::vbExclamation, kTitle);
        return false;
    }
    hide();
    emit bookOpened();
    return true;
}

// False when one of them stays open: the form's keeping question was cancelled.
bool BookChooser::closeBookWindows(const QStringList& names) {
    for (const QString& name : names)
        if (forms::exists(name) && forms::get(name)->isVisible() && !forms::get(name)->close()) return false;
    return true;
}

void BookChooser::makeYear(int firstYear) {
    const QString tin = ChosenTin();
    const std::optional<Dealer> dealer = Register().Find(tin);
    if (!dealer) return;
    const basic::RuntimeError e = basic::resume([&] { MakeBook(Register(), BookOf(*dealer, firstYear)); });
    if (e.number() != 0) {
        forms::MsgBox(e.description(), forms::vbExclamation, kTitle);
        return;
    }
    emit registerChanged();
    Reload();
    Choose(tin, firstYear);
    OpenChosen();
}

void BookChooser::NewYear() {
    const QModelIndex i = lstDealers->currentIndex();
    if (!i.isValid() || ChosenTin().isEmpty()) return;
    const QList<int>& years = rows_->row(i.row()).years;
    const QDate today = basic::Clock::today();
    makeYear(years.isEmpty() ? FinancialYearOf(today.year(), today.month()) : years.back() + 1);
}

void BookChooser::YearBefore() {
    const QModelIndex i = lstDealers->currentIndex();
    if (!i.isValid() || ChosenTin().isEmpty()) return;
    const QList<int>& years = rows_->row(i.row()).years;
    const QDate today = basic::Clock::today();
    makeYear((years.isEmpty() ? FinancialYearOf(today.year(), today.month()) + 1 : years.front()) - 1);
}

void BookChooser::AddDealer() {
    DealerForm form(Register(), DealerForm::Purpose::Add, Dealer(), QString(), this);
    if (form.exec() != QDialog::Accepted) return;
    emit registerChanged();
    txtFind->clear();
    Reload();
    Choose(form.saved().tin);
    lstDealers->setFocus();
}

void BookChooser::EditDealer() {
    const std::optional<Dealer> dealer = Register().Find(ChosenTin());
    if (!dealer) return;
    DealerForm form(Register(), DealerForm::Purpose::Edit, *dealer, QString(), this);
    if (form.exec() != QDialog::Accepted) return;
    // The open book of the dealer takes the new details at once.
    if (BookIsOpen() && CurrentBook().tin == dealer->tin) OpenBook(BookOf(form.saved(), CurrentBook().firstYear));
    emit registerChanged();
    Reload();
}

void BookChooser::RemoveDealer() {
    const std::optional<Dealer> dealer = Register().Find(ChosenTin());
    if (!dealer) return;
    const QList<int> years = Register().YearsOf(dealer->tin);
    QStringList texts;
    for (int y : years) texts << YearText(y);
    const QString question =
        years.isEmpty()
            ? QStringLiteral("Remove %1 from the register?").arg(dealer->name)
            : QStringLiteral("%1 has %2 book(s): %3.\n\nRemove the dealer? The books are not deleted: they are moved to "
                             "the folder\n%4")
                  .arg(dealer->name)
                  .arg(years.size())
                  .arg(texts.join(QStringLiteral(", ")), QDir::toNativeSeparators(RemovedFolder()));
    if (forms::MsgBox(question, forms::vbYesNo + forms::vbQuestion, kTitle) != forms::vbYes) return;
    // The book open now closes with the dealer: its windows first, or what they hold would be added to
    // the program folder's return files, which are no dealer's.
    if (BookIsOpen() && CurrentBook().tin == dealer->tin &&
        !closeBookWindows({QStringLiteral("frmDirectToForm"), QStringLiteral("frmEFiling"), QStringLiteral("frmNormal")}))
        return;
    QString movedTo;
    const basic::RuntimeError e = basic::resume([&] { movedTo = returns::RemoveDealer(Register(), dealer->tin); });
    if (e.number() != 0) forms::MsgBox(e.description(), forms::vbExclamation, kTitle);
    else if (!movedTo.isEmpty())
        forms::MsgBox(QStringLiteral("The books of %1 are in\n%2").arg(dealer->name, QDir::toNativeSeparators(movedTo)),
                      forms::vbInformation, kTitle);
    emit registerChanged();
    Reload();
}

void BookChooser::NameBook() {
    const int year = ChosenYear();
    if (!ChosenTin().isEmpty() || year == 0) return;
    DealerForm form(Register(), DealerForm::Purpose::Name, Dealer(), YearText(year), this);
    if (form.exec() != QDialog::Accepted) return;
    const basic::RuntimeError e = basic::resume([&] { returns::NameBook(Register(), year, form.saved()); });
    if (e.number() != 0) forms::MsgBox(e.description(), forms::vbExclamation, kTitle);
    emit registerChanged();
    Reload();
    if (e.number() == 0) Choose(form.saved().tin, year);
}

}  // namespace returns
