#include "shell/text_viewers.h"

#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/errors.h"
#include "platform/forms/layout.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "platform/forms/window_update.h"
#include "shell/log.h"
#include "shell/my_mod.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <cmath>

namespace shell {

using forms::twips;

namespace {
constexpr int kBoxWidth = 12000;  // the designed width of the text; it stays centred

QLabel* pictureButton(QWidget* parent, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setAlignment(Qt::AlignCenter);
    l->setCursor(Qt::PointingHandCursor);
    l->setStyleSheet(QStringLiteral("background:#1f4e79; color:white; font: bold 10pt 'DejaVu Sans';"));
    l->resize(twips(1200), twips(480));
    return l;
}
}  // namespace

std::function<bool(QPrinter&)> TextViewer::choosePrinter = [](QPrinter& printer) {
    QPrintDialog dialog(&printer);
    return dialog.exec() == QDialog::Accepted;
};

TextViewer::TextViewer(const QString& caption) {
    setWindowTitle(caption);
    RichTextBox1 = new documents::RichTextBox(this);
    RichTextBox1->resize(twips(kBoxWidth), twips(6000));
    Picture1 = pictureButton(this, QStringLiteral("Print"));
    Picture4 = pictureButton(this, QStringLiteral("Back"));
    Picture1->installEventFilter(this);
    Picture4->installEventFilter(this);
    resize(twips(13000), twips(8000));
}

void TextViewer::loadQuietly(const QString& path) {
    ignore([&] { RichTextBox1->setFileName(path); });
}

void TextViewer::Form_Resize() {
    forms::LockWindowUpdate(this);
    const int W = forms::toTwips(width()), H = forms::toTwips(height());
    ignore([&] {
        RichTextBox1->setGeometry(RichTextBox1->x(), twips(540), RichTextBox1->width(), twips(std::max(0, H - 540)));
    });
    ignore([&] {
        int left = (W - forms::toTwips(RichTextBox1->width())) / 2;
        if (left < 0) left = 0;
        RichTextBox1->move(twips(left), RichTextBox1->y());
    });
    ignore([&] { Picture1->move(RichTextBox1->x(), 0); });
    ignore([&] {
        int left = forms::toTwips(RichTextBox1->x() + RichTextBox1->width()) - forms::toTwips(Picture4->width());
        if (left > W) left = W - forms::toTwips(Picture4->width());
        Picture4->move(twips(left), 0);
    });
    forms::LockWindowUpdate(nullptr);
}

void TextViewer::Picture1_Click() {}

void TextViewer::Picture4_Click() {
    hide();
    forms::get(QStringLiteral("main"))->show();
}

void TextViewer::printIfFolder() {
    if (QDir(basic::NativePath(RichTextBox1->FileName())).exists() && !RichTextBox1->FileName().isEmpty()) printNow();
}

void TextViewer::printNow() {
    QPrinter printer;
    if (choosePrinter(printer)) RichTextBox1->SelPrint(printer);
}

void TextViewer::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
}

void TextViewer::showEvent(QShowEvent* event) {
    if (!loaded_) {
        loaded_ = true;
        setWindowState(windowState() | Qt::WindowMaximized);
        Form_Load();
    }
    QWidget::showEvent(event);
}

void TextViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) forms::guard([this] { Picture4_Click(); });
    else if (event->matches(QKeySequence::Print)) forms::guard([this] { Picture1_Click(); });
    else QWidget::keyPressEvent(event);
}

bool TextViewer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (watched == Picture1) forms::guard([this] { Picture1_Click(); });
        if (watched == Picture4) forms::guard([this] { Picture4_Click(); });
    }
    return QWidget::eventFilter(watched, event);
}

help::help() : TextViewer(QString()) {}

void help::Form_Load() {
    folder_ = basic::AppPath() + QStringLiteral("\\docs");
    if (!firstLoaded_) {
        firstLoaded_ = true;
        loadQuietly(folder_ + QStringLiteral("\\HELP VAT.rtf"));
    }
}

void help::SHOW_DOCUMENT(int number) {
    try {
        if (!loaded_) {
            loaded_ = true;
            setWindowState(windowState() | Qt::WindowMaximized);
            Form_Load();
        }
        const char* name = number == 1 ? "\\HELP VAT.rtf" : number == 3 ? "\\ACK.rtf"
                         : number == 5 ? "\\DEALERS.rtf"  : number == 7 ? "\\PRODUCTS.rtf" : nullptr;
        if (name) RichTextBox1->setFileName(folder_ + QString::fromLatin1(name));
        show();
        RichTextBox1->Refresh();
    } catch (const basic::RuntimeError& e) {
        forms::MsgBox(QStringLiteral("SHOW_DOCUMENT :") + e.description());
    }
}

void ack::Form_Load() { loadQuietly(DocumentRoot + QStringLiteral("Vorlan1\\ack.rtf")); }
void Dealers::Form_Load() { loadQuietly(DocumentRoot + QStringLiteral("Vorlan1\\dealers\\dealers.rtf")); }
void frmca::Form_Load() { loadQuietly(DocumentRoot + QStringLiteral("Vorlan1\\ca tools.rtf")); }

SpareViewer::SpareViewer(const QString& caption, bool maximised) : maximised_(maximised) {
    setWindowTitle(caption);
    resize(twips(13000), twips(8000));
}

QLabel* SpareViewer::picture(const QString& text, int left) {
    QLabel* l = pictureButton(this, text);
    l->move(twips(left), 0);
    l->installEventFilter(this);
    return l;
}

void SpareViewer::showEvent(QShowEvent* event) {
    if (!loaded_ && maximised_) setWindowState(windowState() | Qt::WindowMaximized);
    loaded_ = true;
    QWidget::showEvent(event);
}

bool SpareViewer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        if (auto* l = qobject_cast<QLabel*>(watched)) forms::guard([&] { pictureClicked(l); });
    return QWidget::eventFilter(watched, event);
}

release::release() : SpareViewer(QString(), true) {
    Picture1 = picture(QString(), 0);
    Picture2 = picture(QString(), 1300);
}

namespace {
QTextBrowser* webBrowser(QWidget* parent) {
    auto* b = new QTextBrowser(parent);
    forms::place(b, 120, 540, kBoxWidth, 6900);
    return b;
}
}  // namespace

frmalied::frmalied() : SpareViewer(QStringLiteral("Tam ALieds"), true), WebBrowser1(webBrowser(this)) {
    Picture1 = picture(QStringLiteral("Print"), 120);
    Picture4 = picture(QStringLiteral("Back"), 120 + kBoxWidth - 1200);
}

void frmalied::Picture1_Click() { throw forms::objectNotSet(); }

void frmalied::Picture4_Click() {
    hide();
    throw forms::objectNotSet();
}

void frmalied::pictureClicked(QLabel* picture) {
    if (picture == Picture1) Picture1_Click();
    else if (picture == Picture4) Picture4_Click();
}

formsform::formsform() : SpareViewer(QStringLiteral("Form1"), false), WebBrowser1(webBrowser(this)) {}

}  // namespace shell
