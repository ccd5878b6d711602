#pragma once
// The OLE container: a document view bound to a column of a data control's row, or holding a document
// embedded in its window. It shows the document and opens it in full by its verb. The library is
// read-only, so nothing is ever written back; DataChanged is kept only because the windows clear it.
#include "platform/documents/data_control.h"
#include "platform/documents/document_view.h"

#include <QPointer>
#include <QString>

namespace documents {

class OleContainer : public DocumentView {
    Q_OBJECT
public:
    // Verbs of the platform: the primary verb, show in place, open in a window of its own.
    enum { vbOLEPrimary = 0, vbOLEShow = -1, vbOLEOpen = -2 };

    explicit OleContainer(QWidget* parent = nullptr);

    void setDataSource(DataControl* source);
    DataControl* DataSource() const { return source_; }
    // Binds to a column and shows it; a name the source's row lacks raises error 3265.
    void setDataField(const QString& fieldName);
    QString DataField() const { return field_; }
    bool DataChanged() const { return dataChanged_; }
    void setDataChanged(bool changed) { dataChanged_ = changed; }

    // Embeds the file's document, as an object placed on a window when it was designed: it needs no data
    // source, and its links lead to the files beside it. A file that cannot be read raises 75
    // "Path/File access error" and leaves the container as it was. Binding a column replaces it.
    void CreateEmbed(const QString& sourceDoc);
    QString SourceDoc() const { return sourceDoc_; }

    // Reads the bound column of the source's row anew; an embedded document stays.
    void Refresh();
    // Open (-2), the primary verb and the object's own verbs (0 and above) open the document in the full
    // viewer, an embedded one with its links live; show (-1) and the other negative verbs leave it where
    // it is. An empty container does nothing.
    void DoVerb(int verb = vbOLEPrimary);

signals:
    // A left click anywhere on the shown document, or Enter while it has the focus.
    void Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showBound();
    QPointer<DataControl> source_;
    QString field_;
    QString sourceDoc_;  // the embedded document's file; empty when bound or empty
    bool dataChanged_ = false;
};

}  // namespace documents
