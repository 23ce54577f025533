// surface.h on the persistent images of the program's windows. Boxes and axis-parallel lines are written straight into
// the image, whole pixels of one colour. Slanted lines and shapes are antialiased from SmoothFrom on; below it they are
// whole logical pixels too, since smoothing would only blur them.
#include "platform/surface.h"
#include "hosts/qt/art.h"
#include "hosts/qt/device.h"
#include "hosts/qt/surface.h"
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QResource>
#include <cmath>

namespace {

struct Face {
    int Pixels; // size of the font in device pixels
    bool Bold;
};
// ORDER FONT: they fill cells of 13, 13, 12 and 20 pixels.
constexpr Face Faces[] = {{11, false}, {11, true}, {10, true}, {17, true}};
constexpr int FaceCount = sizeof Faces / sizeof Faces[0];

// The name of a font file of the program once the toolkit knows it; "" when it can't be used. The file is read in
// place.
QString LoadFont(const char *file) {
    const QResource resource{QLatin1String(file)};
    const int font = QFontDatabase::addApplicationFontFromData(
        QByteArray::fromRawData(reinterpret_cast<const char *>(resource.data()), static_cast<int>(resource.size())));
    // It bears two names; the last is that of the condensed face alone.
    const QStringList names = QFontDatabase::applicationFontFamilies(font);
    return names.isEmpty() ? QString() : names.last();
}

const QString &Family() {
    static const QString family = [] {
        LoadFont(":/fonts/DejaVuSansCondensed-Bold.ttf");
        return LoadFont(":/fonts/DejaVuSansCondensed.ttf");
    }();
    return family;
}

// Fonts at the present factor, made when first asked for.
struct SizedFont {
    double Factor = 0;
    QFont Font;
    double Ascent = 0, Height = 0;
};

const SizedFont &PixelFont(Font font) {
    static SizedFont sized[FaceCount];
    SizedFont &one = sized[static_cast<int>(font)];
    if (one.Factor != host.Factor) {
        one.Factor = host.Factor;
        one.Font = DeviceFont(font, host.Factor);
        const QFontMetricsF metrics(one.Font);
        one.Ascent = metrics.ascent();
        one.Height = metrics.height();
    }
    return one;
}

QImage *ImageOf(Window window) {
    ProgramWindow *const widget = window < WindowCount ? host.Windows[window] : nullptr;
    return widget ? widget->PersistentImage() : nullptr;
}

void Mark(Window window, const QRect &pixels) {
    host.Windows[window]->Mark(pixels);
}

void FillPixels(Window window, const QRect &box, Colour fill) {
    QImage *const image = ImageOf(window);
    if (!image)
        return;
    const QRect inside = box.isEmpty() ? QRect() : box & image->rect();
    if (inside.isEmpty())
        return;
    const QRgb pixel = 0xff000000 | fill;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(image->scanLine(y));
        std::fill(line + inside.left(), line + inside.right() + 1, pixel);
    }
    Mark(window, inside);
}

// A pen as wide as device pixels are, through the middle of the pixels that the points name.
QPen ScaledPen(Colour colour, int width) {
    QPen pen(QColor(colour), width * host.Factor, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    return pen;
}

QPointF Middle(const Point &point, int width) {
    return {(point.X + width / 2.0) * host.Factor, (point.Y + width / 2.0) * host.Factor};
}

constexpr double SmoothFrom = 1.5;

bool Smooth() {
    return host.Factor >= SmoothFrom;
}

// A slanted line of whole logical pixels, both ends included: one in each column, or in each row where it is steep.
void StepLine(Window window, const Point &from, const Point &to, Colour pen, int width) {
    constexpr int64_t Reach = 4096; // no window is that large: what lies beyond is not stepped through
    const int64_t dx = int64_t{to.X} - from.X, dy = int64_t{to.Y} - from.Y;
    const bool steep = std::abs(dy) > std::abs(dx);
    const int64_t along = std::abs(steep ? dy : dx), across = steep ? dx : dy, sign = (steep ? dy : dx) < 0 ? -1 : 1;
    const int64_t start = steep ? from.Y : from.X;
    // The steps whose pixel may lie in a window.
    const int64_t one = (-Reach - start) * sign, other = (Reach - start) * sign;
    for (int64_t n = std::max<int64_t>(0, std::min(one, other)); n <= std::min(along, std::max(one, other)); ++n) {
        // Rounded to the nearest pixel, halves away from the start's side.
        const int64_t twice = 2 * n * across, off = (twice + (across < 0 ? -along : along)) / (2 * along);
        const int64_t x = steep ? from.X + off : from.X + sign * n, y = steep ? from.Y + sign * n : from.Y + off;
        if (std::abs(x) < Reach && std::abs(y) < Reach)
            FillRect(
                window,
                {static_cast<int>(x), static_cast<int>(y), static_cast<int>(x) + width, static_cast<int>(y) + width},
                pen);
    }
}

// Paints one outline and marks what it covers.
void PaintPath(Window window, const QPainterPath &path, const QPen &pen, const QBrush &brush) {
    QImage *const image = ImageOf(window);
    if (!image)
        return;
    QPainter painter(image);
    painter.setRenderHint(QPainter::Antialiasing, Smooth());
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawPath(path);
    const double reach = pen.widthF() + 1;
    Mark(window, path.boundingRect().adjusted(-reach, -reach, reach, reach).toAlignedRect() & image->rect());
}

int AlignFlags(Align align) {
    switch (align) {
    case Align::Left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case Align::Centre:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case Align::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Align::TopLeft:
        return Qt::AlignLeft | Qt::AlignTop;
    case Align::TopRight:
        return Qt::AlignRight | Qt::AlignTop;
    }
    return 0;
}

// Paints the art that lies in a box of pixels.
void PaintArt(Window window, const QRect &box, const ArtPixels &art, QPainter::CompositionMode mode) {
    QImage *const image = ImageOf(window);
    if (!image || !art.Pixels || box.isEmpty())
        return;
    QPainter painter(image);
    painter.setCompositionMode(mode);
    painter.drawImage(box.topLeft(), *art.Pixels, box.translated(-art.Corner));
    Mark(window, box & image->rect());
}

} // namespace

QFont DeviceFont(Font font, double pixelsPerUnit) {
    const Face &face = Faces[static_cast<int>(font)];
    QFont made(Family());
    // Glyphs have whole sizes; rounded down, so that what fits at scale 1 fits at every scale.
    made.setPixelSize(std::max(1, static_cast<int>(face.Pixels * pixelsPerUnit)));
    made.setBold(face.Bold);
    made.setHintingPreference(QFont::PreferVerticalHinting);
    return made;
}

void FillRect(Window window, const Rect &box, Colour fill) {
    FillPixels(window, PixelBox(box), fill);
}

void DrawPolyline(Window window, const Point *points, int count, Colour pen, int width) {
    QPainterPath slanted;
    for (int i = 0; i + 1 < count; ++i) {
        const Point &from = points[i], &to = points[i + 1];
        if (from.X == to.X || from.Y == to.Y) {
            FillRect(window,
                     {std::min(from.X, to.X), std::min(from.Y, to.Y), std::max(from.X, to.X) + width,
                      std::max(from.Y, to.Y) + width},
                     pen);
            continue;
        }
        if (!Smooth()) {
            StepLine(window, from, to, pen, width);
            continue;
        }
        const QPointF start = Middle(from, width);
        if (slanted.isEmpty() || slanted.currentPosition() != start)
            slanted.moveTo(start);
        slanted.lineTo(Middle(to, width));
    }
    if (!slanted.isEmpty())
        PaintPath(window, slanted, ScaledPen(pen, width), Qt::NoBrush);
}

void FillPolygon(Window window, const Point *points, int count, Colour fill, Colour outline) {
    if (count < 2)
        return;
    QPainterPath path(Middle(points[0], 1));
    for (int i = 1; i < count; ++i)
        path.lineTo(Middle(points[i], 1));
    path.closeSubpath();
    PaintPath(window, path, ScaledPen(outline, 1), QColor(fill));
}

void FillEllipse(Window window, const Rect &box, Colour fill, Colour outline) {
    QPainterPath path;
    path.addEllipse(QRectF(Middle({box.Left, box.Top}, 1), Middle({box.Right - 1, box.Bottom - 1}, 1)));
    PaintPath(window, path, ScaledPen(outline, 1), QColor(fill));
}

void DrawEllipse(Window window, const Rect &box, Colour pen, int width) {
    const double inset = width * host.Factor / 2;
    QPainterPath path;
    path.addEllipse(QRectF(PixelBox(box)).adjusted(inset, inset, -inset, -inset));
    PaintPath(window, path, ScaledPen(pen, width), Qt::NoBrush);
}

void PaintText(Window window, const char16_t *text, const Rect &box, Align align, Font font, Colour ink, int fit) {
    QImage *const image = ImageOf(window);
    const QRect pixels = PixelBox(box);
    if (!image || !text || !text[0] || pixels.isEmpty())
        return;
    const SizedFont &sized = PixelFont(font);
    const QString line = QString::fromUtf16(text);
    const QFontMetricsF metrics(sized.Font);
    const double width = metrics.horizontalAdvance(line);
    const double squeeze = fit && width > pixels.width() ? pixels.width() / width : 1;

    const int flags = AlignFlags(align);
    double left = pixels.x();
    if (flags & Qt::AlignRight)
        left += pixels.width() - width * squeeze;
    else if (flags & Qt::AlignHCenter)
        left += (pixels.width() - width * squeeze) / 2;
    // A letter that reaches out to the left, as J does, moves in as far as there is room.
    const double room = pixels.right() + 1 - left - width * squeeze;
    if (room > 0)
        left = std::max(left, pixels.x() + std::min(room, -metrics.leftBearing(line[0]) * squeeze));
    double top = pixels.y();
    if (flags & Qt::AlignVCenter)
        top += (pixels.height() - sized.Height) / 2;

    QPainter painter(image);
    painter.setClipRect(pixels);
    painter.setFont(sized.Font);
    painter.setPen(QColor(ink));
    painter.translate(std::round(left), std::round(top + sized.Ascent)); // a baseline between pixels would blur
    if (squeeze != 1)
        painter.scale(squeeze, 1);
    painter.drawText(QPointF(0, 0), line);
    Mark(window, pixels & image->rect());
}

int TextWidth(const char16_t *text, Font font) {
    const QFontMetricsF metrics(PixelFont(font).Font);
    return static_cast<int>(std::ceil(metrics.horizontalAdvance(QString::fromUtf16(text)) / host.Factor - 0.01));
}

void CopyImage(Window window, Point to, int image, const Rect &part, Blit blit) {
    const QRect box = PixelBox({to.X, to.Y, to.X + part.Right - part.Left, to.Y + part.Bottom - part.Top});
    const ArtPixels art = Art(image, (to.X - part.Left) * host.Factor, (to.Y - part.Top) * host.Factor);
    PaintArt(window, box, art,
             blit == Blit::And ? QPainter::CompositionMode_Multiply : QPainter::CompositionMode_SourceOver);
}

void StretchImage(Window window, const Rect &to, int image, const Rect &part) {
    const QRect box = PixelBox(to);
    PaintArt(window, box, StretchedArt(image, part, box), QPainter::CompositionMode_SourceOver);
}

void ShowNow() {
    for (ProgramWindow *window : host.Windows)
        if (window)
            window->ShowPainted();
    QEvent now(QEvent::UpdateRequest); // what this asks for is painted and shown at once, and no input is taken
    if (host.Frame && host.Frame->isVisible())
        QApplication::sendEvent(host.Frame, &now);
}
