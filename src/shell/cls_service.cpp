#include "shell/cls_service.h"

#include "platform/basic/runtime_error.h"
#include "platform/forms/errors.h"
#include "platform/forms/list_box.h"
#include "shell/log.h"

namespace shell {

std::unique_ptr<clsService> objService;

std::int32_t clsService::ListBoxTypingSearch(forms::ListBox* list, const QString& text) {
    try {
        if (!list) throw forms::objectNotSet();
        const std::int32_t found = list->FindString(text);
        list->setListIndex(found);
        return found;
    } catch (const basic::RuntimeError& e) {
        qCDebug(lcShell) << "ListBoxTypingSearch passed over error" << e.number() << e.description();
        return 0;
    }
}

}  // namespace shell
