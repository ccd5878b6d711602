#include "platform/documents/rtf_pictures.h"

#include "platform/documents/rtf_reader_parts.h"

#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>

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

// ---- the reader's pictures --------------------------------------------------------------------------

// Pictures. The hex run of the picture's group is its bytes; anything else in it is passed over.
void Reader::pictureData() {
    while (p_ < end_) {
        const char c = *p_;
        if (c == '{' || c == '}' || c == '\\') return;
        ++p_;
        const int v = hexValue(c);
        if (v < 0) continue;
        if (nibble_ < 0) {
            nibble_ = v;
        } else {
            picture_.data.append(char(nibble_ * 16 + v));
            nibble_ = -1;
        }
    }
}

// At the end of a \pict group. A \nonshppict picture only replaces the placeholder of the metafile
// just before it; any other picture goes in where it stands.
void Reader::finishPicture() {
    const Wrap wrap = pictureWrap_;
    pictureDepth_ = 0;
    const Picture picture = decodePicture(picture_);
    picture_ = PictureProps{};
    if (wrap == Wrap::NonShape) {
        if (replaceable_ && !picture.placeholder() && !picture.size.isEmpty() && run_.isEmpty() &&
            cursor_.position() == placeholderAt_ + 1) {
            cursor_.setPosition(placeholderAt_, QTextCursor::KeepAnchor);
            cursor_.removeSelectedText();
            insertPicture(picture);
        }
        replaceable_ = false;
        return;
    }
    if (picture.size.isEmpty()) return;
    beginContent(top().para);
    flush();
    placeholderAt_ = cursor_.position();
    insertPicture(picture);
    replaceable_ = picture.placeholder();
}

void Reader::insertPicture(const Picture& picture) {
    QString name = QStringLiteral("rtf-picture:placeholder");
    if (!picture.placeholder()) {
        name = QStringLiteral("rtf-picture:%1").arg(++pictures_);
        document_.addResource(QTextDocument::ImageResource, QUrl(name), picture.image);
    } else if (!placeholderAdded_) {
        document_.addResource(QTextDocument::ImageResource, QUrl(name), placeholderImage());
        placeholderAdded_ = true;
    }
    QTextImageFormat format;
    format.merge(charFormat(top().chr));
    format.setName(name);
    format.setWidth(picture.size.width());
    format.setHeight(picture.size.height());
    cursor_.insertImage(format);
    ++blockChars_;
}

}  // namespace documents::rtf
