#include "platform/forms/layout.h"

#include "platform/forms/twips.h"

#include <QWidget>
#include <algorithm>

namespace forms {

void place(QWidget* w, int left, int top, int width, int height) {
    w->setGeometry(twips(left), twips(top), std::max(0, twips(width)), std::max(0, twips(height)));
}

int leftOf(const QWidget* w) { return toTwips(w->x()); }
int topOf(const QWidget* w) { return toTwips(w->y()); }
int widthOf(const QWidget* w) { return toTwips(w->width()); }
int heightOf(const QWidget* w) { return toTwips(w->height()); }
void setLeft(QWidget* w, int left) { w->move(twips(left), w->y()); }
void setTop(QWidget* w, int top) { w->move(w->x(), twips(top)); }
void setWidth(QWidget* w, int width) { w->resize(std::max(0, twips(width)), w->height()); }
void setHeight(QWidget* w, int height) { w->resize(w->width(), std::max(0, twips(height))); }

QColor oleColor(unsigned bgr) { return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF)); }

unsigned toOleColor(const QColor& c) { return unsigned(c.red()) | unsigned(c.green()) << 8 | unsigned(c.blue()) << 16; }

void setColour(QWidget* w, QPalette::ColorRole role, unsigned bgr) {
    QPalette p = w->palette();
    p.setColor(role, oleColor(bgr));
    w->setPalette(p);
}

void setBackColour(QWidget* w, unsigned bgr) {
    setColour(w, QPalette::Button, bgr);
    setColour(w, QPalette::Window, bgr);
    w->setAutoFillBackground(true);
}

void setForeColour(QWidget* w, unsigned bgr) {
    setColour(w, QPalette::WindowText, bgr);
    setColour(w, QPalette::ButtonText, bgr);
}

}  // namespace forms
