#pragma once
// Form No. 10 on the screen: the pages as they print, with a box to type in over every box the form
// leaves to the user, and beside the lines what the form has to say of them. FormTenWindow is the
// window of "Direct To Form" around it: the month, saving, preview, printing and PDF.
#include "returns/form_ten_layout.h"
#include "returns/form_ten_store.h"

#include <QHash>
#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QPrinter;

namespace returns {

class FormTenPreview;

// The months of the open book, April to March, each with its calendar year ("March 2026"), the month
// as the item's data; the month chosen before stays chosen.
void FillBookMonths(QComboBox* months);

class FormTenSheet : public QWidget {
    Q_OBJECT
public:
    explicit FormTenSheet(QWidget* parent = nullptr);

    // Lays the month out and makes its typed boxes anew, in the order of the form.
    void setMonth(const FormTenMonth* month);
    // The box typed into for a Typed box of the form: a QLineEdit, or a QComboBox for the nature.
    QWidget* editor(const QString& box) const { return editors_.value(box); }
    QLineEdit* lineEdit(const QString& box) const;
    // Where a page and a box stand on the sheet, in pixels.
    QRect boxRect(const QString& box) const;
    int pageCount() const { return int(pages_.size()); }

    QSize sizeHint() const override;

signals:
    // A typed box changed its text.
    void typed(const QString& box, const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    double pxPerMm() const;
    QPointF pageOrigin(int page) const;
    void placeEditors();
    bool amountLeft(QLineEdit* edit, const FormBox& box);

    const FormTenMonth* month_ = nullptr;
    std::vector<FormPage> pages_;
    QHash<QString, QWidget*> editors_;
    QHash<QString, std::pair<int, QRectF>> boxPlaces_;   // page, millimetres
};

class FormTenWindow : public QWidget {
    Q_OBJECT
public:
    explicit FormTenWindow(QWidget* parent = nullptr);
    ~FormTenWindow() override;

    // What the chooser hands over: the dealer, his TIN and CST number, and the year.
    QLineEdit* txtDealerName = nullptr;
    QLineEdit* txtTIN = nullptr;
    QLineEdit* txtCST = nullptr;
    QLineEdit* txtYear = nullptr;

    QComboBox* cboMonth = nullptr;
    QLabel* lblSource = nullptr;
    QLabel* lblSaved = nullptr;
    QScrollArea* scroll = nullptr;
    FormTenSheet* sheet = nullptr;
    QPushButton* cmdSave = nullptr;
    QPushButton* cmdPreview = nullptr;
    QPushButton* cmdPrint = nullptr;
    QPushButton* cmdPdf = nullptr;
    QPushButton* cmdClose = nullptr;

    // The month on the form; a change of month asks first when something typed is not kept.
    void showMonth(const QString& month);
    const FormTenMonth& month() const { return month_; }
    bool unsaved() const { return unsaved_; }

    // Keeps the typed boxes. A box its shape refuses is named in a box and takes the focus; a store
    // that refuses the save is named too, and nothing of it is kept. True when kept.
    bool save();
    // The book's particulars read again, with what the chooser hands over now (after a dealer was named
    // or edited); the typed boxes stay.
    void TakeTheBookAgain();
    void preview();
    FormTenPreview* previewWindow() const { return preview_.get(); }
    bool savePdf(const QString& path);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void load(const QString& month);
    void handOver(FormTenValues& v) const;
    bool showChangedFigures();
    bool askToKeep();
    void typedBox(const QString& box, const QString& text);
    void showSource();
    QString startingMonth() const;

    FormTenMonth month_;
    FormTenMonth read_;   // the month as last read from the book, before anything was typed
    bool unsaved_ = false;
    std::unique_ptr<FormTenPreview> preview_;
};

}  // namespace returns
