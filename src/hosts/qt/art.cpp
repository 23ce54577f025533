// The images of resources/art.h: SVG files that travel in the program, each part rasterised when it is first painted at
// the present scale.
#include "resources/art.h"
#include "hosts/qt/device.h"
#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

namespace {

constexpr int ShiftSteps = 4; // of a pixel; finer differences of the grid are not seen

struct ArtKey {
    int Id;
    int Left, Top, Width, Height; // of the part in the pixels made of it
    int GridX, GridY;             // ShiftSteps to a pixel
    int ScaleX, ScaleY;           // thousandths
    bool operator==(const ArtKey &) const = default;
};

size_t qHash(const ArtKey &key, size_t seed) {
    return qHashMulti(seed, key.Id, key.Left, key.Top, key.Width, key.Height, key.GridX, key.GridY, key.ScaleX,
                      key.ScaleY);
}

QHash<ArtKey, QImage> made;
QHash<int, QSvgRenderer *> drawings;

const Image *Find(int id) {
    for (const Image &image : Images)
        if (image.Id == id)
            return &image;
    return nullptr;
}

QSvgRenderer *Drawing(int id) {
    const auto known = drawings.constFind(id);
    if (known != drawings.constEnd())
        return *known;
    const QString file = QStringLiteral(":/art/%1.svg").arg(id);
    QSvgRenderer *drawing = QFile::exists(file) ? new QSvgRenderer(file, qApp) : nullptr;
    if (drawing && !drawing->isValid()) {
        delete drawing;
        drawing = nullptr;
    }
    drawings.insert(id, drawing);
    return drawing;
}

// The part as `size` pixels, where an image's pixel (x, y) lies at (x * scaleX + shiftX, y * scaleY + shiftY).
const QImage *Rasterised(int id, const Rect &part, const QSize &size, double scaleX, double scaleY, double shiftX,
                         double shiftY) {
    const Image *const image = Find(id);
    if (!image || size.isEmpty())
        return nullptr;
    const int gridX = static_cast<int>(std::lround(shiftX * ShiftSteps)),
              gridY = static_cast<int>(std::lround(shiftY * ShiftSteps));
    const ArtKey key{id,
                     part.Left,
                     part.Top,
                     size.width(),
                     size.height(),
                     gridX,
                     gridY,
                     static_cast<int>(std::lround(scaleX * 1000)),
                     static_cast<int>(std::lround(scaleY * 1000))};
    const auto known = made.constFind(key);
    if (known != made.constEnd())
        return &*known;
    QSvgRenderer *const drawing = Drawing(id);
    if (!drawing)
        return nullptr;
    QImage pixels(size, QImage::Format_ARGB32_Premultiplied);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    // A sheet's neighbouring cells stay out, also where an edge of the part falls inside a pixel.
    painter.setClipRect(QRectF(QPointF(part.Left * scaleX + shiftX, part.Top * scaleY + shiftY),
                               QPointF(part.Right * scaleX + shiftX, part.Bottom * scaleY + shiftY)));
    drawing->render(&painter, QRectF(double(gridX) / ShiftSteps, double(gridY) / ShiftSteps, image->Width * scaleX,
                                     image->Height * scaleY));
    painter.end();
    return &*made.insert(key, pixels);
}

} // namespace

void ForgetArt() {
    made.clear();
}

const QImage *Art(int image, const Rect &part, const QSize &size, double shiftX, double shiftY) {
    return Rasterised(image, part, size, host.Factor, host.Factor, shiftX, shiftY);
}

const QImage *StretchedArt(int image, const Rect &part, const QSize &size) {
    const double scaleX = double(size.width()) / std::max(1, part.Right - part.Left),
                 scaleY = double(size.height()) / std::max(1, part.Bottom - part.Top);
    return Rasterised(image, part, size, scaleX, scaleY, -part.Left * scaleX, -part.Top * scaleY);
}
