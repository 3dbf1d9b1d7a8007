#include "FxSFImageWidget.h"

#include "FxSFImageLabel.h"
#include "LayoutMetrics.h"

#include <SoTypedObject.h>

#include <Inventor/SbVec2s.h>
#include <Inventor/fields/SoSFImage.h>

#include <QFrame>
#include <QHBoxLayout>
#include <QImage>

#include <algorithm>
#include <cstring>

namespace {

QImage grey(const unsigned char* bytes, int width, int height)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int i = 0; i < 256; ++i)
        image.setColor(i, qRgb(i, i, i));
    for (int y = 0; y < height; ++y)
        std::memcpy(image.scanLine(y), bytes + size_t(y) * size_t(width), size_t(width));
    return image;
}

QImage twoComponents(const unsigned char* bytes, int width, int height)
{
    // Copied as they are into a 16-bit image, row for row.
    QImage image(width, height, QImage::Format_RGB16);
    for (int y = 0; y < height; ++y)
        std::memcpy(image.scanLine(y), bytes + size_t(y) * size_t(width) * 2, size_t(width) * 2);
    return image;
}

// The scene graph stores the bottom row first; the image's rows run top down.
QImage colour(const unsigned char* bytes, int width, int height, int components)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        const unsigned char* source = bytes + size_t(y) * size_t(width) * size_t(components);
        auto* target = reinterpret_cast<QRgb*>(image.scanLine(height - 1 - y));
        for (int x = 0; x < width; ++x) {
            const unsigned char* pixel = source + size_t(x) * size_t(components);
            const int alpha = components == 4 ? pixel[3] : 255;
            target[x] = qRgba(pixel[0], pixel[1], pixel[2], alpha);
        }
    }
    return image;
}

} // namespace

FxSFImageWidget::FxSFImageWidget(const char* name)
    : FxSFieldWidget(name ? name : "FxSFImageWidget")
{
    handledType = SoSFImage::getClassTypeId();
    this->name = "SFImage";
}

void FxSFImageWidget::createWidget()
{
    setFieldLabel(QStringLiteral("SFImage"));
    FxSFieldWidget::createWidget();
    if (imageLabel)
        return;
    const int side = LayoutMetrics::value(QStringLiteral("SFBoolWidth"));
    imageLabel = new FxSFImageLabel(side, side, frame, "m_imageBox");
    editLayout->addWidget(imageLabel, 0);
}

QPixmap FxSFImageWidget::pixmapOf(SoField* field)
{
    auto* typed = SoTypedObject(field).cast<SoSFImage>();
    if (!typed)
        return QPixmap();
    SbVec2s size;
    int components = 0;
    const unsigned char* bytes = typed->getValue(size, components);
    const int width = size[0];
    const int height = size[1];
    if (!bytes || width <= 0 || height <= 0)
        return QPixmap();
    switch (components) {
    case 1:
        return QPixmap::fromImage(grey(bytes, width, height));
    case 2:
        return QPixmap::fromImage(twoComponents(bytes, width, height));
    case 3:
    case 4:
        return QPixmap::fromImage(colour(bytes, width, height, components));
    default:
        return QPixmap();
    }
}

void FxSFImageWidget::updateWidget()
{
    if (imageLabel) {
        const QPixmap pixmap = pixmapOf(field);
        QLabel* popup = imageLabel->popupLabel();
        popup->setFixedSize(std::min(pixmap.width(), 256), std::min(pixmap.height(), 256));
        popup->setPixmap(pixmap);
        imageLabel->setPixmap(pixmap);
    }
    FxSFieldWidget::updateWidget();
}
