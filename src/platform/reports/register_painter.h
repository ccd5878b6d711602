#pragma once
// Lays a register out on pages and paints it: on every page the title, the heading lines and the page
// number; the bill grid under its column headings, as many rows as a page holds; the summary block
// under the last bill, on a page of its own when it does not fit below them.
#include "platform/reports/report_data.h"
#include "platform/reports/report_template.h"

class QPagedPaintDevice;

namespace reports {

// Paints the whole register on the device, whose page layout it sets from the template. Returns the
// number of pages.
int paintRegister(const ReportTemplate& t, const ReportData& d, QPagedPaintDevice* device);

// The register as a PDF file: the template and data file read, laid out and written to pdfPath.
// Errors of the template or the data file as readTemplate and loadData raise them; a PDF file that
// cannot be written raises error 75 naming it.
int writePdf(const QString& templatePath, const QString& dataFile, const QString& pdfPath);
int writePdf(const ReportTemplate& t, const ReportData& d, const QString& pdfPath);

}  // namespace reports
