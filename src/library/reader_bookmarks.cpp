#include "library/reader_bookmarks.h"

#include "library/reader.h"
#include "library/reader_documents.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/basic/settings.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace library {

namespace {

constexpr int kIdRole = Qt::UserRole;           // a bookmark's id; 0 on a folder
constexpr int kFolderRole = Qt::UserRole + 1;   // a folder's name

const QString kTitle = QStringLiteral("Bookmarks");

qint64 idOf(const QTreeWidgetItem* item) { return item ? item->data(0, kIdRole).toLongLong() : 0; }

QString lastFolder() {
    return basic::Settings().value(QStringLiteral("Reader/listFolder")).toString();
}

}  // namespace

void flash(QWidget* window, const QString& text) {
    auto* label = window->findChild<QLabel*>(QStringLiteral("ReaderFlash"), Qt::FindDirectChildrenOnly);
    if (!label) {
        label = new QLabel(window);
        label->setObjectName(QStringLiteral("ReaderFlash"));
        label->setStyleSheet(QStringLiteral("background:#1f4e79; color:white; padding:6px 12px; border-radius:4px;"));
        auto* timer = new QTimer(label);
        timer->setObjectName(QStringLiteral("ReaderFlashTimer"));
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, label, &QLabel::hide);
    }
    label->setText(text);
    label->adjustSize();
    label->move((window->width() - label->width()) / 2, window->height() - label->height() - 24);
    label->show();
    label->raise();
    label->findChild<QTimer*>(QStringLiteral("ReaderFlashTimer"))->start(2500);
}

void bookmarkDocument(QWidget* window, const documents::DocumentName& document) {
    if (document.key.isEmpty()) {
        flash(window, QStringLiteral("Only the documents of the library and your own documents can be bookmarked"));
        return;
    }
    documents::ReaderStore& store = readerStore();
    if (const std::optional<documents::Bookmark> marked = store.bookmarkOf(document.key)) {
        flash(window, marked->folder.isEmpty() ? QStringLiteral("Already in your bookmarks")
                                               : QStringLiteral("Already in your bookmarks, in \"%1\"").arg(marked->folder));
        return;
    }
    store.addBookmark(document);
    flash(window, QStringLiteral("Bookmarked: ") + document.title);
}

BookmarksWindow::BookmarksWindow()
    : txtFilter(new QLineEdit(this)), tree(new QTreeWidget(this)), lblCount(new QLabel(this)),
      cmdOpen(new QPushButton(QStringLiteral("&Open"), this)), cmdNewFolder(new QPushButton(QStringLiteral("New &folder…"), this)),
      cmdMove(new QPushButton(QStringLiteral("&Move to…"), this)), cmdRemove(new QPushButton(QStringLiteral("&Remove"), this)),
      cmdExport(new QPushButton(QStringLiteral("&Export…"), this)), cmdImport(new QPushButton(QStringLiteral("&Import…"), this)) {
    setObjectName(QStringLiteral("BookmarksWindow"));
    setWindowTitle(kTitle);
    resize(820, 560);
    txtFilter->setPlaceholderText(QStringLiteral("Type to narrow the list; Enter opens"));
    txtFilter->setClearButtonEnabled(true);
    tree->setColumnCount(3);
    tree->setHeaderLabels({QStringLiteral("Title"), QStringLiteral("Kind"), QStringLiteral("Added")});
    tree->setUniformRowHeights(true);
    tree->setRootIsDecorated(true);
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tree->setColumnWidth(1, 110);
    tree->setColumnWidth(2, 130);
    cmdExport->setToolTip(QStringLiteral("Write the bookmarks to a file that another reader imports"));
    cmdImport->setToolTip(QStringLiteral("Add the bookmarks of a reading list that another reader exported"));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Find:"), this));
    top->addWidget(txtFilter, 1);
    top->addWidget(lblCount);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {cmdOpen, cmdNewFolder, cmdMove, cmdRemove}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(cmdExport);
    buttons->addWidget(cmdImport);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(tree, 1);
    layout->addLayout(buttons);

    connect(txtFilter, &QLineEdit::textEdited, this, [this] { applyFilter(); });
    connect(tree, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        if (idOf(item)) openCurrent();
    });
    connect(cmdOpen, &QPushButton::clicked, this, [this] { openCurrent(); });
    connect(cmdNewFolder, &QPushButton::clicked, this, [this] { newFolder(); });
    connect(cmdMove, &QPushButton::clicked, this, [this] { askMove(); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { removeCurrent(); });
    connect(cmdExport, &QPushButton::clicked, this, [this] {
        const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Export the bookmarks"),
                                                          lastFolder() + QStringLiteral("/Bookmarks.json"),
                                                          QStringLiteral("Reading lists (*.json)"));
        if (!path.isEmpty() && exportTo(path)) basic::Settings().setValue(QStringLiteral("Reader/listFolder"), QFileInfo(path).absolutePath());
    });
    connect(cmdImport, &QPushButton::clicked, this, [this] {
        const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Import bookmarks"), lastFolder(),
                                                          QStringLiteral("Reading lists (*.json);;All files (*)"));
        if (!path.isEmpty() && importFrom(path)) basic::Settings().setValue(QStringLiteral("Reader/listFolder"), QFileInfo(path).absolutePath());
    });
    txtFilter->installEventFilter(this);
}

void BookmarksWindow::reload() {
    documents::ReaderStore& store = readerStore();
    const std::vector<documents::Bookmark> marks = store.bookmarks();
    tree->setUpdatesEnabled(false);
    tree->clear();
    const QIcon folderIcon = style()->standardIcon(QStyle::SP_DirIcon), markIcon = style()->standardIcon(QStyle::SP_FileIcon);
    QHash<QString, QTreeWidgetItem*> folders;
    for (const QString& name : store.folders()) {
        auto* item = new QTreeWidgetItem(tree, {name});
        item->setIcon(0, folderIcon);
        item->setData(0, kFolderRole, name);
        item->setFirstColumnSpanned(true);
        folders.insert(name, item);
    }
    QList<QTreeWidgetItem*> loose;
    for (const documents::Bookmark& b : marks) {
        auto* item = new QTreeWidgetItem({b.document.title, b.document.kind, b.added.toString(QStringLiteral("dd-MM-yyyy hh:mm"))});
        item->setIcon(0, markIcon);
        item->setData(0, kIdRole, b.id);
        item->setData(0, kFolderRole, b.folder);
        item->setToolTip(0, b.document.title);
        if (QTreeWidgetItem* folder = folders.value(b.folder)) folder->addChild(item);
        else loose << item;
    }
    tree->insertTopLevelItems(0, loose);
    tree->expandAll();
    tree->setUpdatesEnabled(true);
    applyFilter();
}

void BookmarksWindow::applyFilter() {
    const QStringList words = txtFilter->text().split(u' ', Qt::SkipEmptyParts);
    const auto holdsAll = [&](const QTreeWidgetItem* item, const QString& folder) {
        for (const QString& w : words)
            if (!item->text(0).contains(w, Qt::CaseInsensitive) && !item->text(1).contains(w, Qt::CaseInsensitive) &&
                !folder.contains(w, Qt::CaseInsensitive))
                return false;
        return true;
    };
    int shown = 0, all = 0;
    tree->setUpdatesEnabled(false);
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* top = tree->topLevelItem(i);
        if (idOf(top)) {
            ++all;
            const bool show = holdsAll(top, QString());
            top->setHidden(!show);
            shown += show;
            continue;
        }
        int inFolder = 0;
        for (int c = 0; c < top->childCount(); ++c) {
            const bool show = holdsAll(top->child(c), top->text(0));
            top->child(c)->setHidden(!show);
            inFolder += show;
        }
        all += top->childCount();
        shown += inFolder;
        top->setHidden(!words.isEmpty() && inFolder == 0);
    }
    tree->setUpdatesEnabled(true);
    lblCount->setText(words.isEmpty() ? (all == 1 ? QStringLiteral("1 bookmark") : QStringLiteral("%1 bookmarks").arg(all))
                                      : QStringLiteral("%1 of %2").arg(shown).arg(all));
    if (QTreeWidgetItem* first = firstShown(); first && (!tree->currentItem() || tree->currentItem()->isHidden()))
        tree->setCurrentItem(first);
}

QTreeWidgetItem* BookmarksWindow::firstShown() const {
    for (QTreeWidgetItemIterator it(tree, QTreeWidgetItemIterator::NotHidden); *it; ++it) {
        if (idOf(*it) && !((*it)->parent() && (*it)->parent()->isHidden())) return *it;
    }
    return nullptr;
}

QList<qint64> BookmarksWindow::shownIds() const {
    QList<qint64> ids;
    for (QTreeWidgetItemIterator it(tree, QTreeWidgetItemIterator::NotHidden); *it; ++it)
        if (idOf(*it) && !((*it)->parent() && (*it)->parent()->isHidden())) ids << idOf(*it);
    return ids;
}

void BookmarksWindow::openCurrent() {
    QTreeWidgetItem* item = tree->currentItem();
    if (!idOf(item) || item->isHidden()) item = firstShown();
    if (!item) return;
    const std::vector<documents::Bookmark> marks = readerStore().bookmarks();
    for (const documents::Bookmark& b : marks)
        if (b.id == idOf(item)) {
            hide();
            openDocument(b.document.key);
            return;
        }
}

void BookmarksWindow::newFolder() {
    bool given = false;
    const QString name = QInputDialog::getText(this, QStringLiteral("New folder"), QStringLiteral("Name of the folder:"),
                                               QLineEdit::Normal, QString(), &given).trimmed();
    if (!given || name.isEmpty()) return;
    if (const qint64 id = idOf(tree->currentItem())) readerStore().moveBookmark(id, name);
    else readerStore().addFolder(name);
    reload();
}

void BookmarksWindow::moveCurrent(const QString& folder) {
    const qint64 id = idOf(tree->currentItem());
    if (!id) return;
    readerStore().moveBookmark(id, folder);
    reload();
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if (idOf(*it) == id) tree->setCurrentItem(*it);
}

void BookmarksWindow::askMove() {
    if (!idOf(tree->currentItem())) return;
    QMenu menu(this);
    menu.addAction(QStringLiteral("(No folder)"), this, [this] { moveCurrent(QString()); });
    menu.addSeparator();
    for (const QString& folder : readerStore().folders())
        menu.addAction(folder, this, [this, folder] { moveCurrent(folder); });
    menu.exec(cmdMove->mapToGlobal(QPoint(0, cmdMove->height())));
}

void BookmarksWindow::removeCurrent() {
    QTreeWidgetItem* item = tree->currentItem();
    if (!item) return;
    if (const qint64 id = idOf(item)) {
        if (forms::MsgBox(QStringLiteral("Remove the bookmark \"%1\"?").arg(item->text(0)), forms::vbYesNo | forms::vbQuestion, kTitle) != forms::vbYes)
            return;
        readerStore().removeBookmark(id);
    } else {
        const QString folder = item->data(0, kFolderRole).toString();
        if (forms::MsgBox(QStringLiteral("Remove the folder \"%1\"? Its bookmarks stay, in no folder.").arg(folder),
                          forms::vbYesNo | forms::vbQuestion, kTitle) != forms::vbYes)
            return;
        readerStore().removeFolder(folder);
    }
    reload();
}

bool BookmarksWindow::exportTo(const QString& path) {
    QFile file(path);
    const QByteArray list = readerStore().exportBookmarks();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(list) != list.size() || !file.flush()) {
        forms::MsgBox(QStringLiteral("The bookmarks could not be written to\n%1\n\n%2").arg(path, file.errorString()),
                      forms::vbExclamation, kTitle);
        return false;
    }
    return true;
}

bool BookmarksWindow::importFrom(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        forms::MsgBox(QStringLiteral("The file cannot be read:\n%1\n\n%2").arg(path, file.errorString()), forms::vbExclamation, kTitle);
        return false;
    }
    int added = 0;
    const basic::RuntimeError e = basic::resume([&] { added = readerStore().importBookmarks(file.readAll()); });
    if (e.number() != 0) {
        forms::MsgBox(QStringLiteral("This file is not a reading list of bookmarks; nothing was added.\n%1").arg(path),
                      forms::vbExclamation, kTitle);
        return false;
    }
    reload();
    forms::MsgBox(added == 1 ? QStringLiteral("1 bookmark added.")
                             : QStringLiteral("%1 bookmarks added.").arg(added) +
                                   (added == 0 ? QStringLiteral(" Every document of the list is bookmarked already.") : QString()),
                  forms::vbInformation, kTitle);
    return true;
}

void BookmarksWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    reload();
    txtFilter->setFocus();
    txtFilter->selectAll();
}

void BookmarksWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    if (event->key() == Qt::Key_Delete && tree->hasFocus()) {
        removeCurrent();
        return;
    }
    QWidget::keyPressEvent(event);
}

bool BookmarksWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtFilter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            openCurrent();
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_Up) {
            QApplication::sendEvent(tree, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace library
