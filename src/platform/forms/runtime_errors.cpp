#include "platform/forms/runtime_errors.h"

#include "platform/forms/msgbox.h"

namespace forms {

void reportRuntimeError(const basic::RuntimeError& error) {
    MsgBox(QStringLiteral("Run-time error '") + QString::number(error.number()) + QStringLiteral("':\n\n") +
               error.description(),
           vbCritical, standardTitle());
}

void guard(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const basic::RuntimeError& e) {
        reportRuntimeError(e);
    } catch (const std::exception& e) {
        reportRuntimeError(basic::RuntimeError(5, QString::fromUtf8(e.what())));
    } catch (...) {
        reportRuntimeError(basic::RuntimeError(51, QStringLiteral("Internal error")));
    }
}

}  // namespace forms
