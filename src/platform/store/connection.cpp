#include "platform/store/connection.h"

#include "platform/basic/log.h"

#include "platform/store/database.h"
#include "platform/store/errors.h"
#include "platform/store/sql_functions.h"
#include "platform/store/sql_translation.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

// SQLCipher declares sqlite3_key only for builds that ask for the codec.
#define SQLITE_HAS_CODEC 1
#include <sqlite3.h>

#include <future>
#include <map>
#include <mutex>

namespace store {

namespace {

// Key=value pairs split at ';' outside braces; keys in upper case.
QHash<QString, QString> parseConnectionString(const QString& s) {
    QHash<QString, QString> pairs;
    QString piece;
    int braces = 0;
    auto take = [&] {
        const qsizetype eq = piece.indexOf(u'=');
        if (eq > 0) pairs.insert(piece.left(eq).trimmed().toUpper(), piece.mid(eq + 1).trimmed());
        piece.clear();
    };
    for (QChar c : s) {
        if (c == u'{') ++braces;
        if (c == u'}' && braces > 0) --braces;
        if (c == u';' && braces == 0) take();
        else piece += c;
    }
    take();
    return pairs;
}

detail::ConnectionData& data(const std::shared_ptr<detail::ConnectionData>& d) {
    if (!d) throw storeError(kObjectNotSet);
    return *d;
}

detail::Database& openDatabase(const std::shared_ptr<detail::ConnectionData>& d) {
    detail::ConnectionData& c = data(d);
    if (!c.database) throw storeError(kObjectClosed);
    return *c.database;
}

void openWith(const std::shared_ptr<detail::ConnectionData>& d, const QString& connectionString, bool create) {
    detail::ConnectionData& c = data(d);
    if (c.database) throw storeError(kObjectOpen);
    if (!connectionString.isEmpty()) c.connectionString = connectionString;
    const QString path = databasePath(c.connectionString);
    if (path.isEmpty())
        throw providerError(QStringLiteral("Data source name not found and no default driver specified"));
    const QString key = databaseKey(c.connectionString);
    c.database = detail::Database::acquire(path, key, create, c.mode == Connection::adModeRead);
}

}  // namespace

void OpenAhead(const QString& connectionString, int mode) {
    const QString path = databasePath(connectionString);
    if (path.isEmpty()) return;
    detail::Database::acquireAhead(path, parseConnectionString(connectionString).value(QStringLiteral("PWD")),
                                   mode == Connection::adModeRead);
}

QString databasePath(const QString& connectionString) {
    return parseConnectionString(connectionString).value(QStringLiteral("DBQ")).replace(u'\\', u'/');
}

QString databaseKey(const QString& connectionString) {
    return parseConnectionString(connectionString).value(QStringLiteral("PWD"));
}

namespace detail {

// Never destroyed: connections and record sets held in globals end after every function-local static,
// and their databases still look themselves up here as they close.
static std::map<QString, std::weak_ptr<Database>>& pool() {
    static auto* handles = new std::map<QString, std::weak_ptr<Database>>;
    return *handles;
}

// Files being opened ahead, until an acquire takes them; a failed one holds no handle.
static std::map<QString, std::shared_future<std::shared_ptr<Database>>>& ahead() {
    static auto* opening = new std::map<QString, std::shared_future<std::shared_ptr<Database>>>;
    return *opening;
}

// Guards pool() and ahead(): files opened ahead finish on their own threads.
static std::mutex& poolMutex() {
    static auto* m = new std::mutex;
    return *m;
}

static QString poolKeyOf(const QString& path, const QString& key) {
    return QFileInfo(path).canonicalFilePath() + u'\n' + key;
}

sqlite3* openHandle(const QString& path, const QString& key, int flags, bool passLocks) {
    sqlite3* db = nullptr;
    const auto fail = [&db] {
        basic::RuntimeError e = databaseError(db);
        sqlite3_close_v2(db);
        throw e;
    };
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr) != SQLITE_OK) fail();
    // The wait must stand before the first read: that read is the one that meets another program's lock.
    sqlite3_busy_timeout(db, passLocks ? 0 : 2000);
    if (!key.isEmpty()) {
        const QByteArray k = key.toUtf8();
        sqlite3_key(db, k.constData(), int(k.size()));
    }
    // The key is only tried by the first read: make that read now, so a wrong key fails here. The read
    // also rolls back what a program stopped in the middle of a transaction left in the file.
    const int read = sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (read != SQLITE_OK && !(passLocks && read == SQLITE_BUSY)) fail();
    sqlite3_busy_timeout(db, 2000);
    if (pageLimit > 0) {
        const QByteArray pragma = "PRAGMA max_page_count = " + QByteArray::number(pageLimit);
        sqlite3_exec(db, pragma.constData(), nullptr, nullptr, nullptr);
    }
    return db;
}

static int openFlags(bool create, bool readOnly) {
    return readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
}

// Pages are decrypted as they are read; a larger cache keeps an index table's pages decrypted between
// the searches of one run (memory is taken only as pages are touched).
static void prepareHandle(sqlite3* db) {
    registerSqlFunctions(db);
    sqlite3_exec(db, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);
}

std::shared_ptr<Database> Database::open(const QString& path, const QString& key, bool create, bool readOnly) {
    std::shared_ptr<Database> db(new Database);
    // A connection opens as the old driver's did, without waiting on the file: a lock meets the first
    // statement, where the caller's error handling already stands.
    db->db_ = openHandle(path, key, openFlags(create, readOnly), true);
    db->path_ = path;
    db->key_ = key;
    db->readOnly_ = readOnly;
    prepareHandle(db->db_);
    db->poolKey_ = poolKeyOf(path, key);
    return db;
}

std::shared_ptr<Database> Database::acquire(const QString& path, const QString& key, bool create, bool readOnly) {
    const QFileInfo file(path);
    if (!file.exists() && !create) throw providerError(QStringLiteral("Could not find file '%1'.").arg(path));
    if (file.exists()) {
        const QString poolKey = poolKeyOf(path, key);
        std::shared_future<std::shared_ptr<Database>> opening;
        {
            std::lock_guard lock(poolMutex());
            if (auto shared = pool()[poolKey].lock()) return shared;
            if (auto it = ahead().find(poolKey); it != ahead().end()) {
                opening = it->second;
                ahead().erase(it);
            }
        }
        if (opening.valid()) {
            if (std::shared_ptr<Database> db = opening.get()) {
                std::lock_guard lock(poolMutex());
                pool()[poolKey] = db;
                return db;
            }
        }
    }

    std::shared_ptr<Database> db = open(path, key, create, readOnly);
    std::lock_guard lock(poolMutex());
    if (auto shared = pool()[db->poolKey_].lock()) return shared;   // made by this very call's create
    pool()[db->poolKey_] = db;
    return db;
}

void Database::acquireAhead(const QString& path, const QString& key, bool readOnly) {
    if (!QFileInfo(path).isFile()) return;
    const QString poolKey = poolKeyOf(path, key);
    std::lock_guard lock(poolMutex());
    if (!pool()[poolKey].expired() || ahead().count(poolKey)) return;
    ahead()[poolKey] = std::async(std::launch::async, [path, key, readOnly]() -> std::shared_ptr<Database> {
                           try {
                               return open(path, key, false, readOnly);
                           } catch (const basic::RuntimeError& e) {
                               qCDebug(lcStore).noquote() << "opening ahead passed over:" << e.description();
                               return nullptr;
                           }
                       }).share();
}

void Database::reopenAll(const QString& path) {
    const QString prefix = QFileInfo(path).canonicalFilePath() + u'\n';
    std::lock_guard lock(poolMutex());
    for (auto& [poolKey, weak] : pool()) {
        if (!poolKey.startsWith(prefix)) continue;
        const std::shared_ptr<Database> db = weak.lock();
        if (!db) continue;
        if (db->transactionDepth > 0) throw storeError(kObjectOpen);
        sqlite3* fresh = openHandle(db->path_, db->key_, openFlags(false, db->readOnly_));
        sqlite3_close_v2(db->db_);
        db->db_ = fresh;
        prepareHandle(db->db_);
    }
}

Database::~Database() {
    if (!poolKey_.isEmpty()) {
        std::lock_guard lock(poolMutex());
        auto it = pool().find(poolKey_);
        if (it != pool().end() && it->second.expired()) pool().erase(it);
    }
    sqlite3_close_v2(db_);
}

long Database::execute(const QString& sql) {
    Statement st(*this, translateSql(sql).sql);
    while (st.step()) {
    }
    return sqlite3_column_count(st.get()) == 0 ? long(sqlite3_changes(db_)) : 0L;
}

void Database::confirmTransaction() const {
    if (transactionDepth > 0 && sqlite3_get_autocommit(db_))
        throw providerError(lastFailure.isEmpty() ? QStringLiteral("The transaction was rolled back.") : lastFailure);
}

Statement::Statement(Database& db, const QString& sql, bool tried) : db_(db) {
    db.confirmTransaction();
    const QByteArray utf8 = sql.toUtf8();
    const char* tail = nullptr;
    if (sqlite3_prepare_v2(db.handle(), utf8.constData(), int(utf8.size()), &stmt_, &tail) != SQLITE_OK)
        throw tried ? providerError(QString::fromUtf8(sqlite3_errmsg(db.handle())), false) : databaseError(db.handle(), sql);
    if (!stmt_) throw providerError(QStringLiteral("Invalid SQL statement."));
    for (; tail && *tail; ++tail)
        if (*tail != ';' && !QChar::isSpace(uchar(*tail))) {
            sqlite3_finalize(stmt_);
            stmt_ = nullptr;
            throw providerError(QStringLiteral("Characters found after end of SQL statement."));
        }
}

Statement::~Statement() {
    sqlite3_finalize(stmt_);
}

bool Statement::step() {
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    basic::RuntimeError e = databaseError(db_.handle(), QString::fromUtf8(sqlite3_sql(stmt_)));
    db_.lastFailure = e.description();
    sqlite3_reset(stmt_);
    throw e;
}

}  // namespace detail

Connection::Connection() : d_(std::make_shared<detail::ConnectionData>()) {}

Connection Connection::nothing() {
    return Connection(std::shared_ptr<detail::ConnectionData>());
}

QString Connection::ConnectionString() const {
    return data(d_).connectionString;
}

void Connection::setConnectionString(const QString& connectionString) {
    detail::ConnectionData& c = data(d_);
    if (c.database) throw storeError(kObjectOpen);
    c.connectionString = connectionString;
}

int Connection::Mode() const {
    return data(d_).mode;
}

void Connection::setMode(int mode) {
    detail::ConnectionData& c = data(d_);
    if (c.database) throw storeError(kObjectOpen);
    c.mode = mode;
}

void Connection::Open(const QString& connectionString) {
    openWith(d_, connectionString, false);
}

void Connection::Create(const QString& connectionString) {
    openWith(d_, connectionString, true);
}

void Connection::Close() {
    detail::ConnectionData& c = data(d_);
    if (!c.database) throw storeError(kObjectClosed);
    c.database.reset();
}

int Connection::State() const {
    return data(d_).database ? 1 : 0;
}

long Connection::Execute(const QString& sql) {
    return openDatabase(d_).execute(sql);
}

// Nested levels are savepoints inside the one transaction of the shared handle.
int Connection::BeginTrans() {
    detail::Database& db = openDatabase(d_);
    const int level = db.transactionDepth + 1;
    db.execute(level == 1 ? QStringLiteral("BEGIN") : QStringLiteral("SAVEPOINT level%1").arg(level));
    db.transactionDepth = level;
    return level;
}

void Connection::CommitTrans() {
    detail::Database& db = openDatabase(d_);
    const int level = db.transactionDepth;
    if (level == 0) throw providerError(QStringLiteral("No transaction is active."));
    db.execute(level == 1 ? QStringLiteral("COMMIT") : QStringLiteral("RELEASE level%1").arg(level));
    db.transactionDepth = level - 1;
}

void Connection::RollbackTrans() {
    detail::Database& db = openDatabase(d_);
    const int level = db.transactionDepth;
    if (level == 0) throw providerError(QStringLiteral("No transaction is active."));
    if (sqlite3_get_autocommit(db.handle())) {
        // The database has rolled the whole transaction back already, on the failure that led here.
        db.transactionDepth = level - 1;
        return;
    }
    if (level == 1) {
        db.execute(QStringLiteral("ROLLBACK"));
    } else {
        db.execute(QStringLiteral("ROLLBACK TO level%1").arg(level));
        db.execute(QStringLiteral("RELEASE level%1").arg(level));
    }
    db.transactionDepth = level - 1;
}

void Connection::ConfirmTrans() const {
    openDatabase(d_).confirmTransaction();
}

QStringList Connection::TableNames() const {
    detail::Database& db = openDatabase(d_);
    detail::Statement st(db,
                         QStringLiteral("SELECT name FROM sqlite_master WHERE type IN ('table','view') ORDER BY name"));
    QStringList names;
    while (st.step()) names << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st.get(), 0)));
    return names;
}

QString Connection::FilePath() const {
    return databasePath(data(d_).connectionString);
}

}  // namespace store
