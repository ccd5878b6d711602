#pragma once
// What the fault tests share: the child program that is killed, locked out and starved; a small disk of
// its own that can be filled; a return window on a folder; the store read straight by SQLite.
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/store/database_file.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/return_schema.h"
#include "support/printers.h"
#include "support/qt_app.h"
#include "support/sqlite_rows.h"

#include <QProcess>
#include <QTest>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

extern bool privateMounts;   // this process may mount file systems of its own

// The child program (child/faults_child.cpp), as the user nobody when asked; waitFor() reads its output.
struct Child {
    QProcess p;
    QString out;
    explicit Child(QStringList args, bool asNobody = false) {
        if (asNobody) args = QStringList{"--reuid=65534", "--regid=65534", "--clear-groups", nobodysCopy()} + args;
        p.start(asNobody ? "setpriv" : FAULTS_CHILD, args);
        p.waitForStarted();
    }
    // The build folder may lie where nobody may not go (under /root, say): nobody runs a copy in /tmp.
    static QString nobodysCopy() {
        static QTemporaryDir dir;
        const QString copy = dir.filePath("faults_child");
        if (!QFile::exists(copy)) {
            QFile::copy(FAULTS_CHILD, copy);
            ::chmod(QFile::encodeName(dir.path()).constData(), 0755);
        }
        return copy;
    }
    ~Child() { kill(); }
    bool waitFor(const QString& text) {
        while (!out.contains(text) && (p.waitForReadyRead(20000) || p.bytesAvailable())) out += p.readAllStandardOutput();
        return out.contains(text);
    }
    void kill() {
        if (p.state() != QProcess::NotRunning) ::kill(pid_t(p.processId()), SIGKILL);
        finish();
    }
    int finish() {
        p.waitForFinished(30000);
        out += QString::fromUtf8(p.readAllStandardOutput());
        return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : 128 + SIGABRT;
    }
};

// A return window on the folder, showing March; its boxes recorded, the store let go at the end.
struct Window {
    forms::MsgBoxRecorder boxes;
    std::unique_ptr<returns::frmNormal> w;
    explicit Window(const QString& folder) {
        basic::SetAppPath(folder);
        basic::Clock::set(QDate(2026, 3, 15));
        w = std::make_unique<returns::frmNormal>();
        forms::guard([this] { w->Show(); });
    }
    ~Window() {
        w.reset();
        letGo();
    }
    static void letGo() {
        returns::ReleaseReturnStores();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
    }
    // One local purchase of 10.00 a party; the text of the box the press of Add ends with.
    void put(const QStringList& parties) {
        w->fg1->setRows(int(parties.size()) + 1);
        for (int r = 1; r <= parties.size(); ++r)
            for (int c = 0; c < 10; ++c)
                w->fg1->setTextMatrix(r, c, QStringList{QString::number(r), "02-03-26", parties[r - 1], "3207", "B",
                                                        "      0", "10.00", "0.00", "0.00", "10.00"}[c]);
        w->procTotalCal1();
    }
    QString add() {
        boxes.clear();
        w->cmdAdd_Click();
        return boxes.boxes().empty() ? QString() : boxes.boxes().back().text;
    }
};

// A folder on a small file system of its own, which fill() leaves `room` bytes free on. Where this
// process may not mount, a plain folder whose new database handles may hold two pages, no more.
struct SmallDisk {
    QTemporaryDir dir;
    bool mounted = false;
    explicit SmallDisk(unsigned long flags = 0) {
        const QByteArray path = QFile::encodeName(dir.path());
        mounted = privateMounts && ::mount("vorlan-faults", path.constData(), "tmpfs", flags, "size=4m") == 0;
        ::chmod(path.constData(), 0755);
    }
    ~SmallDisk() {
        empty();
        if (mounted) ::umount2(QFile::encodeName(dir.path()).constData(), MNT_DETACH);
    }
    QString path() const { return dir.path(); }
    void fill(off_t room = 0) {
        if (!mounted) return store::setPageLimit(2);
        const int fd = ::open(QFile::encodeName(dir.filePath("filler")).constData(), O_CREAT | O_WRONLY, 0600);
        const std::string block(4096, 'x');
        off_t size = 0;
        for (ssize_t n; (n = ::write(fd, block.data(), block.size())) > 0;) size += n;
        if (::ftruncate(fd, size > room ? size - room : 0) != 0) ADD_FAILURE() << "filler";
        ::close(fd);
    }
    void empty() {
        store::setPageLimit(0);
        QFile::remove(dir.filePath("filler"));
    }
};
