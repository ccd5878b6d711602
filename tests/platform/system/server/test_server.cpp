// A component for the registration tests: registering ends at once, unregistering takes 600 ms,
// longer than the short limit the tests give and shorter than the long one.
#include <time.h>

extern "C" long DllRegisterServer() { return 0; }

extern "C" long DllUnregisterServer() {
    timespec pause{0, 600 * 1000 * 1000};
    nanosleep(&pause, nullptr);
    return 0;
}
