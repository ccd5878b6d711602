#include "platform/forms/data_grid.h"

#include <QAbstractTableModel>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include "platform/basic/log.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/keys.h"
#include "platform/forms/layout.h"
#include "platform/forms/twips.h"

namespace forms {

namespace {

basic::RuntimeError invalidColumn() { return basic::RuntimeError{6148, "Invalid column index", "DataGrid"}; }
basic::RuntimeError invalidBookmark() { return basic::RuntimeError{6153, "Invalid bookmark", "DataGrid"}; }

}  // namespace

// Reads each cell from the record set when the view asks for it, which is only for rows in view.
class DataGridModel : public QAbstractTableModel {
public:
    explicit DataGridModel(DataGrid* grid) : QAbstractTableModel(grid), grid_(grid) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : int(grid_->RowCount());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : grid_->ColumnCount();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid()) return {};
        store::Recordset rs = grid_->source_;
        rs.setAbsolutePosition(index.row() + 1);
        const basic::Variant v = rs.Fields(index.column()).Value();
        grid_->placeSource();
        if (v.isNull() || v.isEmpty() || v.type() == basic::Variant::Bytes) return QString();
        return basic::CStr(v);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole) return {};
        if (orientation == Qt::Horizontal && section < grid_->ColumnCount())
            return grid_->columns_[size_t(section)].caption;
        return {};
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }
    void reset() {
        beginResetModel();
        endResetModel();
    }

private:
    DataGrid* grid_;
};

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), model_(new DataGridModel(this)) {
    setModel(model_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(true);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(twips(rowHeight_));
    verticalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    verticalHeader()->setFixedWidth(twips(255));
    horizontalHeader()->setMinimumSectionSize(0);
    connect(verticalHeader(), &QHeaderView::sectionResized, this, [this](int, int, int size) {
        if (applying_) return;
        rowHeight_ = toTwips(size);
        applyRowHeight();
        emit RowResize();
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int c, int, int size) {
        if (applying_ || c >= ColumnCount()) return;
        columns_[size_t(c)].width = toTwips(size);
        emit ColResize(c);
    });
}

long DataGrid::RowCount() const {
    return source_.isNothing() || source_.State() == 0 ? 0 : source_.RecordCount();
}

void DataGrid::setDataSource(const store::Recordset& source) {
    source_ = source;
    ReBind();
}

void DataGrid::ClearFields() {
    columns_.clear();
}

void DataGrid::ReBind() {
    const bool bound = !source_.isNothing() && source_.State() == 1;
    if (columns_.empty() && bound) {
        for (int c = 0; c < source_.FieldCount(); ++c) columns_.push_back(Column{source_.Fields(c).Name()});
    }
    selBookmarks_.clear();
    Refresh();
}

void DataGrid::Refresh() {
    row_ = -1;
    model_->reset();   // the rows' sections start again at the default height, which is RowHeight
    applyColumns();
    if (RowCount() > 0) moveTo(0);
    else emit RowColChange();
}

const DataGrid::Column& DataGrid::column(int c) const {
    if (c < 0 || c >= ColumnCount()) throw invalidColumn();
    return columns_[size_t(c)];
}

DataGrid::Column& DataGrid::column(int c) {
    if (c < 0 || c >= ColumnCount()) throw invalidColumn();
    return columns_[size_t(c)];
}

QString DataGrid::ColumnCaption(int c) const { return column(c).caption; }
void DataGrid::setColumnCaption(int c, const QString& caption) {
    column(c).caption = caption;
    emit model_->headerDataChanged(Qt::Horizontal, c, c);
}
int DataGrid::ColumnWidth(int c) const { return column(c).width; }
void DataGrid::setColumnWidth(int c, int w) {
    column(c).width = w;
    applyColumns();
}
bool DataGrid::ColumnVisible(int c) const { return column(c).visible; }
void DataGrid::setColumnVisible(int c, bool visible) {
    column(c).visible = visible;
    applyColumns();
}
bool DataGrid::ColumnLocked(int c) const { return column(c).locked; }
void DataGrid::setColumnLocked(int c, bool locked) { column(c).locked = locked; }
bool DataGrid::ColumnAllowSizing(int c) const { return column(c).allowSizing; }
void DataGrid::setColumnAllowSizing(int c, bool allow) {
    column(c).allowSizing = allow;
    applyColumns();
}

void DataGrid::applyColumns() {
    applying_ = true;
    for (int c = 0; c < ColumnCount(); ++c) {
        const Column& col = columns_[size_t(c)];
        setColumnHidden(c, !col.visible || col.width <= 0);
        if (col.visible && col.width > 0) QTableView::setColumnWidth(c, twips(col.width));
        horizontalHeader()->setSectionResizeMode(c, col.allowSizing ? QHeaderView::Interactive
                                                                    : QHeaderView::Fixed);
    }
    applying_ = false;
}

void DataGrid::applyRowHeight() {
    applying_ = true;
    // One height for every row: a dragged row's own size is dropped before the default is set.
    verticalHeader()->reset();
    verticalHeader()->setDefaultSectionSize(std::max(1, twips(rowHeight_)));
    applying_ = false;
}

void DataGrid::setRowHeight(int t) {
    rowHeight_ = t;
    applyRowHeight();
}

basic::Variant DataGrid::ColumnValue(int c) const {
    column(c);
    if (row_ < 0) return basic::Variant::null();
    placeSource();
    return source_.Fields(c).Value();
}

void DataGrid::placeSource() const {
    if (row_ < 0 || row_ >= RowCount()) return;
    store::Recordset rs = source_;
    rs.setAbsolutePosition(row_ + 1);
}

void DataGrid::moveTo(int row) {
    const QModelIndex target = model_->index(row, std::max(0, currentIndex().column()));
    if (currentIndex() == target) {
        row_ = row;
        placeSource();
        emit RowColChange();
        return;
    }
    setCurrentIndex(target);   // currentChanged follows
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    row_ = current.isValid() ? current.row() : -1;
    placeSource();
    emit RowColChange();
}

void DataGrid::setRow(int row) {
    if (row < 0 || row >= RowCount()) throw basic::RuntimeError{6148, "Invalid row number", "DataGrid"};
    moveTo(row);
}

basic::Variant DataGrid::Bookmark() const {
    if (row_ < 0 || row_ >= RowCount()) return basic::Variant::null();
    placeSource();
    return source_.Bookmark();
}

void DataGrid::setBookmark(const basic::Variant& bookmark) {
    if (bookmark.isNull() || bookmark.isEmpty() || RowCount() == 0) throw invalidBookmark();
    store::Recordset rs = source_;
    try {
        rs.setBookmark(bookmark);
    } catch (const basic::RuntimeError&) {
        placeSource();
        throw invalidBookmark();
    }
    const long row = rs.AbsolutePosition() - 1;
    moveTo(int(row));
}

basic::Variant DataGrid::GetBookmark(long offset) const {
    const long target = long(row_) + offset;
    if (row_ < 0 || target < 0 || target >= RowCount()) return basic::Variant::null();
    store::Recordset rs = source_;
    rs.setAbsolutePosition(target + 1);
    const basic::Variant b = rs.Bookmark();
    placeSource();
    return b;
}

basic::Variant DataGrid::SelBookmarks(int index) const {
    if (index < 0 || index >= selBookmarks_.size()) throw basic::RuntimeError{9, "Subscript out of range", ""};
    return selBookmarks_[index];
}

void DataGrid::SelBookmarksAdd(const basic::Variant& bookmark) {
    store::Recordset rs = source_;
    if (RowCount() == 0) throw invalidBookmark();
    try {
        rs.setBookmark(bookmark);
    } catch (const basic::RuntimeError&) {
        placeSource();
        throw invalidBookmark();
    }
    const int row = int(rs.AbsolutePosition() - 1);
    placeSource();
    selBookmarks_.append(bookmark);
    selectionModel()->select(model_->index(row, 0),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void DataGrid::SelBookmarksRemove(int index) {
    const basic::Variant b = SelBookmarks(index);
    selBookmarks_.removeAt(index);
    store::Recordset rs = source_;
    // A row the filter hides is no longer drawn selected anyway.
    basic::ignore(lcForms(), [&] {
        rs.setBookmark(b);
        const int row = int(rs.AbsolutePosition() - 1);
        selectionModel()->select(model_->index(row, 0),
                                 QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    });
    placeSource();
}

void DataGrid::setCaption(const QString& caption) {
    caption_ = caption;
    setAccessibleName(caption);
}

QColor DataGrid::BackColor() const { return palette().color(QPalette::Base); }
void DataGrid::setBackColor(const QColor& color) {
    QPalette p = palette();
    p.setColor(QPalette::Base, color);
    setPalette(p);
}
QColor DataGrid::ForeColor() const { return palette().color(QPalette::Text); }
void DataGrid::setForeColor(const QColor& color) {
    QPalette p = palette();
    p.setColor(QPalette::Text, color);
    setPalette(p);
}
void DataGrid::setGridFont(const QFont& f) { setFont(f); }

int DataGrid::Left() const { return leftOf(this); }
int DataGrid::Top() const { return topOf(this); }
int DataGrid::Width() const { return widthOf(this); }
int DataGrid::Height() const { return heightOf(this); }
void DataGrid::Move(int left, int top, int width, int height) { place(this, left, top, width, height); }

void DataGrid::keyPressEvent(QKeyEvent* event) {
    emit KeyDown(keyCode(*event), shiftMask(event->modifiers()));
    const QString text = event->text();
    if (!text.isEmpty()) emit KeyPress(text.at(0).unicode());
    QTableView::keyPressEvent(event);
}

void DataGrid::keyReleaseEvent(QKeyEvent* event) {
    QTableView::keyReleaseEvent(event);
    emit KeyUp(keyCode(*event), shiftMask(event->modifiers()));
}

void DataGrid::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) emit Click();
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) emit DblClick();
}

}  // namespace forms
