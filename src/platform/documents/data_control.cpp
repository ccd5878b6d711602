#include "platform/documents/data_control.h"

#include "platform/store/connection.h"
#include "platform/store/errors.h"
#include "platform/store/recordset.h"

namespace documents {

DataControl::DataControl(QObject* parent) : QObject(parent) {}

void DataControl::Refresh() {
    row_.clear();
    columns_.clear();
    store::Connection connection;
    connection.Open(connect_);
    store::Recordset rows;
    rows.Open(sql_, connection, store::Recordset::adOpenStatic, store::Recordset::adLockReadOnly);
    if (rows.State() == 1) {
        for (int i = 0; i < rows.FieldCount(); ++i) {
            const store::Field field = rows.Fields(i);
            columns_.append(field.Name().toLower());
            if (!rows.Eof()) row_.insert(columns_.last(), field.Value());
        }
    }
    emit refreshed();
}

basic::Variant DataControl::value(const QString& fieldName) const {
    if (!hasField(fieldName)) throw store::storeError(store::kItemNotFound);
    return row_.value(fieldName.toLower(), basic::Variant::null());
}

QByteArray DataControl::bytes(const QString& fieldName) const {
    const basic::Variant v = value(fieldName);
    if (v.type() == basic::Variant::Bytes) return v.bytes();
    if (v.type() == basic::Variant::Text) return v.text().toUtf8();
    return {};
}

}  // namespace documents
