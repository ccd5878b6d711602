#include "platform/documents/rtf_pictures.h"

#include <algorithm>
#include <cmath>

namespace documents::rtf {

namespace {

constexpr int kMaxSide = 4000;

// One side in pixels: the goal in twips when there is one, else the picture's own, then scaled.
int side(int goalTwips, double natural, int scalePercent) {
    const double pixels = goalTwips > 0 ? goalTwips / 15.0 : natural;
    const int scale = scalePercent > 0 ? std::min(scalePercent, 1000) : 100;
    const long rounded = std::lround(pixels * scale / 100.0);
    return rounded <= 0 ? 0 : int(std::min<long>(rounded, kMaxSide));
}

}  // namespace

Picture decodePicture(const PictureProps& p) {
    Picture picture;
    if (p.kind == PictureKind::Png || p.kind == PictureKind::Jpeg)
        picture.image = QImage::fromData(p.data, p.kind == PictureKind::Png ? "PNG" : "JPEG");
    double w = p.width, h = p.height;
    if (!picture.image.isNull()) {
        w = picture.image.width();
        h = picture.image.height();
    } else if (p.kind == PictureKind::Metafile) {
        w = p.width * 96.0 / 2540.0;  // hundredths of a millimetre
        h = p.height * 96.0 / 2540.0;
    }
    picture.size = QSize(side(p.goalWidth, w, p.scaleX), side(p.goalHeight, h, p.scaleY));
    if (picture.size.isEmpty()) picture.size = QSize();
    return picture;
}

QImage placeholderImage() {
    QImage box(8, 8, QImage::Format_RGB32);
    box.fill(QColor(0xE4, 0xE4, 0xE4));
    return box;
}

}  // namespace documents::rtf
