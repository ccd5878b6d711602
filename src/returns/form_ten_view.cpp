#include "returns/form_ten_view.h"

#include "platform/basic/clock.h"
#include "platform/basic/indian_amount.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/wait_cursor.h"
#include "platform/forms/window_registry.h"
#include "returns/log.h"
#include "returns/form_ten_paper.h"
#include "returns/frm_normal.h"
#include "returns/store_work.h"
#include "returns/return_book.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScrollArea>
#include <QScrollBar>
#include <QTime>
#include <QVBoxLayout>

namespace returns {

namespace {

constexpr double kGutterMm = 64.0;     // beside the page, where the form says what it has to say of a line
constexpr int kSheetMarginPx = 12;

const char kEditorStyle[] =
    "QLineEdit, QComboBox { border: none; background: #fff6c2; padding: 0 2px; }"
    "QLineEdit:focus, QComboBox:focus { background: #ffffff; border: 2px solid #1565c0; }";

}  // namespace

void FillBookMonths(QComboBox* months) {
    const QSignalBlocker quiet(months);
    const int firstYear = CurrentBook().firstYear;
    const QString chosen = months->currentData().toString();
    months->clear();
    for (const QString& m : FormTenMonths())
        months->addItem(m + QLatin1Char(' ') + QString::number(MonthNumber(m) <= 3 ? firstYear + 1 : firstYear), m);
    months->setCurrentIndex(std::max(0, months->findData(chosen)));
}

// ---- the sheet ------------------------------------------------------------------------------------------

FormTenSheet::FormTenSheet(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, QColor(0x9A, 0x9A, 0x9A));
    setPalette(p);
    setStyleSheet(QString::fromLatin1(kEditorStyle));
}

double FormTenSheet::pxPerMm() const { return logicalDpiX() / 25.4; }

QPointF FormTenSheet::pageOrigin(int page) const {
    return QPointF(kSheetMarginPx, kSheetMarginPx + page * (kPageHeightMm * pxPerMm() + kSheetMarginPx));
}

QSize FormTenSheet::sizeHint() const {
    const double k = pxPerMm();
    const int pages = std::max<int>(1, int(pages_.size()));
    return QSize(int((kPageWidthMm + kGutterMm) * k) + 2 * kSheetMarginPx,
                 int(pages * (kPageHeightMm * k + kSheetMarginPx)) + kSheetMarginPx);
}

QLineEdit* FormTenSheet::lineEdit(const QString& box) const { return qobject_cast<QLineEdit*>(editors_.value(box)); }

QRect FormTenSheet::boxRect(const QString& box) const {
    const auto it = boxPlaces_.constFind(box);
    if (it == boxPlaces_.constEnd()) return {};
    const double k = pxPerMm();
    const QRectF mm = it->second;
    return QRectF(pageOrigin(it->first) + QPointF(mm.x() * k, mm.y() * k), QSizeF(mm.width() * k, mm.height() * k)).toAlignedRect();
}

void FormTenSheet::setMonth(const FormTenMonth* month) {
    month_ = month;
    qDeleteAll(editors_);
    editors_.clear();
    boxPlaces_.clear();
    pages_ = LayFormTen(month->values);
    for (int n = 0; n < int(pages_.size()); ++n)
        for (const PlacedCell& c : pages_[size_t(n)].cells) {
            if (c.box.isEmpty()) continue;
            boxPlaces_.insert(c.box, {n, c.mm});
            const FormBox* box = FormTenBox(c.box);
            if (!box || box->kind != BoxKind::Typed) continue;
            QWidget* editor = nullptr;
            if (box->shape == BoxShape::Nature) {
                auto* combo = new QComboBox(this);
                combo->addItems({QStringLiteral("Original"), QStringLiteral("Fresh"), QStringLiteral("Revised")});
                combo->setCurrentText(month->values.typed.value(c.box));
                connect(combo, &QComboBox::currentTextChanged, this, [this, name = c.box](const QString& t) { emit typed(name, t); });
                editor = combo;
            } else {
                auto* edit = new QLineEdit(month->values.typed.value(c.box), this);
                if (box->shape == BoxShape::Amount || box->shape == BoxShape::Rate) edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
                if (box->shape == BoxShape::Amount) edit->setText(BoxText(month->values, c.box));
                if (box->shape == BoxShape::YesNo) {
                    edit->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[YyNn]?")), edit));
                    edit->setAlignment(Qt::AlignCenter);
                }
                connect(edit, &QLineEdit::textEdited, this, [this, name = c.box](const QString& t) { emit typed(name, t); });
                connect(edit, &QLineEdit::editingFinished, this, [this, edit, box] { amountLeft(edit, *box); });
                editor = edit;
            }
            editor->setObjectName(c.box);
            editor->setFont(FormTenCellFont());
            editor->setToolTip(box->caption);
            editor->installEventFilter(this);
            editors_.insert(c.box, editor);
        }
    placeEditors();
    for (QWidget* e : std::as_const(editors_)) e->show();
    updateGeometry();
    resize(sizeHint());
    update();
}

// An amount left with a text that is no amount is named at once, and the box keeps the focus; a good
// one is shown grouped.
bool FormTenSheet::amountLeft(QLineEdit* edit, const FormBox& box) {
    if (box.shape != BoxShape::Amount && box.shape != BoxShape::Rate) return true;
    const QString t = edit->text().trimmed();
    if (t.isEmpty()) return true;
    if (const auto amount = basic::ParseIndianAmount(t)) {
        if (box.shape == BoxShape::Amount && edit->text() != basic::IndianAmount(*amount)) {
            edit->setText(basic::IndianAmount(*amount));
            emit typed(box.name, edit->text());
        }
        return true;
    }
    FormTenValues probe;
    probe.typed.insert(box.name, t);
    const auto fault = CheckTyped(probe);
    forms::MsgBox(fault ? fault->message : box.caption, forms::vbExclamation, QStringLiteral("Not a figure"));
    edit->setFocus();
    edit->selectAll();
    return false;
}

void FormTenSheet::placeEditors() {
    for (auto it = editors_.cbegin(); it != editors_.cend(); ++it) it.value()->setGeometry(boxRect(it.key()).adjusted(2, 2, -1, -1));
}

bool FormTenSheet::eventFilter(QObject* watched, QEvent* event) {
    // Enter goes on to the next box, as Tab does: the form is filled in from the keyboard, top to bottom.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !qobject_cast<QComboBox*>(watched)) {
            auto* edit = qobject_cast<QLineEdit*>(watched);
            const FormBox* box = FormTenBox(watched->objectName());
            if (edit && box && !amountLeft(edit, *box)) return true;
            focusNextChild();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FormTenSheet::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    p.setClipRect(event->rect());
    if (!month_) return;
    const double k = pxPerMm();
    PagePaint how;
    how.pxPerMm = k;
    how.screen = true;
    how.footer = FormTenFooter(*month_);
    for (int n = 0; n < int(pages_.size()); ++n) {
        const QPointF origin = pageOrigin(n);
        const QRectF pageRect(origin, QSizeF(kPageWidthMm * k, kPageHeightMm * k));
        if (!pageRect.intersects(event->rect())) continue;
        p.fillRect(pageRect, Qt::white);
        p.save();
        p.translate(origin);
        PaintFormPage(p, pages_[size_t(n)], month_->values, how, n + 1, int(pages_.size()));
        // Beside a line, in the margin, what the form has to say of it.
        QFont small(QStringLiteral("DejaVu Sans"));
        small.setPointSizeF(7.0);
        p.setFont(small);
        // Lines in a row that say the same share one note; notes that would meet are pushed down.
        const auto& lines = pages_[size_t(n)].lines;
        double free = 0;
        for (size_t i = 0; i < lines.size(); ++i) {
            const QString note = month_->values.notes.value(lines[i].line);
            if (note.isEmpty()) continue;
            size_t last = i;
            while (last + 1 < lines.size() && month_->values.notes.value(lines[last + 1].line) == note) ++last;
            const double top = lines[i].topMm * k, bottom = (lines[last].topMm + lines[last].heightMm) * k;
            p.fillRect(QRectF((kPageWidthMm - kPageMarginMm + 0.6) * k, top, 2.0 * k, bottom - top), QColor(0xC6, 0x28, 0x28));
            const QRectF text((kPageWidthMm + 2) * k, std::max(top, free), (kGutterMm - 4) * k, 60 * k);
            // The text is measured with its pen set: a painter without a pen measures nothing.
            p.setPen(QColor(0xB7, 0x1C, 0x1C));
            const QRectF used = p.boundingRect(text.adjusted(4, 2, -4, 0), Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, note);
            p.fillRect(used.adjusted(-4, -2, 4, 2), QColor(0xFF, 0xEB, 0xEE));
            p.drawText(used, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, note);
            free = used.bottom() + 8;
            i = last;
        }
        p.restore();
    }
}

// ---- the window -----------------------------------------------------------------------------------------

FormTenWindow::FormTenWindow(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("Direct To Form - Form No. 10"));
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    const auto particular = [&](const QString& caption, QLineEdit*& box, int chars) {
        box = new QLineEdit(this);
        box->setReadOnly(true);
        box->setFocusPolicy(Qt::NoFocus);
        box->setMinimumWidth(box->fontMetrics().averageCharWidth() * chars);
        auto* label = new QLabel(caption, this);
        top->addWidget(label);
        top->addWidget(box, chars);
    };
    particular(QStringLiteral("Dealer"), txtDealerName, 24);
    particular(QStringLiteral("TIN"), txtTIN, 12);
    particular(QStringLiteral("CST No."), txtCST, 12);
    particular(QStringLiteral("Year"), txtYear, 6);
    cboMonth = new QComboBox(this);
    auto* monthLabel = new QLabel(QStringLiteral("&Month"), this);
    monthLabel->setBuddy(cboMonth);
    top->addSpacing(12);
    top->addWidget(monthLabel);
    top->addWidget(cboMonth);
    layout->addLayout(top);

    lblSource = new QLabel(this);
    lblSource->setWordWrap(true);
    lblSource->setContentsMargins(6, 4, 6, 4);
    lblSource->setAutoFillBackground(true);
    layout->addWidget(lblSource);

    scroll = new QScrollArea(this);
    sheet = new FormTenSheet;
    scroll->setWidget(sheet);
    scroll->setAlignment(Qt::AlignHCenter);
    layout->addWidget(scroll, 1);

    auto* buttons = new QHBoxLayout;
    lblSaved = new QLabel(this);
    buttons->addWidget(lblSaved, 1);
    cmdSave = new QPushButton(QStringLiteral("&Save"), this);
    cmdPreview = new QPushButton(QStringLiteral("Pre&view"), this);
    cmdPrint = new QPushButton(QStringLiteral("&Print..."), this);
    cmdPdf = new QPushButton(QStringLiteral("P&DF..."), this);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    for (QPushButton* b : {cmdSave, cmdPreview, cmdPrint, cmdPdf, cmdClose}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);
    cmdSave->setToolTip(QStringLiteral("Keep the boxes typed on the form (Ctrl+S)"));

    connect(cmdSave, &QPushButton::clicked, this, [this] { save(); });
    connect(cmdPreview, &QPushButton::clicked, this, [this] { preview(); });
    connect(cmdPrint, &QPushButton::clicked, this, [this] { PrintFormTen(month_, this); });
    connect(cmdPdf, &QPushButton::clicked, this, [this] {
        const QString path = AskFormTenPdfPath(month_, this);
        if (!path.isEmpty()) savePdf(path);
    });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    connect(sheet, &FormTenSheet::typed, this, &FormTenWindow::typedBox);
    // The page follows the keyboard: the box that takes the focus is brought into sight.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && now->parentWidget() == sheet) scroll->ensureWidgetVisible(now, 40, 60);
    });

    FillBookMonths(cboMonth);
    connect(cboMonth, &QComboBox::activated, this, [this](int index) { showMonth(cboMonth->itemData(index).toString()); });
    resize(1100, 860);
}

FormTenWindow::~FormTenWindow() = default;

QString FormTenWindow::startingMonth() const {
    // The month the return window shows, when it is open; else the month of today, as it starts with.
    if (forms::exists(QStringLiteral("frmNormal"))) {
        const QString shown = forms::get<frmNormal>(QStringLiteral("frmNormal"))->txtRPTo->text().trimmed();
        for (const QString& m : FormTenMonths())
            if (m.compare(shown, Qt::CaseInsensitive) == 0) return m;
    }
    return basic::Clock::today().toString(QStringLiteral("MMMM"));
}

void FormTenWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // Each opening reads the month afresh from the book; a window brought back from the task bar keeps it.
    if (event->spontaneous()) return;
    if (!unsaved_) load(startingMonth());
    raise();
    activateWindow();
}

void FormTenWindow::load(const QString& month) {
    FormTenMonth read;
    const basic::RuntimeError e = basic::resume([&] { read = ReadFormTen(month); });
    if (e.number() != 0) {
        qCWarning(lcReturns) << "the form of" << month << "could not be read:" << e.number() << e.description();
        forms::MsgBox(QStringLiteral("The return of ") + month + QStringLiteral(" cannot be read from the book: ") + e.description(),
                      forms::vbExclamation, QStringLiteral("Form No. 10"));
        read.month = month;
        read.sourceText = QStringLiteral("The return of ") + month + QStringLiteral(" could not be read.");
    }
    read_ = read;
    month_ = read;
    handOver(month_.values);
    unsaved_ = false;
    FillBookMonths(cboMonth);
    const int index = cboMonth->findData(month_.month);
    if (index >= 0) cboMonth->setCurrentIndex(index);
    sheet->setMonth(&month_);
    showSource();
    lblSaved->clear();
    if (QWidget* first = sheet->editor(QStringLiteral("hdAuthority"))) first->setFocus(Qt::OtherFocusReason);
}

// What the chooser handed over stands before the book's own particulars.
void FormTenWindow::handOver(FormTenValues& v) const {
    if (!txtDealerName->text().trimmed().isEmpty())
        v.fixed.insert("dpName", QStringList{txtDealerName->text().trimmed(), v.fixed.value("dpName").section(u'\n', 1)}.join(u'\n').trimmed());
    if (!txtTIN->text().trimmed().isEmpty()) v.fixed.insert("dpTIN", txtTIN->text().trimmed());
    if (!txtCST->text().trimmed().isEmpty()) v.fixed.insert("dpCST", txtCST->text().trimmed());
}

// Back from the return window, where the month may have been added or exported since: the form takes
// the book's figures as they are now, and keeps what was typed and not yet kept.
void FormTenWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible() && !month_.month.isEmpty())
        showChangedFigures();
}

void FormTenWindow::TakeTheBookAgain() {
    if (month_.month.isEmpty()) return;
    read_ = FormTenMonth();
    showChangedFigures();
}

bool FormTenWindow::showChangedFigures() {
    FormTenMonth fresh;
    // A read that fails here says nothing: the form keeps what it shows.
    if (basic::resume([&] { fresh = ReadFormTen(month_.month); }).number() != 0) return false;
    const auto same = [](const FormTenMonth& a, const FormTenMonth& b) {
        return a.source == b.source && a.sourceText == b.sourceText && a.values.fixed == b.values.fixed &&
               a.values.figures == b.values.figures && a.values.typed == b.values.typed && a.values.notes == b.values.notes;
    };
    if (same(fresh, read_)) return false;
    read_ = fresh;
    fresh.values.typed = month_.values.typed;
    handOver(fresh.values);
    ComputeFormTen(fresh.values);
    month_ = fresh;
    sheet->setMonth(&month_);
    showSource();
    return true;
}

void FormTenWindow::showSource() {
    QString text = month_.sourceText;
    if (!month_.values.notes.isEmpty())
        text += QStringLiteral("\n%1 line(s) of the form are marked in red: see beside them.").arg(month_.values.notes.size());
    lblSource->setText(text);
    QPalette p = lblSource->palette();
    p.setColor(QPalette::Window, month_.source == FormSource::Pages && month_.values.notes.isEmpty() ? QColor(0xE8, 0xF5, 0xE9)
                                                                                                     : QColor(0xFF, 0xF3, 0xE0));
    lblSource->setPalette(p);
}

void FormTenWindow::typedBox(const QString& box, const QString& text) {
    month_.values.typed.insert(box, text);
    ComputeFormTen(month_.values);
    unsaved_ = true;
    lblSaved->clear();
    sheet->update();
}

bool FormTenWindow::askToKeep() {
    if (!unsaved_) return true;
    const int answer = forms::MsgBox(QStringLiteral("Keep what was typed on the form of ") + month_.month + QStringLiteral("?"),
                                     forms::vbYesNoCancel | forms::vbQuestion, QStringLiteral("Form No. 10"));
    if (answer == forms::vbCancel) return false;
    if (answer == forms::vbYes) return save();
    unsaved_ = false;
    return true;
}

void FormTenWindow::showMonth(const QString& month) {
    if (month == month_.month) return;
    if (!askToKeep()) {
        cboMonth->setCurrentIndex(cboMonth->findData(month_.month));
        return;
    }
    load(month);
}

bool FormTenWindow::save() {
    if (const auto fault = CheckTyped(month_.values)) {
        forms::MsgBox(QStringLiteral("Nothing was kept: ") + fault->message, forms::vbExclamation, QStringLiteral("Not saved"));
        if (QWidget* box = sheet->editor(fault->box)) {
            scroll->ensureWidgetVisible(box);
            box->setFocus(Qt::OtherFocusReason);
        }
        return false;
    }
    basic::RuntimeError e;
    {
        forms::WaitCursor wait;
        e = basic::resume([&] { SaveFormTen(month_); });
    }
    if (e.number() != 0) {
        qCWarning(lcReturns) << "the form of" << month_.month << "was not kept:" << e.number() << e.description();
        const QString file = QDir::toNativeSeparators(CurrentBook().folder + QStringLiteral("/nwForm10DB.mdb"));
        QString why;
        switch (faultOf(e)) {
        case StoreFault::DiskFull: why = QStringLiteral("the disk is full; free some space on it"); break;
        case StoreFault::Locked: why = QStringLiteral("another program is using the return file ") + file +
                                       QStringLiteral("; close it, or wait until it is done"); break;
        case StoreFault::ReadOnly: why = QStringLiteral("the return file ") + file +
                                         QStringLiteral(" may not be written; ask for write access to it and its folder"); break;
        case StoreFault::Damaged: why = QStringLiteral("the return file ") + file + QStringLiteral(" is damaged (") + e.description() +
                                        QStringLiteral("); bring the book back with BackUp / Restore"); break;
        default: why = QStringLiteral("the return file ") + file + QStringLiteral(" refused it (") + e.description() + QStringLiteral(")");
        }
        forms::MsgBox(QStringLiteral("Nothing was kept: ") + why + QStringLiteral(".\nWhat was typed is still on the form; save again."),
                      forms::vbExclamation, QStringLiteral("Not saved"));
        return false;
    }
    unsaved_ = false;
    lblSaved->setText(QStringLiteral("Kept in the book at ") + QTime::currentTime().toString(QStringLiteral("HH:mm")));
    return true;
}

void FormTenWindow::preview() {
    if (!preview_) preview_ = std::make_unique<FormTenPreview>();
    preview_->setMonth(month_);
    preview_->showMaximized();
    preview_->activateWindow();
}

bool FormTenWindow::savePdf(const QString& path) {
    if (!SaveFormTenPdf(month_, path)) return false;
    lblSaved->setText(QStringLiteral("Saved as ") + QDir::toNativeSeparators(path));
    return true;
}

void FormTenWindow::keyPressEvent(QKeyEvent* event) {
    // What the boxes leave unused comes here: Ctrl+S keeps the form, Esc closes it.
    if (event->matches(QKeySequence::Save)) save();
    else if (event->key() == Qt::Key_Escape) close();
    else QWidget::keyPressEvent(event);
}

void FormTenWindow::closeEvent(QCloseEvent* event) {
    if (!askToKeep()) {
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}

}  // namespace returns
