#pragma once
// The rich text box of the text viewers: read-only, filled from a file by setting its file name.
#include "platform/documents/document_view.h"

class QPrinter;

namespace documents {

class RichTextBox : public DocumentView {
    Q_OBJECT
public:
    explicit RichTextBox(QWidget* parent = nullptr) : DocumentView(parent) {}

    QString FileName() const { return fileName_; }
    // Loads the file (a path as the system writes it); a missing file raises 75 "Path/File access error"
    // and leaves the box as it was.
    void setFileName(const QString& path);
    void Refresh() { update(); }
    // Prints the text (the whole of it when nothing is selected) on the printer.
    void SelPrint(QPrinter& printer) const;

private:
    QString fileName_;
};

}  // namespace documents
