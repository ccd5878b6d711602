#include "library/frm_global_sections.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "library/keralaforms.h"
#include "library/log.h"
#include "platform/forms/layout.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"

namespace library {

namespace {

using forms::heightOf;
using forms::leftOf;
using forms::place;
using forms::topOf;
using forms::widthOf;

QString errorText(const basic::RuntimeError& e) { return e.description() + e.detail(); }

// The Ctrl key as the keyboard stands now, not as the event reports it.
bool ctrlDown() { return QGuiApplication::keyboardModifiers() & Qt::ControlModifier; }

void setBack(QWidget* w, const QColor& color) {
    QPalette p = w->palette();
    p.setColor(QPalette::Window, color);
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

}  // namespace

frmGlobalSections::frmGlobalSections(QWidget* parent)
    : QWidget(parent, Qt::Window),
      frameContent(new QGroupBox(QStringLiteral("Select the item you want and click GO"), this)),
      DataGrid1(new forms::DataGrid(frameContent)),
      cmdGO(new QPushButton(QStringLiteral("&GO"), frameContent)),
      cmdBack(new QPushButton(QStringLiteral("&Back"), frameContent)),
      txtDetail(new QPlainTextEdit(frameContent)),
      txtSearch(new QLineEdit(frameContent)),
      lblWordSearch(new QLabel(QStringLiteral("Word &Search"), frameContent)) {
    lblWordSearch->setBuddy(txtSearch);
    txtDetail->setReadOnly(true);
    resize(forms::twips(13500), forms::twips(9000));
    place(cmdGO, 0, 150, 1215, 375);
    place(cmdBack, 0, 0, 1215, 375);
    place(lblWordSearch, 240, 690, 1200, 300);
    place(txtSearch, 1440, 660, 6000, 345);
    place(txtDetail, 240, 1110, 6000, 1000);
    place(DataGrid1, 240, 2220, 6000, 3000);

    connect(DataGrid1, &forms::DataGrid::Click, this, [this] { ChangeSelection(); });
    connect(DataGrid1, &forms::DataGrid::KeyDown, this, [this] { ChangeSelection(); });
    connect(DataGrid1, &forms::DataGrid::KeyUp, this, [this] { ChangeSelection(); });
    connect(DataGrid1, &forms::DataGrid::RowColChange, this, [this] { ChangeSelection(); });
    connect(DataGrid1, &forms::DataGrid::DblClick, this, [this] { DblClick(); });
    connect(DataGrid1, &forms::DataGrid::RowResize, this, [this] { DataGrid1_RowResize(); });
    connect(DataGrid1, &forms::DataGrid::ColResize, this, [this] { AutoSizeColumn(); });
    connect(cmdGO, &QPushButton::clicked, this, [this] { cmdGO_Click(); });
    connect(cmdBack, &QPushButton::clicked, this, [this] { cmdBack_Click(); });
    connect(txtSearch, &QLineEdit::textChanged, this, [this] { FilterRec(); });
    for (QObject* o : {static_cast<QObject*>(DataGrid1), static_cast<QObject*>(txtDetail),
                       static_cast<QObject*>(cmdGO), static_cast<QObject*>(cmdBack),
                       static_cast<QObject*>(txtSearch), static_cast<QObject*>(lblWordSearch)})
        o->installEventFilter(this);
    txtDetail->viewport()->installEventFilter(this);
    Form_Load();
}

void frmGlobalSections::Form_Load() {
    hiddenIDIndex_ = -1;
    dontShowOleForm_ = false;
    minimumRowHeight_ = 300;
    maximumRowHeight_ = 1000;
    DataGrid1->AllowAddNew = false;
    DataGrid1->AllowDelete = false;
    DataGrid1->AllowUpdate = false;
    DataGrid1->Appearance = 1;
    DataGrid1->BorderStyle = 0;
    DataGrid1->setRowHeight(320);
}

void frmGlobalSections::setRecSet(const store::Recordset& rs) {
    recSet_ = rs.Clone(store::Recordset::adLockReadOnly);
}

void frmGlobalSections::setHeader(const QString& v) {
    DataGrid1->setCaption(v);
    setWindowTitle(v);
}

void frmGlobalSections::hideColumn(int c) {
    DataGrid1->setColumnWidth(c, 0);
    DataGrid1->setColumnAllowSizing(c, false);
    DataGrid1->setColumnLocked(c, true);
    DataGrid1->setColumnVisible(c, false);
}

bool frmGlobalSections::LoadGridData() {
    // Every step resumes past its error, so that a list of nothing leaves an empty grid and no box.
    ignore([&] {
        DataGrid1->setDataSource(recSet_);
        DataGrid1->ClearFields();
        DataGrid1->ReBind();
    });
    ignore([&] {
        for (int c = 0; c < DataGrid1->ColumnCount(); ++c) DataGrid1->setColumnLocked(c, true);
    });
    ignore([&] {
        if (DataGrid1->ColumnCount() > 1) hideColumn(0);
    });
    ignore([&] {
        if (hiddenIDIndex_ >= 0 && hiddenIDIndex_ < DataGrid1->ColumnCount()) hideColumn(hiddenIDIndex_);
    });
    ignore([&] { ChangeSelection(); });
    ignore([&] { AutoSizeColumn(); });
    ignore([&] { setFocus(); });
    return true;
}

void frmGlobalSections::AutoSizeColumn() {
    const int count = DataGrid1->ColumnCount();
    if (!(autoSizeColumnIndex_ > 0 && autoSizeColumnIndex_ < count)) return;
    int others = 0;
    for (int c = 0; c < count; ++c)
        if (c != autoSizeColumnIndex_) others += DataGrid1->ColumnWidth(c);
    others += 273;   // row selector and scroll bar
    if (DataGrid1->Width() > others) DataGrid1->setColumnWidth(autoSizeColumnIndex_, DataGrid1->Width() - others);
}

void frmGlobalSections::ChangeSelection() {
    try {
        if (DataGrid1->Row() >= 0) {
            for (int i = DataGrid1->SelBookmarksCount() - 1; i >= 0; --i) DataGrid1->SelBookmarksRemove(i);
            DataGrid1->SelBookmarksAdd(DataGrid1->Bookmark());
        }
        cmdGO->setEnabled(!DataGrid1->Bookmark().isNull());
        ShowDetail();
    } catch (const basic::RuntimeError& e) {
        if (shell::ShowErrorDetail()) forms::MsgBox(QStringLiteral("ChangeSelectionErr ") + errorText(e));
        else forms::MsgBox(QStringLiteral("Grid exceptional case 3"), forms::vbOKOnly, QStringLiteral("Vorlan"));
    }
}

void frmGlobalSections::ShowDetail() {
    ignore([&] { txtDetail->clear(); });
    ignore([&] {
        if (detailIndex_ >= 0 && detailIndex_ < DataGrid1->ColumnCount() && !DataGrid1->Bookmark().isNull())
            txtDetail->setPlainText(basic::CStr(DataGrid1->ColumnValue(detailIndex_)));
    });
}

void frmGlobalSections::cmdGO_Click() {
    try {
        basic::Variant value = DataGrid1->ColumnValue(predicateValueColumnIndex_);
        const QString query = QStringLiteral("select ") + oleColumnName_ + QStringLiteral(" from ") + oleTableName_ +
                              QStringLiteral(" where ") + predicateColumnName_ + QStringLiteral("='") +
                              basic::CStr(value) + QStringLiteral("' ") + basic::Trim(additionalSearchConditions_);
        if (dontShowOleForm_) {
            queryString_ = query;
            emit GoClicked(this, value);
            return;
        }
        auto* kf = forms::get<keralaforms>(QStringLiteral("keralaforms"));
        if (!shell::IsQueryReturnsNullCnStr(query, connectionString_)) {
            kf->MSRDC1->setConnect(connectionString_);
            kf->MSRDC1->setSQL(query);
        }
        kf->MSRDC1->Refresh();
        kf->OLE1->setDataField(QStringLiteral("fname"));
        kf->show();
        kf->raise();
    } catch (const basic::RuntimeError& e) {
        if (shell::ShowErrorDetail()) forms::MsgBox(QStringLiteral("Error on cmdGO_Click() \n") + errorText(e));
        else forms::MsgBox(QStringLiteral("Grid exceptional case 1"), forms::vbOKOnly, QStringLiteral("Vorlan"));
    }
}

void frmGlobalSections::cmdBack_Click() {
    emit BackClicked(this);
    hide();
}

void frmGlobalSections::Form_QueryUnload(bool& cancel, int unloadMode) {
    if (unloadMode != 0) return;
    cancel = true;
    hide();
    emit BackClicked(this);
}

void frmGlobalSections::Form_Activate() {
    shell::SafeSetFocus(txtSearch);
}

void frmGlobalSections::Form_Resize() {
    const int insideWidth = widthOf(this), insideHeight = heightOf(this);
    ignore([&] { place(frameContent, 800, 800, insideWidth - 1600, insideHeight - 1600); });
    const int fw = widthOf(frameContent), fh = heightOf(frameContent);
    ignore([&] { place(cmdGO, fw - (widthOf(cmdGO) + 30), 150, widthOf(cmdGO), heightOf(cmdGO)); });
    ignore([&] {
        place(cmdBack, fw - (widthOf(cmdBack) + 30), fh - (heightOf(cmdBack) + 30), widthOf(cmdBack),
              heightOf(cmdBack));
    });
    const int gl = leftOf(DataGrid1), gt = topOf(DataGrid1);
    ignore([&] { DataGrid1->Move(gl, gt, fw - 2 * gl, fh - (gt + 30 + heightOf(cmdBack))); });
    ignore([&] { place(txtDetail, gl, topOf(txtDetail), DataGrid1->Width(), heightOf(txtDetail)); });
    ignore([&] { place(lblWordSearch, gl, topOf(lblWordSearch), widthOf(lblWordSearch), heightOf(lblWordSearch)); });
    ignore([&] {
        place(txtSearch, gl + widthOf(lblWordSearch), topOf(txtSearch), DataGrid1->Width() - widthOf(lblWordSearch),
              heightOf(txtSearch));
    });
    ignore([&] { AutoSizeColumn(); });
}

void frmGlobalSections::txtSearch_KeyDown(int& keyCode, int) {
    if (keyCode != 40 && keyCode != 38) return;
    const long step = keyCode == 40 ? 1 : -1;
    // Off either end the relative bookmark is Null, which the grid refuses: the row stays where it is.
    ignore([&] { DataGrid1->setBookmark(DataGrid1->GetBookmark(step)); });
    keyCode = 0;
    ignore([&] { ChangeSelection(); });
}

void frmGlobalSections::txtSearch_KeyPress(int& keyAscii) {
    if (keyAscii == 127 && ctrlDown()) {
        txtSearch->setText(QString());
        keyAscii = 0;
    }
}

void frmGlobalSections::DataGrid1_RowResize() {
    if (DataGrid1->RowHeight() > maximumRowHeight_) DataGrid1->setRowHeight(maximumRowHeight_);
    else if (DataGrid1->RowHeight() < minimumRowHeight_) DataGrid1->setRowHeight(minimumRowHeight_);
}

void frmGlobalSections::DblClick() {
    if (cmdGO->isEnabled() && !DataGrid1->Bookmark().isNull()) cmdGO_Click();
}

void frmGlobalSections::showColorError(const char* routine, const basic::RuntimeError& e) {
    if (shell::ShowErrorDetail())
        forms::MsgBox(QStringLiteral("Error on ") + QLatin1String(routine) + QStringLiteral("() \n") + errorText(e));
    else forms::MsgBox(QStringLiteral("Grid exceptional case 3"), forms::vbOKOnly, QStringLiteral("Vorlan"));
}

// A colour property: set when given a colour (not -1), and answered as it then stands.
std::int32_t frmGlobalSections::colourProperty(const char* routine, std::int32_t color,
                                               const std::function<void(const QColor&)>& set,
                                               const std::function<QColor()>& get) {
    try {
        if (color >= 0) set(forms::oleColor(unsigned(color)));
        return std::int32_t(forms::toOleColor(get()));
    } catch (const basic::RuntimeError& e) {
        showColorError(routine, e);
    }
    return 0;
}

std::int32_t frmGlobalSections::GetSetBackColor(std::int32_t& color) {
    return colourProperty("GetSetBackColor", color, [this](const QColor& c) { setBack(this, c); },
                          [this] { return palette().color(QPalette::Window); });
}

std::int32_t frmGlobalSections::GetSetFrameBackColor(std::int32_t& color) {
    return colourProperty("GetSetFrameBackColor", color, [this](const QColor& c) { setBack(frameContent, c); },
                          [this] { return frameContent->palette().color(QPalette::Window); });
}

std::int32_t frmGlobalSections::GetSetGridBackColor(std::int32_t& color) {
    return colourProperty("GetSetGridBackColor", color, [this](const QColor& c) { DataGrid1->setBackColor(c); },
                          [this] { return DataGrid1->BackColor(); });
}

std::int32_t frmGlobalSections::GetSetGridForeColor(std::int32_t& color) {
    return colourProperty("GetSetGridForeColor", color, [this](const QColor& c) { DataGrid1->setForeColor(c); },
                          [this] { return DataGrid1->ForeColor(); });
}

QFont frmGlobalSections::GetSetGridFont(const QFont* font) {
    try {
        if (font) DataGrid1->setGridFont(*font);
        return DataGrid1->Font();
    } catch (const basic::RuntimeError& e) {
        showColorError("GetSetGridFont", e);
    }
    return QFont();
}

bool frmGlobalSections::eventFilter(QObject* watched, QEvent* event) {
    bool swallow = false;
    forms::guard([&] {
        if (event->type() == QEvent::MouseButtonDblClick &&
            (watched == txtSearch || watched == txtDetail->viewport())) {
            DblClick();
            swallow = true;
        } else if (event->type() == QEvent::MouseButtonPress && watched == lblWordSearch) {
            shell::SafeSetFocus(txtSearch);
        } else if (event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (watched == txtSearch) {
                int code = key->key() == Qt::Key_Down ? 40 : key->key() == Qt::Key_Up ? 38 : 0;
                if (code) {
                    txtSearch_KeyDown(code, 0);
                    swallow = code == 0;
                    return;
                }
                int ascii = key->key() == Qt::Key_Backspace && (key->modifiers() & Qt::ControlModifier)
                                ? 127
                                : (key->text().isEmpty() ? 0 : key->text().at(0).unicode());
                if (ascii) {
                    txtSearch_KeyPress(ascii);
                    swallow = ascii == 0;
                }
            } else if (watched != lblWordSearch && !key->text().isEmpty() && !ctrlDown()) {
                // Typing anywhere goes to the search box.
                shell::SafeSetFocus(txtSearch);
            }
        }
    });
    return swallow || QWidget::eventFilter(watched, event);
}

void frmGlobalSections::closeEvent(QCloseEvent* event) {
    bool cancel = false;
    forms::guard([&] { Form_QueryUnload(cancel, 0); });
    if (cancel) event->ignore();
    else event->accept();
}

void frmGlobalSections::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
}

void frmGlobalSections::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Form_Activate();
}

}  // namespace library
