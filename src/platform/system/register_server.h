#pragma once
// Calls a component file's own registration entry on a thread of its own, with a time limit.
#include <QString>
#include <cstdint>

namespace sys {

// Mode 1 calls "DllRegisterServer", mode 2 "DllUnregisterServer" (extern "C" long(void)). Status:
// 0 empty path (or the thread could not start: the file stays loaded); 1 the file does not load;
// 2 another mode or no such entry (the file is unloaded again); 3 the entry did not end within the
// limit: it runs on, detached, and the file stays loaded under it; 4 mode 1 ended; 5 mode 2 ended.
std::int32_t RegisterServerFile(const QString& path, int mode, int timeoutMs = 10000);

}  // namespace sys
