#include "platform/basic/runtime_error.h"

namespace basic {

QString RuntimeError::detail() const {
    return QStringLiteral(" | No: ") + QString::number(number_) + QStringLiteral(" | Src: ") + source_;
}

RuntimeError typeMismatch() { return RuntimeError(13, QStringLiteral("Type mismatch")); }
RuntimeError invalidUseOfNull() { return RuntimeError(94, QStringLiteral("Invalid use of Null")); }
RuntimeError overflowError() { return RuntimeError(6, QStringLiteral("Overflow")); }

}  // namespace basic
