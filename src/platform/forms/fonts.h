#pragma once
// The font database is read, and the application's font loaded, on the first text laid out: some ten
// milliseconds. The start does it while it waits for its library files, not inside the first window.
namespace forms {

void LoadFonts();   // needs the application object

}  // namespace forms
