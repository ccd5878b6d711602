#include "platform/reports/crystal_report.h"

#include "platform/basic/app_path.h"
#include "platform/forms/errors.h"
#include "platform/reports/preview_window.h"

namespace reports {

CrystalReport::CrystalReport(QObject* parent) : QObject(parent) {}

CrystalReport::~CrystalReport() = default;

QString CrystalReport::DataFiles(int index) const {
    if (index < 0) throw forms::invalidArrayIndex();
    return dataFiles_.value(index);
}

void CrystalReport::setDataFiles(int index, const QString& path) {
    if (index < 0 || index > 255) throw forms::invalidArrayIndex();
    while (dataFiles_.size() <= index) dataFiles_ << QString();
    dataFiles_[index] = path;
}

QString CrystalReport::ReportFileName() const { return reportFileName_; }

void CrystalReport::setReportFileName(const QString& path) { reportFileName_ = path; }

void CrystalReport::setAction(int action) {
    if (action != 1) return;
    // Both files are read before the window changes, so a failure leaves the last register showing.
    const ReportTemplate t = readTemplate(basic::NativePath(reportFileName_));
    const ReportData d = loadData(t, dataFiles_.value(0));
    if (!window_) window_ = std::make_unique<PreviewWindow>();
    window_->setRegister(t, d);
    if (windowState_ == 2) window_->showMaximized();
    else if (windowState_ == 1) window_->showMinimized();
    else window_->showNormal();
    window_->showTop();
    window_->raise();
    window_->activateWindow();
}

}  // namespace reports
