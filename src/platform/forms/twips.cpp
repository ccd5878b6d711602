#include "platform/forms/twips.h"

#include <QtGlobal>

namespace forms {

namespace {
constexpr int kTwipsPerPixel = 15;
}

int twips(int twipsValue) { return qRound(double(twipsValue) / kTwipsPerPixel); }

int toTwips(int pixels) { return pixels * kTwipsPerPixel; }

}  // namespace forms
