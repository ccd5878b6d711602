#pragma once
// The folders a user last wrote the return's files to, remembered from run to run.
#include <QString>

namespace returns {

// The folder last remembered under the key; the home folder before the first time, or when the
// remembered one has gone.
QString RememberedFolder(const QString& key);
void RememberFolder(const QString& key, const QString& folder);

}  // namespace returns
