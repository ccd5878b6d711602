#include "housekeeping/restore_choice.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace housekeeping {

std::optional<QString> AskWhatToRestore(QWidget* parent, const std::vector<std::pair<QString, QString>>& dealers) {
    QDialog dialog(parent);
    dialog.setWindowTitle(QStringLiteral("Restore"));
    auto* what = new QComboBox(&dialog);
    what->addItem(QStringLiteral("Every dealer and every book"), QString());
    for (const auto& [tin, name] : dealers) what->addItem(name.left(120) + QStringLiteral("  (TIN ") + tin + QLatin1Char(')'), tin);
    auto* label = new QLabel(QStringLiteral("&Bring back from the backup:"), &dialog);
    label->setBuddy(what);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(what);
    layout->addWidget(new QLabel(QStringLiteral("The books restored replace the books of the same dealer and year."), &dialog));
    layout->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return what->currentData().toString();
}

}  // namespace housekeeping
