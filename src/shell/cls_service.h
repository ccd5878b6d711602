#pragma once
// clsService: small services of the windows, held in one instance for the whole program.
#include <QString>
#include <cstdint>
#include <memory>

namespace forms {
class ListBox;
}

namespace shell {

class clsService {
public:
    // Chooses the first entry of the list, from the top, that starts with the text without regard to
    // case, and answers its index; -1 when none does, which leaves no entry chosen. A failure answers 0.
    std::int32_t ListBoxTypingSearch(forms::ListBox* list, const QString& text);
};

// The program's one service object; its users make it on first use.
extern std::unique_ptr<clsService> objService;

}  // namespace shell
