#pragma once
// MyMOD: the law library's access to its three database files, and the small shared routines of the shell.
#include "platform/store/connection.h"
#include "platform/system/file_system.h"
#include "platform/store/recordset.h"
#include "shell/cls_table.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>

class QListWidget;
class QWidget;

namespace shell {

// Two rectangles of the state browser's pages, in twips.
struct BrowserRect {
    std::int16_t left, top, width, height;
};
struct BrowserLayout {
    BrowserRect first;
    BrowserRect second;
};

// The library's connections, open from InitLibraryStore to the end of the run.
extern store::Connection cnLibrary1, cnLibrary2, cnLibrary3;
extern QString strLibraryCn1, strLibraryCn2, strLibraryCn3;
extern std::shared_ptr<clsTableCollection> tablesLibrary1, tablesLibrary2, tablesLibrary3;
// The list now shown in the state browser, for the word search.
extern store::Recordset rsWordSearch;
extern QString wordSearchTable, wordSearchColumn, wordSearchOrderBy;
extern QString DocumentRoot;
extern bool isDevelopmentRun;
// The state browsed, set by the main window; always 14 (Kerala).
extern std::int16_t currentStateNo;

// Opens the three files of the program folder read-only and reads their catalogues. A file that
// cannot be opened raises its run-time error to the caller: the program cannot start without its
// library.
void InitLibraryStore();
// Starts opening the three files on threads of their own, so that InitLibraryStore finds them ready:
// their keys are derived side by side while the program starts instead of one after the other.
void OpenLibraryAhead();
// The names of the three files, which mark the folder that holds what ships with the program.
QStringList LibraryFileNames();

store::Connection getConnectionForTable(const QString& tableName);   // nothing when no file holds it
store::Recordset getRecordSet(const QString& query, const QString& tableName);
store::Recordset getRecordSetByCn(const QString& query, const store::Connection& connection);
// True when the query finds no document; then the document window already stands on the stand-by one.
bool IsQueryReturnsNullCnStr(const QString& query, const QString& connectionString);
// Points the document window's data control at the stand-by document "default" of Globalvat.
void PointStandbyDocument();
bool IsNameInGlobalvat(const QString& name);
store::Connection GetFirstLibraryConnection();
// The one file-system object of the run, made on first use.
sys::FileSystemObject& GetFileSystem();
BrowserLayout GetBrowserLayout();
bool ShowErrorDetail();
bool IsDevelopmentRun();
bool SafeSetFocus(QWidget* control);
std::int32_t RegisterServerFile(const QString& path, std::int16_t mode);

// The connection string of a library file, as the system builds it from the program folder.
QString libraryConnectionString(const QString& programFolder, int file);

}  // namespace shell
