#pragma once
// Places and sizes of the windows are given in twips: 15 twips make a pixel at 96 dpi.
namespace forms {

int twips(int twipsValue);      // twips -> pixels, rounded to the nearest pixel (halves away from zero)
int toTwips(int pixels);        // pixels -> twips

}  // namespace forms
