#pragma once
// frmGlobalSections: the reusable pick list of the law library. The owner fills it through its properties
// (a record set of index entries, the document table and key), calls LoadGridData and shows it; the user
// narrows the list in txtSearch, reads the current row in txtDetail and presses Go for its document.
// Everything particular to a list comes in through the properties; the answers go out by two events.
#include <QFont>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/data_grid.h"
#include "platform/store/recordset.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace library {

class frmGlobalSections : public QWidget {
    Q_OBJECT
public:
    // With a parent, a window of its own that the parent owns and that stays in front of it.
    explicit frmGlobalSections(QWidget* parent = nullptr);

    QGroupBox* frameContent;
    forms::DataGrid* DataGrid1;
    QPushButton* cmdGO;
    QPushButton* cmdBack;
    QPlainTextEdit* txtDetail;
    QLineEdit* txtSearch;
    QLabel* lblWordSearch;

    // Properties.
    QString QueryString() const { return queryString_; }
    bool DontShowOleForm() const { return dontShowOleForm_; }
    void setDontShowOleForm(bool v) { dontShowOleForm_ = v; }
    std::int32_t HiddenIDIndex() const { return hiddenIDIndex_; }
    void setHiddenIDIndex(std::int32_t v) { hiddenIDIndex_ = v; }
    // A read-only clone of the caller's record set, so that the caller's own stays unfiltered.
    store::Recordset RecSet() const { return recSet_; }
    void setRecSet(const store::Recordset& rs);
    QString ConnectionString() const { return connectionString_; }
    void setConnectionString(const QString& v) { connectionString_ = v; }
    std::int16_t PredicateValueColumnIndex() const { return predicateValueColumnIndex_; }
    void setPredicateValueColumnIndex(std::int16_t v) { predicateValueColumnIndex_ = v; }
    QString OleColumnName() const { return oleColumnName_; }
    void setOleColumnName(const QString& v) { oleColumnName_ = v; }
    QString OleTableName() const { return oleTableName_; }
    void setOleTableName(const QString& v) { oleTableName_ = v; }
    QString PredicateColumnName() const { return predicateColumnName_; }
    void setPredicateColumnName(const QString& v) { predicateColumnName_ = v; }
    QString AdditionalSearchConditions() const { return additionalSearchConditions_; }
    void setAdditionalSearchConditions(const QString& v) { additionalSearchConditions_ = v; }
    std::int16_t DetailIndex() const { return detailIndex_; }
    void setDetailIndex(std::int16_t v) { detailIndex_ = v; }
    std::int16_t SearchColumnIndex() const { return searchColumnIndex_; }
    void setSearchColumnIndex(std::int16_t v) { searchColumnIndex_ = v; }
    std::int16_t AutoSizeColumnIndex() const { return autoSizeColumnIndex_; }
    void setAutoSizeColumnIndex(std::int16_t v) { autoSizeColumnIndex_ = v; }
    QString Header() const { return DataGrid1->Caption(); }
    void setHeader(const QString& v);
    std::int16_t MinimumRowHeight() const { return minimumRowHeight_; }
    void setMinimumRowHeight(std::int16_t v) { minimumRowHeight_ = v; }
    std::int16_t MaximumRowHeight() const { return maximumRowHeight_; }
    void setMaximumRowHeight(std::int16_t v) { maximumRowHeight_ = v; }

    // Operations. Colours are the platform's 0x00BBGGRR numbers; a negative argument only reads.
    bool LoadGridData();
    std::int32_t GetSetBackColor(std::int32_t& color);
    std::int32_t GetSetFrameBackColor(std::int32_t& color);
    std::int32_t GetSetGridBackColor(std::int32_t& color);
    std::int32_t GetSetGridForeColor(std::int32_t& color);
    QFont GetSetGridFont(const QFont* font);

    // Routines and handlers.
    void ChangeSelection();
    void ShowDetail();
    void AutoSizeColumn();
    void FilterRec();
    void cmdGO_Click();
    void cmdBack_Click();
    void Form_Load();
    void Form_Activate();
    void Form_Resize();
    void Form_QueryUnload(bool& cancel, int unloadMode);
    void txtSearch_KeyDown(int& keyCode, int shift);
    void txtSearch_KeyPress(int& keyAscii);
    void DataGrid1_RowResize();
    void DblClick();                      // the grid's and both text boxes' double click

signals:
    void GoClicked(library::frmGlobalSections* frm, basic::Variant& value);
    void BackClicked(library::frmGlobalSections* frm);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void showColorError(const char* routine, const basic::RuntimeError& e);
    std::int32_t colourProperty(const char* routine, std::int32_t color, const std::function<void(const QColor&)>& set,
                                const std::function<QColor()>& get);
    void hideColumn(int column);

    store::Recordset recSet_ = store::Recordset::nothing();
    QString queryString_;
    bool dontShowOleForm_ = false;
    std::int32_t hiddenIDIndex_ = -1;
    QString connectionString_;
    std::int16_t predicateValueColumnIndex_ = 0;
    QString oleColumnName_, oleTableName_, predicateColumnName_, additionalSearchConditions_;
    std::int16_t detailIndex_ = 0, searchColumnIndex_ = 0, autoSizeColumnIndex_ = 0;
    std::int16_t minimumRowHeight_ = 300, maximumRowHeight_ = 1000;
};

}  // namespace library
