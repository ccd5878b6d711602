#include "housekeeping/frm_back_up_restore.h"

#include <QCloseEvent>
#include <QDir>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProgressDialog>
#include <QPushButton>

#include "platform/basic/runtime_error.h"
#include "platform/forms/layout.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/timer.h"
#include "platform/forms/twips.h"
#include "platform/forms/wait_cursor.h"
#include "platform/store/database_file.h"
#include "platform/store/errors.h"
#include "platform/system/drives.h"
#include "housekeeping/restore_choice.h"
#include "returns/module2.h"
#include "returns/practice_copy.h"

namespace housekeeping {

namespace {

const QString kFolder = QStringLiteral("Vorlan1BackUp");
const QString kSuccessTitle = QStringLiteral("           Successfully      ");
constexpr long kYellow = 65535, kGreen = 65280, kWhite = 16777215, kDarkBlue = 8388608;

void setBackColor(QWidget* w, long bgr) { forms::setColour(w, QPalette::Button, unsigned(bgr)); }
void setForeColor(QWidget* w, long bgr) { forms::setColour(w, QPalette::WindowText, unsigned(bgr)); }

// The picture of Image1: a red disc with a white cross, the usual sign for "leave this".
QPixmap cancelPicture() {
    QPixmap pixmap(forms::twips(480), forms::twips(480));
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(200, 30, 30));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(pixmap.rect().adjusted(1, 1, -1, -1));
    painter.setPen(QPen(Qt::white, 3));
    const int m = pixmap.width() / 3;
    painter.drawLine(m, m, pixmap.width() - m, pixmap.height() - m);
    painter.drawLine(pixmap.width() - m, m, m, pixmap.height() - m);
    return pixmap;
}

}  // namespace

frmBackUpRestore::frmBackUpRestore(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("    BackUp / Restore"));
    setFixedSize(forms::twips(4290), forms::twips(2250));

    Label2 = new QLabel(this);
    forms::place(Label2, 240, 240, 2400, 300);
    QFont bold = Label2->font();
    bold.setBold(true);
    Label2->setFont(bold);
    setForeColor(Label2, kWhite);
    Label2->setAutoFillBackground(true);
    QPalette back = Label2->palette();
    back.setColor(QPalette::Window, QColor(0x40, 0x40, 0x40));
    Label2->setPalette(back);

    cboDrive = new QComboBox(this);
    cboDrive->setEditable(true);
    cboDrive->setInsertPolicy(QComboBox::NoInsert);
    forms::place(cboDrive, 240, 660, 3000, 315);

    Command7 = new QPushButton(QStringLiteral("BackUp"), this);
    forms::place(Command7, 240, 1320, 1455, 495);
    Command6 = new QPushButton(QStringLiteral("Restore"), this);
    forms::place(Command6, 1785, 1320, 1455, 495);
    for (QPushButton* b : {Command7, Command6}) {
        setBackColor(b, kGreen);
        b->installEventFilter(this);
    }

    Image1 = new QLabel(this);
    Image1->setPixmap(cancelPicture());
    Image1->setToolTip(QStringLiteral("Click to Cancel"));
    Image1->setCursor(Qt::PointingHandCursor);
    forms::place(Image1, 3480, 180, 480, 480);
    Image1->installEventFilter(this);

    Timer1 = new forms::Timer(this);
    Timer1->setInterval(150);

    forms::wire(cboDrive, &QComboBox::activated, this, [this] { cboDrive_Click(); });
    forms::wire(cboDrive, &QComboBox::editTextChanged, this, [this] { cboDrive_Change(); });
    cboDrive->lineEdit()->installEventFilter(this);
    forms::wire(Command7, &QPushButton::clicked, this, [this] { Command7_Click(); });
    forms::wire(Command6, &QPushButton::clicked, this, [this] { Command6_Click(); });
    forms::wire(Timer1, &forms::Timer::Tick, this, [this] { Timer1_Timer(); });
    askWhatToRestore = [this](const std::vector<std::pair<QString, QString>>& dealers) { return AskWhatToRestore(this, dealers); };
}

void frmBackUpRestore::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return;
    forms::guard([this] {
        if (!loaded_) {
            loaded_ = true;
            Form_Load();
        }
        Form_Activate();
    });
}

void frmBackUpRestore::closeEvent(QCloseEvent* event) {
    // Closing unloads: the next showing loads the window again and so lets go of the return files.
    loaded_ = false;
    event->accept();
}

bool frmBackUpRestore::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        if (watched == Command6) forms::guard([this] { Command6_GotFocus(); });
        if (watched == Command7) forms::guard([this] { Command7_GotFocus(); });
        break;
    case QEvent::FocusOut:
        if (watched == Command6) forms::guard([this] { Command6_LostFocus(); });
        if (watched == Command7) forms::guard([this] { Command7_LostFocus(); });
        break;
    case QEvent::MouseButtonRelease:
        if (watched == Image1 && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            forms::guard([this] { Image1_Click(); });
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (watched == cboDrive->lineEdit()) {
            const auto* key = static_cast<QKeyEvent*>(event);
            const int ascii = (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
                                  ? 13
                                  : (key->text().isEmpty() ? 0 : int(key->text().at(0).unicode()));
            if (ascii) forms::guard([this, ascii] { cboDrive_KeyPress(ascii); });
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void frmBackUpRestore::Form_Load() {
    // The files are copied whole, so nothing of the program may hold them open.
    returns::ReleaseReturnStores();
    move(forms::twips(8770), forms::twips(970));
}

void frmBackUpRestore::procDriveList() {
    // The list is not cleared first: each activation adds the drives once more.
    for (const QString& drive : sys::LogicalDriveStrings()) cboDrive->addItem(drive);
}

QString frmBackUpRestore::fnBackUpExists(QComboBox* box) {
    QString found = QStringLiteral("NIL");
    for (int i = 0; i < box->count(); ++i)
        if (fso.FolderExists(box->itemText(i) + kFolder)) found = box->itemText(i);  // case kept: see Form_Activate
    return found;
}

void frmBackUpRestore::Form_Activate() {
    procDriveList();
    cboDrive->setCurrentIndex(0);
    fso = sys::FileSystemObject();
    forms::WaitCursor wait;
    for (int i = 0; i < cboDrive->count(); ++i) {
        // Drive roots of the old platform knew no case, so upper-casing one changed only its looks;
        // mount points do know case, so the root is kept as listed. The last drive with the folder wins.
        if (fso.FolderExists(cboDrive->itemText(i) + kFolder)) {
            backupDrive = cboDrive->itemText(i);
            cboDrive->setCurrentText(backupDrive);
        }
    }
    if (!backupDrive.isEmpty()) {
        cboDrive->setVisible(true);
        Label2->setVisible(true);
        Label2->setText(QStringLiteral("BackUp  Path "));
        // The drive of an existing backup is not the user's to change.
        cboDrive->setEnabled(false);
    } else {
        Label2->setText(QStringLiteral("Select  Path"));
    }
}

void frmBackUpRestore::cboDrive_Click() { selectedDrive = cboDrive->currentText(); }

void frmBackUpRestore::cboDrive_Change() {}

void frmBackUpRestore::cboDrive_KeyPress(int keyAscii) {
    if (keyAscii == 13) Command7->setFocus();
}

// Named before anything is made or copied there: a stick mounted read-only, or gone since the list was made.
bool frmBackUpRestore::backupDriveWritable() {
    const QString target = backupDrive.isEmpty() ? selectedDrive : backupDrive + kFolder;
    const QString folder = sys::FileSystemObject::resolve(target);
    if (sys::CanWriteFolder(folder)) return true;
    forms::MsgBox(QStringLiteral("Vorlan cannot write to %1\n\nNothing was copied. Check that the drive is in place "
                                 "and can be written, or choose another drive, then press BackUp again.")
                      .arg(folder),
                  forms::vbExclamation, QStringLiteral("Vorlan"));
    return false;
}

void frmBackUpRestore::Command7_Click() {
    auto box = [] { forms::MsgBox(QStringLiteral(" File  is Backed Up"), forms::vbInformation, kSuccessTitle); };
    if (!backupDriveWritable()) return;
    if (!backupDrive.isEmpty()) {
        const basic::RuntimeError e = basic::resume([&] {
            returns::BackupBegins(sys::FileSystemObject::resolve(backupDrive + kFolder));
            copyReturnFile(QStringLiteral("TAXDATA.mdb"), backupDrive + kFolder + "\\TAXDATA.mdb");
            copyReturnFile(QStringLiteral("nwForm10DB.mdb"), backupDrive + kFolder + "\\nwForm10DB.mdb");
            backUpPractice(backupDrive + kFolder);
            Label2->setText(QStringLiteral("BackUp  Path "));
            box();
            Label2->setText(QStringLiteral("BackUp  Path "));
        });
        if (e.number()) forms::MsgBox(e.description());
        return;
    }
    // Not caught: a folder that cannot be made (or is there already) ends in the run-time error box.
    fso.CreateFolder(selectedDrive + kFolder);
    const basic::RuntimeError e = basic::resume([&] {
        returns::BackupBegins(sys::FileSystemObject::resolve(selectedDrive + kFolder));
        copyReturnFile(QStringLiteral("TAXDATA.mdb"), selectedDrive + kFolder + "\\TAXDATA.mdb");
        copyReturnFile(QStringLiteral("nwForm10DB.mdb"), selectedDrive + kFolder + "\\nwForm10DB.mdb");
        backUpPractice(selectedDrive + kFolder);
        box();
    });
    if (e.number()) forms::MsgBox(e.description());
}

void frmBackUpRestore::Command6_Click() {
    // No question first and no reconnecting after: each store operation connects anew. Only a backup
    // that holds dealers asks whether all of them or one comes back.
    const QString folder = sys::FileSystemObject::resolve(backupDrive + kFolder);
    std::optional<QString> onlyTin = QString();
    const basic::RuntimeError asked = basic::resume([&] {
        const returns::BackupContents saved = returns::ReadBackup(folder);
        if (saved.practice && !saved.dealers.empty() && askWhatToRestore) {
            std::vector<std::pair<QString, QString>> dealers;
            for (const returns::Dealer& d : saved.dealers) dealers.emplace_back(d.tin, d.name);
            onlyTin = askWhatToRestore(dealers);
        }
    });
    if (!onlyTin) return;
    const basic::RuntimeError e = basic::resume([&] {
        if (asked.number()) throw asked;
        restorePractice(folder, *onlyTin);
        // The loose files go back into the book they were taken from, which may not be the one open now.
        const std::optional<QString> target = returns::LooseFilesTarget(folder, *onlyTin);
        if (target)
            for (const char* file : {"TAXDATA.mdb", "nwForm10DB.mdb", "Form10Data.mdb"})
                copyReturnFile(backupDrive + kFolder + "\\" + QLatin1String(file), *target + QLatin1Char('/') + QLatin1String(file));
        forms::MsgBox(QStringLiteral("File is   Restored    "), forms::vbInformation, kSuccessTitle);
    });
    if (e.number()) forms::MsgBox(e.description(), forms::vbCritical, QStringLiteral("Error"));
}

namespace {

// A progress bar for the books, shown when copying them takes a while; the user may stop it.
struct BookProgress {
    QProgressDialog dialog;
    bool stopped = false;
    int done = 0, total = 0;
    BookProgress(QWidget* parent, const QString& what) : dialog(what, QStringLiteral("Stop"), 0, 1, parent) {
        dialog.setWindowTitle(QStringLiteral("Vorlan"));
        dialog.setWindowModality(Qt::WindowModal);
        dialog.setMinimumDuration(400);
        dialog.setAutoClose(false);
        dialog.setAutoReset(false);
    }
    bool step(int booksDone, int books) {
        done = booksDone;
        total = books;
        if (dialog.maximum() != books) dialog.setMaximum(books);
        dialog.setLabelText(QStringLiteral("%1 of %2 books").arg(booksDone).arg(books));
        dialog.setValue(booksDone);
        stopped = dialog.wasCanceled();
        return !stopped;
    }
    void check(const QStringList& failed, const QString& doing) const {
        QString text;
        if (!failed.isEmpty())
            text = doing + QStringLiteral(": these books were not copied, the others were:\n") + failed.join(u'\n');
        if (stopped)
            text += (text.isEmpty() ? QString() : QStringLiteral("\n\n")) +
                    QStringLiteral("%1 stopped after %2 of %3 books.").arg(doing).arg(done).arg(total);
        if (!text.isEmpty()) throw basic::RuntimeError(5, text);
    }
};

}  // namespace

void frmBackUpRestore::backUpPractice(const QString& backupFolder) {
    BookProgress progress(this, QStringLiteral("Copying the books to the backup"));
    const QStringList failed = returns::BackUpPractice(sys::FileSystemObject::resolve(backupFolder),
                                                       [&](int done, int total) { return progress.step(done, total); });
    progress.check(failed, QStringLiteral("The backup"));
}

void frmBackUpRestore::restorePractice(const QString& backupFolder, const QString& onlyTin) {
    BookProgress progress(this, QStringLiteral("Bringing the books back"));
    const QStringList failed =
        returns::RestorePractice(backupFolder, onlyTin, [&](int done, int total) { return progress.step(done, total); });
    progress.check(failed, QStringLiteral("The restore"));
}

// The files are databases, copied through the database itself: the copy is the last committed state
// of its source, is checked before it takes the target's place, and leaves no journal of the old
// target to be played into it. A copy that fails leaves the target as it was and says why in words
// the user can act on.
void frmBackUpRestore::copyReturnFile(const QString& source, const QString& target) {
    const QString from = sys::FileSystemObject::resolve(source), to = sys::FileSystemObject::resolve(target);
    const basic::RuntimeError e = basic::resume([&] { store::CopyDatabaseFile(from, to); });
    if (e.number() == 0) return;
    const QString kept = QStringLiteral("\nThe file there was left as it was");
    if (store::isDiskFull(e))
        throw basic::RuntimeError(e.number(),
                                  QStringLiteral("The drive is full: ") + QDir::toNativeSeparators(to) +
                                      QStringLiteral(" could not be written.") + kept +
                                      QStringLiteral("; free some space on the drive and try again."));
    if (store::isDamaged(e))
        throw basic::RuntimeError(e.number(), QStringLiteral("The file ") + QDir::toNativeSeparators(from) +
                                                  QStringLiteral(" is damaged (") + e.description() +
                                                  QStringLiteral(") and was not copied.") + kept + QStringLiteral("."));
    throw e;
}

void frmBackUpRestore::Command6_GotFocus() { setBackColor(Command6, kYellow); }
void frmBackUpRestore::Command6_LostFocus() { setBackColor(Command6, kGreen); }
void frmBackUpRestore::Command7_GotFocus() { setBackColor(Command7, kYellow); }
void frmBackUpRestore::Command7_LostFocus() { setBackColor(Command7, kGreen); }

void frmBackUpRestore::Image1_Click() {
    loaded_ = false;
    hide();
}

void frmBackUpRestore::Timer1_Timer() {
    // Three ticks shown, one hidden.
    if (blinkCount <= 2) {
        setForeColor(Label2, kWhite);
        Label2->setVisible(true);
        ++blinkCount;
    } else {
        setForeColor(Label2, kDarkBlue);
        Label2->setVisible(false);
        blinkCount = 0;
    }
}

long frmBackUpRestore::BackColor(const QWidget* control) { return long(forms::toOleColor(control->palette().color(QPalette::Button))); }
long frmBackUpRestore::ForeColor(const QWidget* control) {
    return long(forms::toOleColor(control->palette().color(QPalette::WindowText)));
}

}  // namespace housekeeping
