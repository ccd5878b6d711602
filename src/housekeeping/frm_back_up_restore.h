#pragma once
// frmBackUpRestore: copies the return files to "Vorlan1BackUp" in the root of a drive and back again.
// The backup takes TAXDATA.mdb and nwForm10DB.mdb of the open book; the restore asks for Form10Data.mdb
// as well, so a restore from a backup made here brings the first two back and then reports the third
// missing. Beside those files the whole practice is copied: the register and every book, whole, laid
// out as the user's data folder; the restore brings back all of it or one dealer's.
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/system/file_system.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace forms {
class Timer;
}

namespace housekeeping {

class frmBackUpRestore : public QWidget {
    Q_OBJECT
public:
    explicit frmBackUpRestore(QWidget* parent = nullptr);

    // ---- controls -----------------------------------------------------------------------------------
    QComboBox* cboDrive = nullptr;
    QLabel* Label2 = nullptr;
    QPushButton* Command7 = nullptr;   // "BackUp"
    QPushButton* Command6 = nullptr;   // "Restore"
    QLabel* Image1 = nullptr;          // "Click to Cancel"
    forms::Timer* Timer1 = nullptr;

    // ---- fields -------------------------------------------------------------------------------------
    QString backupDrive;               // root of the last drive that has the backup folder; empty if none
    QString selectedDrive;             // cboDrive's text at its last click
    std::int16_t blinkCount = 0;
    sys::FileSystemObject fso;         // made anew at each activation

    // Asked before a restore of a backup that holds dealers: the TIN of the one dealer to bring back,
    // empty for all of them, nullopt to restore nothing. A dialog, unless a test puts in its own answer.
    using RestoreQuestion = std::function<std::optional<QString>(const std::vector<std::pair<QString, QString>>& dealers)>;
    RestoreQuestion askWhatToRestore;

    // ---- handlers -----------------------------------------------------------------------------------
    void Form_Load();
    void Form_Activate();
    void procDriveList();
    QString fnBackUpExists(QComboBox* box);
    void cboDrive_Click();
    void cboDrive_Change();
    void cboDrive_KeyPress(int keyAscii);
    void Command7_Click();
    void Command6_Click();
    void Command6_GotFocus();
    void Command6_LostFocus();
    void Command7_GotFocus();
    void Command7_LostFocus();
    void Image1_Click();
    void Timer1_Timer();

    // The window's back and fore colours as the system numbers them (&HBBGGRR).
    static long BackColor(const QWidget* control);
    static long ForeColor(const QWidget* control);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool backupDriveWritable();   // a box when not
    void copyReturnFile(const QString& source, const QString& target);
    // The practice into or out of the backup folder, with a progress bar; raises, naming the books
    // that could not be copied, when there are any.
    void backUpPractice(const QString& backupFolder);
    void restorePractice(const QString& backupFolder, const QString& onlyTin);
    bool loaded_ = false;   // false until the first showing and again after the window is unloaded
};

}  // namespace housekeeping
