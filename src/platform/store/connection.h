#pragma once
// A connection to one database file, named by a connection string of the desktop-database driver:
//   "Driver={Microsoft Access Driver (*.mdb)};Dbq=<path>;Uid=admin;Pwd=<password>;"
// Keys are read without regard to case, the last pair may lack its ';', Uid and Pwd may be missing.
// A Pwd opens the file as a SQLCipher database keyed with it, and no other key opens it.
// Connections to one file (and key) share one database handle in the process, so a transaction begun
// on one of them covers statements run through any other.
// Connection is a handle: copies refer to the same connection, as object references do.
#include <QString>
#include <QStringList>
#include <memory>

namespace store {

namespace detail {
struct ConnectionData;
}

class Connection {
public:
    enum ConnectModeEnum { adModeUnknown = 0, adModeRead = 1, adModeReadWrite = 3 };

    Connection();                              // a new, closed connection
    static Connection nothing();               // a handle to no connection; any use raises error 91
    bool isNothing() const { return !d_; }

    QString ConnectionString() const;
    void setConnectionString(const QString& connectionString);
    // adModeRead opens the file read-only; set while closed. Connections share the handle of a file, so
    // the first one to open it decides.
    int Mode() const;
    void setMode(int mode);

    void Open(const QString& connectionString = QString());     // the file must exist
    void Create(const QString& connectionString = QString());   // Open, making an empty file when missing
    void Close();
    int State() const;                         // 0 closed, 1 open

    long Execute(const QString& sql);          // rows affected
    int BeginTrans();                          // nesting level, from 1
    void CommitTrans();
    void RollbackTrans();
    // Raises the failure that ended the transaction when the database has rolled it back by itself (a
    // full disk, an I/O error), though the statement that met it was passed over; nothing otherwise.
    void ConfirmTrans() const;

    QStringList TableNames() const;            // every table and view of the file
    QString FilePath() const;                  // the file the connection string names, "\" read as "/"

    bool operator==(const Connection& other) const { return d_ == other.d_; }

private:
    friend class Recordset;
    explicit Connection(std::shared_ptr<detail::ConnectionData> d) : d_(std::move(d)) {}
    std::shared_ptr<detail::ConnectionData> d_;
};

// Starts opening the file of a connection string on a thread of its own, so that the Open that follows
// finds its handle ready: the key derivation of an encrypted file is the slow part of opening it, and
// files opened ahead derive their keys side by side. What goes wrong there is dropped; the Open then
// opens the file itself and raises what it finds. A file that does not exist is left to the Open.
void OpenAhead(const QString& connectionString, int mode = Connection::adModeRead);

// The path of "Dbq=" with "\" read as "/": the one place where the system's separators are mapped.
QString databasePath(const QString& connectionString);
// The key of "Pwd=", empty when there is none.
QString databaseKey(const QString& connectionString);

}  // namespace store
