#pragma once
// The pictures of an RTF document: what a \pict group says of its picture, and what the view shows for it.
#include <QByteArray>
#include <QImage>
#include <QSize>

namespace documents::rtf {

enum class PictureKind { Unknown, Png, Jpeg, Metafile };

struct PictureProps {
    PictureKind kind = PictureKind::Unknown;
    int width = 0, height = 0;          // \picw, \pich: pixels, or hundredths of a millimetre for a metafile
    int goalWidth = 0, goalHeight = 0;  // \picwgoal, \pichgoal: twips
    int scaleX = 100, scaleY = 100;     // \picscalex, \picscaley: percent
    QByteArray data;                    // the picture's bytes, from its hex run or \bin
};

struct Picture {
    QImage image;          // the decoded picture; null for a placeholder
    QSize size;            // pixels at 96 dpi; empty when nothing can be shown
    bool placeholder() const { return image.isNull(); }
};

// PNG and JPEG are decoded; a metafile, a picture of another kind and one that cannot be decoded stand as a
// placeholder of their size. The size is the goal size scaled, else the picture's own, at most 4000 pixels.
Picture decodePicture(const PictureProps& props);

// The plain grey box that stands for a picture the view cannot draw, stretched to its size.
QImage placeholderImage();

}  // namespace documents::rtf
