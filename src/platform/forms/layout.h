#pragma once
// What every window needs to lay itself out as the old platform did: places and sizes in twips, and
// colours as the old platform numbered them (blue in the high byte: 0xC0C0FF is a light red).
#include <QColor>
#include <QPalette>

class QWidget;

namespace forms {

// A child's place relative to its parent, in twips; a negative width or height is taken as 0, as the
// old platform clipped a control that its frame had grown too small for.
void place(QWidget* w, int left, int top, int width, int height);

int leftOf(const QWidget* w);
int topOf(const QWidget* w);
int widthOf(const QWidget* w);
int heightOf(const QWidget* w);
void setLeft(QWidget* w, int left);
void setTop(QWidget* w, int top);
void setWidth(QWidget* w, int width);
void setHeight(QWidget* w, int height);

QColor oleColor(unsigned bgr);
unsigned toOleColor(const QColor& color);

// One role of the widget's palette, as a colour number.
void setColour(QWidget* w, QPalette::ColorRole role, unsigned bgr);

// BackColor of a button or option: its face and, for an option, the ground it stands on.
void setBackColour(QWidget* w, unsigned bgr);

// ForeColor: the text of a label, button or option.
void setForeColour(QWidget* w, unsigned bgr);

}  // namespace forms
