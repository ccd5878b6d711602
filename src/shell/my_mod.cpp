#include "shell/my_mod.h"

#include "shell/log.h"

#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/documents/data_control.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "platform/store/errors.h"
#include "platform/system/register_server.h"

#include <QDir>
#include <QWidget>

namespace shell {

store::Connection cnLibrary1, cnLibrary2, cnLibrary3;
QString strLibraryCn1, strLibraryCn2, strLibraryCn3;
std::shared_ptr<clsTableCollection> tablesLibrary1, tablesLibrary2, tablesLibrary3;
store::Recordset rsWordSearch = store::Recordset::nothing();
QString wordSearchTable, wordSearchColumn, wordSearchOrderBy;
QString DocumentRoot;
bool isDevelopmentRun = false;
std::int16_t currentStateNo = 0;

namespace {

BrowserLayout layoutRecord{};

const QString kDriver = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};");

// A library file damaged after the start is named, with what the user can do; any other failure keeps
// the routine's own box.
void showDebugBox(const QString& prefix, const basic::RuntimeError& e, const QString& file) {
    if (store::isDamaged(e)) {
        forms::MsgBox(QStringLiteral("The library file\n") + QDir::toNativeSeparators(file) +
                          QStringLiteral("\nis damaged (") + e.description() +
                          QStringLiteral(").\n\nReinstall the library beside the program and start Vorlan again."),
                      forms::vbCritical, QStringLiteral("Vorlan"));
        return;
    }
    forms::MsgBox(prefix + e.description() + e.detail(), forms::vbExclamation, QStringLiteral("_IN_DEBUG"));
}

QString fileOf(const store::Connection& connection) {
    return connection.isNothing() ? QString() : connection.FilePath();
}

std::shared_ptr<clsTableCollection> readCatalogue(const store::Connection& cn) {
    auto tables = std::make_shared<clsTableCollection>();
    for (const QString& name : cn.TableNames()) tables->Add(name, tables, name);
    return tables;
}

}  // namespace

QStringList LibraryFileNames() {
    return {QStringLiteral("0909214SD01.mdb"), QStringLiteral("1309214SD02.mdb"), QStringLiteral("1509214SD03.mdb")};
}

QString libraryConnectionString(const QString& programFolder, int file) {
    // Only the first password part ends in a semicolon; the other two stand without one.
    static const char* const files[] = {"\\0909214SD01.mdb;", "\\1309214SD02.mdb;", "\\1509214SD03.mdb;"};
    static const char* const passwords[] = {"Pwd=bergamot;", "Pwd=lantern", "Pwd=marbled"};
    return kDriver + QStringLiteral("Dbq=") + programFolder + QString::fromLatin1(files[file - 1]) +
           QStringLiteral("Uid=admin;") + QString::fromLatin1(passwords[file - 1]);
}

void OpenLibraryAhead() {
    for (int file = 1; file <= 3; ++file) store::OpenAhead(libraryConnectionString(basic::AppPath(), file));
}

void InitLibraryStore() {
    const QString folder = basic::AppPath();
    // The library is never written; the files may lie where the user cannot write.
    strLibraryCn1 = libraryConnectionString(folder, 1);
    cnLibrary1 = store::Connection();
    cnLibrary1.setConnectionString(strLibraryCn1);
    cnLibrary1.setMode(store::Connection::adModeRead);
    cnLibrary1.Open();
    strLibraryCn2 = libraryConnectionString(folder, 2);
    cnLibrary2 = store::Connection();
    cnLibrary2.setConnectionString(strLibraryCn2);
    cnLibrary2.setMode(store::Connection::adModeRead);
    cnLibrary2.Open();
    strLibraryCn3 = libraryConnectionString(folder, 3);
    cnLibrary3 = store::Connection();
    cnLibrary3.setConnectionString(strLibraryCn3);
    cnLibrary3.setMode(store::Connection::adModeRead);
    cnLibrary3.Open();

    DocumentRoot = folder + QStringLiteral("/");  // the viewers join their paths straight on

    tablesLibrary1 = readCatalogue(cnLibrary1);
    tablesLibrary2 = readCatalogue(cnLibrary2);
    tablesLibrary3 = readCatalogue(cnLibrary3);

    isDevelopmentRun = IsDevelopmentRun();
    layoutRecord = {{180, 1740, 8295, 5775}, {180, 1740, 12735, 5535}};
}

store::Connection getConnectionForTable(const QString& tableName) {
    if (tablesLibrary1 && tablesLibrary1->Contains(tableName)) return cnLibrary1;
    if (tablesLibrary2 && tablesLibrary2->Contains(tableName)) return cnLibrary2;
    if (tablesLibrary3 && tablesLibrary3->Contains(tableName)) return cnLibrary3;
    return store::Connection::nothing();
}

static store::Recordset openStatic(const QString& query, const store::Connection& connection) {
    store::Recordset rs;
    rs.setActiveConnection(connection);
    rs.setCursorType(store::Recordset::adOpenStatic);
    rs.setCursorLocation(store::Recordset::adUseClient);
    rs.setLockType(store::Recordset::adLockOptimistic);
    rs.Open(query);
    return rs;
}

store::Recordset getRecordSet(const QString& query, const QString& tableName) {
    try {
        return openStatic(query, getConnectionForTable(tableName));
    } catch (const basic::RuntimeError& e) {
        showDebugBox(QStringLiteral("MyMOD.getRecordSet : "), e, fileOf(getConnectionForTable(tableName)));
    }
    return store::Recordset::nothing();
}

store::Recordset getRecordSetByCn(const QString& query, const store::Connection& connection) {
    try {
        return openStatic(query, connection);
    } catch (const basic::RuntimeError& e) {
        showDebugBox(QStringLiteral("MyMOD.getRecordSetByCn : "), e, fileOf(connection));
    }
    return store::Recordset::nothing();
}

bool IsQueryReturnsNullCnStr(const QString& query, const QString& connectionString) {
    try {
        store::Connection cn;
        cn.setConnectionString(connectionString);
        cn.Open();
        store::Recordset rs = openStatic(query, cn);
        bool result = true;
        if (!(rs.Bof() && rs.Eof())) {
            rs.MoveFirst();
            const basic::Variant value = rs.Fields(0).Value();
            // A long-binary column holding no bytes is no document either.
            result = value.isNull() || (value.type() == basic::Variant::Bytes && value.bytes().isEmpty());
        }
        rs.Close();
        if (result) PointStandbyDocument();
        return result;
    } catch (const basic::RuntimeError& e) {
        showDebugBox(QStringLiteral("MyMOD.IsQueryReturnsNullCnStr : "), e, store::databasePath(connectionString));
    }
    return false;
}

void PointStandbyDocument() {
    // The document window lives above this layer; it is reached by its registered name.
    QWidget* window = nullptr;
    if (ignore([&] { window = forms::get(QStringLiteral("keralaforms")); }).number() != 0 || !window) return;
    if (auto* msrdc = window->findChild<documents::DataControl*>(QStringLiteral("MSRDC1"))) {
        msrdc->setConnect(strLibraryCn1);
        msrdc->setSQL(QStringLiteral(
            "SELECT Globalvat.fname FROM Globalvat WHERE (((Globalvat.name)='default') AND ((Globalvat.type)='default'));"));
    }
}

bool IsNameInGlobalvat(const QString& name) {
    // No handler: a name with an apostrophe breaks the statement, and the caller's handler reports it.
    store::Recordset rs;
    rs.setCursorType(store::Recordset::adOpenStatic);
    rs.setCursorLocation(store::Recordset::adUseClient);
    rs.setLockType(store::Recordset::adLockOptimistic);
    if (rs.State() == 1) rs.Close();
    rs.Open(QStringLiteral("SELECT name FROM Globalvat WHERE ((name='") + name + QStringLiteral("'));"), cnLibrary1,
            store::Recordset::adOpenForwardOnly, -1, -1);
    const bool found = !(rs.Bof() && rs.Eof());
    rs.Close();
    return found;
}

store::Connection GetFirstLibraryConnection() { return cnLibrary1; }
BrowserLayout GetBrowserLayout() { return layoutRecord; }
sys::FileSystemObject& GetFileSystem() {
    static sys::FileSystemObject fileSystem;
    return fileSystem;
}

bool ShowErrorDetail() { return true; }

bool IsDevelopmentRun() {
    // Kept as the system has it: a static that starts empty and always ends at false in the built program.
    static int state = -1;  // -1 stands for "empty"
    if (state == -1) {
        state = 1;
        state -= 1;
    } else if (state == 1) {
        state = 0;
    }
    return state != 0;
}

bool SafeSetFocus(QWidget* control) {
    const basic::RuntimeError e = ignore([&] {
        if (!control) throw basic::RuntimeError(91, QStringLiteral("Object variable or With block variable not set"));
        control->setFocus();
    });
    return e.description().isEmpty();
}

std::int32_t RegisterServerFile(const QString& path, std::int16_t mode) { return sys::RegisterServerFile(path, mode); }

}  // namespace shell
