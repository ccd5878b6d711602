#pragma once
// The one toolbar table of the law windows. The state browser and the Central Sales Tax window show
// the same buttons in the same order under the same keys; Central Sales Tax has Cash Payment and Bank
// Payment on the bar after Rules, where the state browser has them as Rules' menu.
class QStyle;
namespace forms {
class ImageList;
class Toolbar;
}

namespace library {

enum class PaymentButtons { InRulesMenu, OnTheBar };

// Fills the image list with the buttons' pictures and the bar with its buttons, image n for button n.
void fillLawToolbar(forms::Toolbar* bar, forms::ImageList& images, const QStyle* style, PaymentButtons payments);

}  // namespace library
