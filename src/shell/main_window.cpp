#include "shell/main_window.h"

#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/keys.h"
#include "platform/forms/layout.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "platform/forms/window_update.h"
#include "platform/store/recordset.h"
#include "platform/system/shutdown.h"
#include "platform/system/text_editor.h"
#include "shell/library_search_action.h"
#include "shell/log.h"
#include "shell/my_mod.h"

#include <QApplication>
#include <QMouseEvent>
#include <QMovie>
#include <QPainter>
#include <QStyle>
#include <cmath>

namespace shell {

namespace {

using forms::twips;

constexpr int kKeySpace = 32;

using forms::place;

struct StateNode {
    const char* key;
    const char* text;
    const char* parent;
};

// The state tree in its order; texts as they stand, misspellings included.
const StateNode kStates[] = {
    {"And", "Andhra Pradesh", "Two"},  {"Aru", "Arunachal Pradesh", "Two"}, {"Ass", "Assam", "Two"},
    {"Bih", "Bihar", "Two"},           {"Chat", "chattisgarh", "Two"},      {"Del", "Delhi", "Two"},
    {"Go", "Goa", "Two"},              {"Guj", "Gujarat", "Two"},           {"Hay", "Haryana", "Two"},
    {"Hp", "Himachal Pradesh", "Two"}, {"Jha", "Jharkand", "Two"},          {"jk", "Jammu and kashmir", "Two"},
    {"Kar", "Karnataka", "Two"},       {"Ker", "Kerala", "Two"},            {"Mad", "Madya Pradesh", "Two"},
    {"Mah", "Maharashtra", "Two"},     {"Man", "Manipur", "Two"},           {"Meh", "Meghalaya", "Two"},
    {"Orissa", "Orissa", "Two"},       {"Pudhu", "Pudhucherry", "Two"},     {"Punjab", "Punjab", "Two"},
    {"Raj", "Rajasthan", "Two"},       {"Sik", "Sikkim", "Two"},            {"Tam", "TamilNadu", "Two"},
    {"Tri", "Tripura", "Two"},         {"Utt", "Uttar Pradesh", "Two"},     {"Uta", "Utharanchal", "Two"},
    {"We", "West Bangal", "Two"},      {"Centr", "Central Sales Tax", "One"}, {"Glob", "Global Subject,Citation ", "Two"},
};

struct ToolButton {
    const char* caption;
    const char* key;
    const char* tip;
    QStyle::StandardPixmap image;
};

// SP_CustomBase: the button's picture is drawn here (centralSalesTaxIcon).
const ToolButton kButtons[] = {
    {"States", "stat", "double click on statename to get details", QStyle::SP_DirHomeIcon},
    {"Central Sales Tax", "Centr", "Central Sales Tax", QStyle::SP_CustomBase},
    {"Acknowledgement", "ack", "Acknowledgement", QStyle::SP_FileDialogInfoView},
    {"Cash Payment", "CP", nullptr, QStyle::SP_DialogApplyButton},
    {"Bank Payment", "BP", nullptr, QStyle::SP_DriveHDIcon},
    {"Help", "help", "Help", QStyle::SP_DialogHelpButton},
    {"Dealers", "dele", "Dealers", QStyle::SP_FileDialogDetailedView},
    {"Notepad", "not", nullptr, QStyle::SP_FileIcon},
    {"Other Products", "op", nullptr, QStyle::SP_FileDialogContentsView},
    {"BackUp/Restore", "bkp", nullptr, QStyle::SP_DialogSaveButton},
    {"Exit", "EXI", "Exit ", QStyle::SP_DialogCloseButton},
};

// The designed frame, in twips; only its position changes with the window.
constexpr int kFrameWidth = 19200, kFrameHeight = 9600;

QLabel* picture(QWidget* parent, const QString& text, const QString& style) {
    auto* l = new QLabel(text, parent);
    l->setAlignment(Qt::AlignCenter);
    l->setStyleSheet(style);
    return l;
}

// The Central Sales Tax button's picture: a ruled page of the Act with a gold seal on its corner.
QIcon centralSalesTaxIcon() {
    QPixmap pixmap(48, 48);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x1f, 0x4e, 0x79), 2.5));
    p.setBrush(QColor(0xfb, 0xf8, 0xee));
    p.drawRoundedRect(QRectF(5, 2, 30, 40), 3, 3);
    p.setPen(QPen(QColor(0x1f, 0x4e, 0x79), 2.5));
    p.drawLine(QPointF(10, 10), QPointF(30, 10));
    p.setPen(QPen(QColor(0x7a, 0x8a, 0x9a), 2));
    for (int y = 17; y <= 31; y += 7) p.drawLine(QPointF(10, y), QPointF(30, y));
    p.setPen(QPen(QColor(0x8b, 0x1e, 0x1e), 2.5));
    p.setBrush(QColor(0xc8, 0x9b, 0x2c));
    p.drawEllipse(QPointF(34, 34), 11, 11);
    p.setPen(QPen(QColor(0x8b, 0x1e, 0x1e), 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(34, 34), 6, 6);
    return QIcon(pixmap);
}

// The banner: the publisher's file where Qt can play it, else the program's own animation beside it.
QMovie* bannerMovie(QObject* parent) {
    for (const char* name : {"\\test.swf", "\\banner.gif"}) {
        auto* movie = new QMovie(basic::NativePath(basic::AppPath() + QLatin1String(name)), QByteArray(), parent);
        if (movie->isValid()) return movie;
        delete movie;
    }
    return nullptr;
}

// A document window of a later part of the program, asked to show one of its documents by number.
void showDocument(int number) {
    QWidget* help = forms::get(QStringLiteral("help"));
    if (!QMetaObject::invokeMethod(help, "SHOW_DOCUMENT", Q_ARG(int, number)))
        throw basic::RuntimeError(438, QStringLiteral("Object doesn't support this property or method"));
}

}  // namespace

main::main() {
    setObjectName(QStringLiteral("main"));
    Frame1 = new QFrame(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setStyleSheet(QStringLiteral("#Frame1 { background: #f4f1e8; }"));
    Picture4 = picture(Frame1, QStringLiteral("Vorlan"),
                       QStringLiteral("background:#1f4e79; color:white; font: bold 20pt 'DejaVu Sans';"));
    ShockwaveFlash1 = new QLabel(Frame1);
    ShockwaveFlash1->setStyleSheet(QStringLiteral("background:#dfe8f1;"));
    ShockwaveFlash1->setAlignment(Qt::AlignCenter);
    Picture3 = picture(Frame1, QString(), QStringLiteral("background:#1f4e79;"));
    Toolbar2 = new forms::Toolbar(Frame1);
    Toolbar2->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Tvw = new forms::TreeView(Frame1);
    Picture5 = picture(Frame1,
                       QStringLiteral("VAT laws of the states\n\nClick a state in the tree to open its Acts, Rules, Circulars,\n"
                                      "Notifications, Schedules, Judgements and Forms."),
                       QStringLiteral("background:#e6dcc3; color:#3b3b3b; font: 13pt 'DejaVu Sans';"));
    Picture6 = picture(Frame1, QStringLiteral("     SHUT DOWN     "),
                       QStringLiteral("background:#8b1e1e; color:white; font: bold 10pt 'DejaVu Sans'; border-radius:4px;"));
    Picture2 = picture(Frame1, QStringLiteral("BackUp / Restore"),
                       QStringLiteral("background:#2e6b3a; color:white; font: bold 10pt 'DejaVu Sans'; border-radius:4px;"));
    Picture2->setToolTip(QStringLiteral("Click  here  to BackUp and Restore"));
    for (QLabel* p : {Picture2, Picture6}) {
        p->setCursor(Qt::PointingHandCursor);
        p->installEventFilter(this);
    }

    // The designed places inside the frame.
    Frame1->resize(twips(kFrameWidth), twips(kFrameHeight));
    place(Picture4, 0, 0, 2590, 1800);
    place(Picture3, 0, 1800, kFrameWidth, 120);
    place(Toolbar2, 0, 1920, kFrameWidth, 1000);
    place(Tvw, 120, 3000, 5400, 6480);
    place(Picture5, 5640, 3000, 13440, 5160);
    place(Picture6, 15600, 8400, 3480, 1080);
    place(Picture2, 11880, 8400, 3480, 1080);

    QStyle* s = style();
    ImageList1.Add(s->standardIcon(QStyle::SP_DirClosedIcon));
    ImageList1.Add(s->standardIcon(QStyle::SP_DirOpenIcon));
    for (const ToolButton& b : kButtons)
        ImageList2.Add(b.image == QStyle::SP_CustomBase ? centralSalesTaxIcon() : s->standardIcon(b.image));
    Toolbar2->setImageList(&ImageList2);
    int image = 1;
    for (const ToolButton& b : kButtons) {
        forms::ToolbarButton button = Toolbar2->Buttons.Add(QString::fromLatin1(b.key), QString::fromLatin1(b.caption), image++);
        if (b.tip) button.setToolTipText(QString::fromLatin1(b.tip));
    }
    addLibrarySearch(Toolbar2);

    forms::wire(Tvw, &forms::TreeView::Click, this, [this] { Tvw_Click(); });
    forms::wire(Tvw, &forms::TreeView::DblClick, this, [this] { Tvw_DblClick(); });
    forms::wire(Tvw, &forms::TreeView::KeyDown, this, [this](int key, int shift) { Tvw_KeyDown(key, shift); });
    connect(Toolbar2, &forms::Toolbar::ButtonClick, this, [this](const QString& key) {
        forms::guard([&] { Toolbar2_ButtonClick(key); });
    });
    endProgram = [] { QCoreApplication::exit(0); };
    Form_Load();
}

void main::Form_Load() {
    setWindowState(windowState() | Qt::WindowMaximized);
    Tvw->setVisible(false);
    Tvw->Refresh();
    Tvw->setImageList(&ImageList1);
    Tvw->Nodes.Add(QStringLiteral("One"), QStringLiteral("Vorlan on VAT laws"), 1);
    Tvw->Nodes.Add(QStringLiteral("One"), forms::tvwChild, QStringLiteral("Two"), QStringLiteral("States"), 1, 2);
    Tvw->setToolTipText(QStringLiteral("choose state and double click on each state to get details"));
    for (const StateNode& n : kStates)
        Tvw->Nodes.Add(QString::fromLatin1(n.parent), forms::tvwChild, QString::fromLatin1(n.key),
                       QString::fromLatin1(n.text), 1, 2);
    Tvw->Nodes(1).setExpanded(true);
    Tvw->Nodes(2).setExpanded(true);
    Tvw->Refresh();
    setWindowTitle(QStringLiteral("Vorlan on VAT Laws") + QStringLiteral("[") +
                   basic::Format(basic::Clock::today(), QStringLiteral("mm-dd-yyyy")) + QStringLiteral("]"));
    if (QMovie* movie = bannerMovie(ShockwaveFlash1)) {
        ShockwaveFlash1->setMovie(movie);
        movie->start();
    }
}

void main::Form_Activate() { Tvw->setVisible(true); }

void main::Form_Resize() {
    forms::LockWindowUpdate(this);
    ignore([&] { Frame1->move(0, Frame1->y()); });
    ignore([&] {
        const int inside = forms::toTwips(height());
        long top = std::lround((inside - kFrameHeight) / 2.0);
        if (top < 0) top = 0;
        frameTop_ = std::int16_t(top);
        Frame1->move(0, twips(frameTop_));
    });
    ignore([&] {
        place(ShockwaveFlash1, 2590, 0, forms::toTwips(Frame1->width()) - 2590, forms::toTwips(Picture3->y()));
    });
    forms::LockWindowUpdate(nullptr);
}

void main::Tvw_Click() {
    currentStateNo = 14;
    hide();
    forms::get(QStringLiteral("frmkerala"))->show();
}

void main::Tvw_KeyDown(int KeyCode, int) {
    if (KeyCode == forms::vbKeyReturn || KeyCode == kKeySpace) Tvw_Click();
}

void main::Toolbar2_ButtonClick(const QString& key) {
    try {
        if (key == u"Centr") forms::get(QStringLiteral("central"))->show();
        else if (key == u"not") startNotepad();
        else if (key == u"wo") {}
        else if (key == u"op") showDocument(7);
        else if (key == u"stat") Tvw->setVisible(true);
        else if (key == u"ack") showDocument(3);
        else if (key == u"help") showDocument(1);
        else if (key == u"dele") showDocument(5);
        else if (key == u"rul" || key == u"circu") {}
        else if (key == u"bkp") Picture2_Click();
        else if (key == u"EXI") {
            procFrmFlgSetZero();
            endProgram();
        }
    } catch (const std::exception&) {
        QApplication::restoreOverrideCursor();
        forms::MsgBox(QStringLiteral("This feature is not working"), forms::vbInformation, QStringLiteral("Vorlan"));
    }
}

// The desktop's text editor; where none is installed, the program's own small one.
void main::startNotepad() {
    if (sys::hasTextEditor()) sys::startTextEditor();
    else forms::get(QStringLiteral("Notepad"))->show();
}

void main::Picture2_Click() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    forms::get(QStringLiteral("frmBackUpRestore"))->show();
    QApplication::restoreOverrideCursor();
}

void main::Picture6_Click() {
    if (forms::MsgBox(QStringLiteral("Are  you Sure?"), forms::vbYesNo, QStringLiteral("Exit Windows")) == forms::vbYes) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        sys::ExitWindowsEx(1, 0);
        QApplication::restoreOverrideCursor();
    } else {
        forms::MsgBox(QStringLiteral("You  Cancelled  Shut Down"), forms::vbExclamation, QStringLiteral(" Sorry....."));
    }
}

void main::writeFrmFlg(int value) {
    store::Connection cn;
    cn.setConnectionString(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + basic::CurDir() +
                           QStringLiteral("\\nwForm10DB.mdb"));
    cn.Open();
    store::Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM tblMPage2"), cn, store::Recordset::adOpenKeyset, store::Recordset::adLockOptimistic);
    rs.Fields(QStringLiteral("FrmFlg")) = basic::Variant(value);
    rs.Update();
    rs.Close();
    hide();
}

void main::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
}

void main::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Form_Activate();
}

bool main::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (watched == Picture2) forms::guard([this] { Picture2_Click(); });
        if (watched == Picture6) forms::guard([this] { Picture6_Click(); });
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace shell
