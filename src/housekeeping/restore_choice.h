#pragma once
// The question before a restore of a backup that holds dealers: all of them, or one.
#include <QString>
#include <optional>
#include <utility>
#include <vector>

class QWidget;

namespace housekeeping {

// The TIN of the one dealer to bring back, empty for every dealer, nullopt when the user cancels.
// dealers: TIN and name of each dealer of the backup.
std::optional<QString> AskWhatToRestore(QWidget* parent, const std::vector<std::pair<QString, QString>>& dealers);

}  // namespace housekeeping
