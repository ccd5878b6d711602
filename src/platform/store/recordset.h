#pragma once
// A record set: the rows of a statement, read into memory when it opens (a client-side cursor), with a
// current row, a filter, clones that share the rows, and writing back of added or changed rows.
// Recordset and Field are handles: copies refer to the same record set, as object references do.
// BOF and EOF are spelt Bof() and Eof(), as EOF is a macro of the C library.
#include "platform/basic/variant.h"
#include "platform/store/connection.h"

#include <QString>
#include <memory>

namespace store {

namespace detail {
struct RecordsetData;
}

// The platform's type numbers of a field.
enum FieldType {
    adInteger = 3, adDouble = 5, adCurrency = 6, adBoolean = 11, adDate = 135,
    adVarWChar = 202, adLongVarWChar = 203, adLongVarBinary = 205
};

// One column of a record set; its Value is that of the record set's current row at the time it is read.
class Field {
public:
    QString Name() const;
    int Type() const;
    basic::Variant Value() const;
    void setValue(const basic::Variant& value);        // on the current row, or on the row being added
    Field& operator=(const basic::Variant& value) {
        setValue(value);
        return *this;
    }
    Field(const Field&) = default;
    Field& operator=(const Field&) = delete;           // rs.Fields("a") = other.Fields("b") means .Value()

private:
    friend class Recordset;
    Field(std::shared_ptr<detail::RecordsetData> d, int column) : d_(std::move(d)), column_(column) {}
    std::shared_ptr<detail::RecordsetData> d_;
    int column_;
};

class Recordset {
public:
    enum { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };
    enum { adLockReadOnly = 1, adLockOptimistic = 3, adUseClient = 3 };
    enum { adPosUnknown = -1, adPosBOF = -2, adPosEOF = -3 };

    Recordset();                                        // a new, closed record set
    static Recordset nothing();                         // a handle to no record set; any use raises error 91
    bool isNothing() const { return !d_; }

    // Set before Open; Open's own arguments of -1 leave them as they are.
    void setActiveConnection(const Connection& connection);
    Connection ActiveConnection() const;
    void setCursorType(int cursorType);
    int CursorType() const;
    void setLockType(int lockType);
    int LockType() const;
    void setCursorLocation(int cursorLocation);
    int CursorLocation() const;

    // A statement that returns no rows (DELETE, UPDATE, INSERT) is run and leaves the record set closed.
    void Open(const QString& source);
    void Open(const QString& source, const Connection& connection, int cursorType = -1, int lockType = -1,
              int options = -1);
    void Close();                                       // an unfinished AddNew or edit is dropped
    int State() const;                                  // 0 closed, 1 open

    bool Bof() const;
    bool Eof() const;
    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();
    void Move(long rows);
    long RecordCount() const;                           // rows that pass the filter
    long AbsolutePosition() const;                      // from 1; adPosBOF or adPosEOF off the rows
    void setAbsolutePosition(long position);
    basic::Variant Bookmark() const;                    // stays with its row through filters and clones
    void setBookmark(const basic::Variant& bookmark);

    int FieldCount() const;
    Field Fields(const QString& name) const;            // without regard to case; error 3265 when unknown
    Field Fields(int index) const;

    basic::Variant Filter() const;                      // 0 when there is none
    void setFilter(const basic::Variant& filter);       // 0 or "" clears; then stands on the first row
    Recordset Clone(int lockType = -1) const;           // same rows, own filter and place

    void AddNew();                                      // a new row at the end, current until Update
    void Update();                                      // writes the added or changed row to its table
    void CancelUpdate();

private:
    explicit Recordset(std::shared_ptr<detail::RecordsetData> d) : d_(std::move(d)) {}
    std::shared_ptr<detail::RecordsetData> d_;
};

}  // namespace store
