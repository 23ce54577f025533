// The images of resources/art.h: SVG files that travel in the program, each rasterised when it is first painted at the
// present scale.
#include "resources/art.h"
#include "hosts/qt/art.h"
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
    int Width, Height; // in pixels
    int GridX, GridY;  // where device pixel 0 lies, ShiftSteps to a pixel
    bool operator==(const ArtKey &) const = default;
};

size_t qHash(const ArtKey &key, size_t seed) {
    return qHashMulti(seed, key.Id, key.Width, key.Height, key.GridX, key.GridY);
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

// The whole image drawn `width` x `height` pixels large, its corner `gridX`, `gridY` steps into the first pixel.
const QImage *Rasterised(int id, double width, double height, int gridX, int gridY) {
    const QRectF place(double(gridX) / ShiftSteps, double(gridY) / ShiftSteps, width, height);
    const QSize size(static_cast<int>(std::ceil(place.right() - 0.01)),
                     static_cast<int>(std::ceil(place.bottom() - 0.01)));
    const ArtKey key{id, size.width(), size.height(), gridX, gridY};
    const auto known = made.constFind(key);
    if (known != made.constEnd())
        return &*known;
    QSvgRenderer *const drawing = size.isEmpty() ? nullptr : Drawing(id);
    if (!drawing)
        return nullptr;
    QImage pixels(size, QImage::Format_ARGB32_Premultiplied);
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    drawing->render(&painter, place);
    painter.end();
    return &*made.insert(key, pixels);
}

// Splits a place into whole pixels and the steps that are left.
int Split(double place, int *steps) {
    const int all = static_cast<int>(std::lround(place * ShiftSteps));
    const int whole = static_cast<int>(std::floor(double(all) / ShiftSteps));
    *steps = all - whole * ShiftSteps;
    return whole;
}

} // namespace

void ForgetArt() {
    made.clear();
}

ArtPixels Art(int id, double x, double y) {
    const Image *const image = Find(id);
    if (!image)
        return {};
    int gridX, gridY;
    const QPoint corner(Split(x, &gridX), Split(y, &gridY));
    return {Rasterised(id, image->Width * host.Factor, image->Height * host.Factor, gridX, gridY), corner};
}

ArtPixels StretchedArt(int id, const Rect &part, const QRect &box) {
    const Image *const image = Find(id);
    if (!image || part.Right <= part.Left || part.Bottom <= part.Top)
        return {};
    const double scaleX = double(box.width()) / (part.Right - part.Left),
                 scaleY = double(box.height()) / (part.Bottom - part.Top);
    int gridX, gridY;
    const QPoint corner(Split(box.x() - part.Left * scaleX, &gridX), Split(box.y() - part.Top * scaleY, &gridY));
    return {Rasterised(id, image->Width * scaleX, image->Height * scaleY, gridX, gridY), corner};
}
