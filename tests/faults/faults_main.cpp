// The fault tests mount their small file systems in a mount namespace of the process's own, so that
// nothing they mount outlives them, whatever stops them.
#include "faults.h"

#include <sched.h>

bool privateMounts = false;

int main(int argc, char** argv) {
    privateMounts = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    if (!privateMounts) std::printf("[ SKIPPED  ] small file systems: may not mount; a page limit stands for a full disk\n");
    ::testing::InitGoogleTest(&argc, argv);
    ensureApp();
    return RUN_ALL_TESTS();
}
