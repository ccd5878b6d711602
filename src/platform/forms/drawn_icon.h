#pragma once
// An icon of our own drawing for a toolbar button: `paint` draws on a square of 32 units, and is called
// once for each size a toolbar asks for (16, 24, 32, 48 pixels) with the painter antialiased.
#include <QIcon>
#include <functional>

class QPainter;

namespace forms {

QIcon drawnIcon(const std::function<void(QPainter& p, qreal unit)>& paint);

}  // namespace forms
