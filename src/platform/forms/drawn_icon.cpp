#include "platform/forms/drawn_icon.h"

#include <QPainter>
#include <QPixmap>

namespace forms {

QIcon drawnIcon(const std::function<void(QPainter& p, qreal unit)>& paint) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        paint(p, size / 32.0);
        p.end();
        icon.addPixmap(picture);
    }
    return icon;
}

}  // namespace forms
