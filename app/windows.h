#pragma once
// Every window of the program, registered by name in the forms registry; each is made on first touch.
namespace app {
void defineWindows();
}
