#include "platform/documents/rtf_reader.h"

#include <QBuffer>
#include <QImage>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextImageFormat>

#include <gtest/gtest.h>

namespace documents {

// A picture of one colour, as the hex run a word processor writes.
QByteArray pictureHex(const char* format, int w, int h, Qt::GlobalColor color) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(color);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, format);
    return bytes.data().toHex();
}

// The text with each picture as "[WxH colour]": the name of its red or blue, or "box" for a placeholder.
QString pictures(const QTextDocument& document) {
    QString out;
    for (auto it = document.begin().begin(); !it.atEnd(); ++it) {
        const QTextImageFormat image = it.fragment().charFormat().toImageFormat();
        const QImage pixels = document.resource(QTextDocument::ImageResource, QUrl(image.name())).value<QImage>();
        const QRgb rgb = pixels.isNull() ? 0 : pixels.pixel(0, 0);
        out += !image.isValid() ? it.fragment().text()
               : QStringLiteral("[%1x%2 %3]").arg(image.width()).arg(image.height()).arg(
                     image.name().endsWith(QLatin1String("placeholder")) ? "box" : qRed(rgb) > 200 ? "red" : "blue");
    }
    return out;
}

TEST(RtfPictures, ShownAtTheirSizeOrAsTheirAlternative) {
    const QByteArray png = pictureHex("PNG", 30, 20, Qt::red), jpeg = pictureHex("JPEG", 16, 16, Qt::blue);
    const std::pair<QByteArray, const char*> cases[] = {
        {"{\\*\\shppict{\\pict\\pngblip\\picw30\\pich20\\picwgoal1500\\pichgoal600\\picscalex50\\picscaley200\r\n" + png +
             "}}{\\nonshppict{\\pict\\wmetafile8\\picw1000\\pich500 0100}}",
         "a[50x80 red]b"},
        {"{\\pict\\jpegblip\\picwgoal300\\pichgoal450 " + jpeg + "}", "a[20x30 blue]b"},
        {"{\\pict\\pngblip " + png + "}", "a[30x20 red]b"},  // no goal: the picture's own size
        {"{\\*\\shppict{\\pict\\emfblip\\picwgoal900\\pichgoal600 0100aa}}{\\nonshppict{\\pict\\pngblip"
         "\\picwgoal900\\pichgoal600 " + png + "}}",
         "a[60x40 red]b"},
        {"{\\pict\\wmetafile8\\picw2540\\pich1270 0100}", "a[96x48 box]b"},  // hundredths of a millimetre
        {"{\\pict\\emfblip\\picwgoal1500\\pichgoal750 0100}{\\nonshppict{\\pict\\wmetafile8 0100}}", "a[100x50 box]b"},
        {"{\\pict\\pngblip\\picwgoal600\\pichgoal300 " + png.left(60) + "}", "a[40x20 box]b"},  // damaged
        {"{\\pict\\pngblip\\bin" + QByteArray::number(png.size() / 2) + " " + QByteArray::fromHex(png) + "}",
         "a[30x20 red]b"},
        {"{\\nonshppict{\\pict\\pngblip " + png + "}}", "ab"},  // an alternative with nothing to stand for
    };
    for (const auto& [picture, expected] : cases) {
        QTextDocument document;
        readRtf("{\\rtf1 a" + picture + "b}", document);
        EXPECT_EQ(pictures(document), QString::fromUtf8(expected)) << picture.left(60).constData();
    }
}

}  // namespace documents
