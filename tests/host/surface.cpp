// The surface of the tests. It keeps, for each window, the colour of every pixel that fills and lines painted, and
// every text and image with the pixels of it that nothing has been painted over since; what has lost all of them is
// forgotten.
#include "platform/surface.h"
#include "test_host.h"
#include <algorithm>
#include <cmath>

namespace testhost {

PaintCounts painted[WindowCount];

namespace {

struct Mask { // the pixels of a box that still stand
    Rect Box{};
    std::vector<uint8_t> Stands;
    int Left = 0; // pixels that still stand

    explicit Mask(const Rect &box) : Box(box) {
        Left = std::max(0, box.Right - box.Left) * std::max(0, box.Bottom - box.Top);
        Stands.assign(static_cast<size_t>(Left), 1);
    }
    uint8_t *At(int x, int y) {
        return &Stands[static_cast<size_t>((y - Box.Top) * (Box.Right - Box.Left) + x - Box.Left)];
    }
    void Cover(const Rect &by) {
        for (int y = std::max(Box.Top, by.Top); y < std::min(Box.Bottom, by.Bottom); ++y)
            for (int x = std::max(Box.Left, by.Left); x < std::min(Box.Right, by.Right); ++x) {
                Left -= *At(x, y);
                *At(x, y) = 0;
            }
    }
    int PerCent() const { return Stands.empty() ? 0 : Left * 100 / static_cast<int>(Stands.size()); }
};

struct KeptText {
    StandingText Text;
    Mask Shape;
};
struct KeptImage {
    StandingImage Image;
    Mask Shape;
};

struct Canvas {
    int Width, Height;
    std::vector<Colour> Pixels;
    std::vector<KeptText> Texts;
    std::vector<KeptImage> Images;

    Canvas(int width, int height)
        : Width(width), Height(height), Pixels(static_cast<size_t>(width * height), NothingPainted) {}
    Colour &At(int x, int y) { return Pixels[static_cast<size_t>(y * Width + x)]; }
    Rect Clip(const Rect &box) const {
        return {std::clamp(box.Left, 0, Width), std::clamp(box.Top, 0, Height), std::clamp(box.Right, 0, Width),
                std::clamp(box.Bottom, 0, Height)};
    }
};

// Letters never reach the outermost pixels of a text's box; a text of which less than this is left can't be seen.
constexpr int LeastVisible = 12; // per cent

std::vector<Canvas> canvases;

Canvas &CanvasOf(Window window) {
    return canvases[window < WindowCount ? window : NoWindow];
}

void CoverAll(Canvas &canvas, const Rect &by) {
    for (KeptText &kept : canvas.Texts)
        kept.Shape.Cover(by);
    for (KeptImage &kept : canvas.Images)
        kept.Shape.Cover(by);
}

void ForgetCovered(Canvas &canvas) {
    std::erase_if(canvas.Texts, [](const KeptText &kept) { return kept.Shape.PerCent() < LeastVisible; });
    std::erase_if(canvas.Images, [](const KeptImage &kept) { return kept.Shape.Left == 0; });
}

void Paint(Canvas &canvas, const Rect &box, Colour colour) {
    const Rect clipped = canvas.Clip(box);
    for (int y = clipped.Top; y < clipped.Bottom; ++y)
        for (int x = clipped.Left; x < clipped.Right; ++x)
            canvas.At(x, y) = colour;
    if (clipped.Left < clipped.Right && clipped.Top < clipped.Bottom)
        CoverAll(canvas, clipped);
}

void PaintLine(Canvas &canvas, Point from, Point to, Colour pen, int width) {
    const int steps = std::max(std::abs(to.X - from.X), std::abs(to.Y - from.Y));
    if (from.X == to.X || from.Y == to.Y) {
        Paint(canvas,
              {std::min(from.X, to.X), std::min(from.Y, to.Y), std::max(from.X, to.X) + width,
               std::max(from.Y, to.Y) + width},
              pen);
        return;
    }
    for (int n = 0; n <= std::min(steps, 4096); ++n) {
        const int x = from.X + (to.X - from.X) * n / steps, y = from.Y + (to.Y - from.Y) * n / steps;
        Paint(canvas, {x, y, x + width, y + width}, pen);
    }
}

// Advance widths of DejaVu Sans Condensed from the space to '~', in 1/2048 of the height of the letters.
// clang-format off
constexpr int16_t PlainAdvance[] = {
    585, 738, 847, 1544, 1172, 1751, 1437, 506, 719, 719, 921, 1544, 585, 665, 585, 621,
    1172, 1172, 1172, 1172, 1172, 1172, 1172, 1172, 1172, 1172, 621, 621, 1544, 1544, 1544, 978,
    1843, 1260, 1264, 1287, 1419, 1164, 1060, 1428, 1386, 543, 543, 1208, 1026, 1590, 1378, 1450,
    1111, 1450, 1280, 1170, 1125, 1349, 1260, 1822, 1262, 1125, 1262, 719, 621, 719, 1544, 921,
    921, 1129, 1170, 1013, 1170, 1134, 648, 1170, 1168, 512, 512, 1067, 512, 1795, 1168, 1127,
    1170, 1170, 757, 960, 722, 1168, 1090, 1507, 1090, 1090, 967, 1172, 621, 1172, 1544,
};
constexpr int16_t BoldAdvance[] = {
    641, 840, 960, 1544, 1282, 1846, 1607, 564, 842, 842, 963, 1544, 700, 765, 700, 673,
    1282, 1282, 1282, 1282, 1282, 1282, 1282, 1282, 1282, 1282, 737, 737, 1544, 1544, 1544, 1069,
    1843, 1426, 1404, 1352, 1530, 1259, 1259, 1512, 1542, 685, 685, 1428, 1174, 1834, 1542, 1566,
    1350, 1566, 1419, 1327, 1257, 1496, 1426, 2033, 1421, 1334, 1336, 842, 673, 842, 1544, 921,
    921, 1243, 1319, 1092, 1319, 1250, 801, 1319, 1312, 631, 631, 1225, 631, 1920, 1312, 1266,
    1319, 1319, 909, 1097, 881, 1312, 1201, 1702, 1188, 1201, 1072, 1312, 673, 1312, 1544,
};
constexpr struct { int Cell, Letters; const int16_t *Advance; } Faces[] = { // ORDER FONT
    {13, 11, PlainAdvance}, {13, 11, BoldAdvance}, {12, 10, BoldAdvance}, {20, 17, BoldAdvance},
};
// clang-format on
static_assert(std::size(PlainAdvance) == 95 && std::size(BoldAdvance) == 95);

constexpr int AverageAdvance = 1200;

int Clamped(int64_t value) {
    return static_cast<int>(std::clamp<int64_t>(value, -100000, 100000));
}

} // namespace

void ResetSurface() {
    static constexpr int sizes[WindowCount][2] = {{0, 0}, {240, 294}, {240, 262}, {240, 394}, {240, 320}, {240, 268}};
    canvases.clear();
    for (int n = 0; n < WindowCount; ++n) {
        canvases.emplace_back(sizes[n][0], sizes[n][1]);
        painted[n] = {};
    }
}

std::vector<StandingText> TextsIn(Window window, const Rect &box) {
    std::vector<StandingText> found;
    for (const KeptText &kept : CanvasOf(window).Texts) {
        const Rect &ink = kept.Text.Ink;
        if (Inside(box, (ink.Left + ink.Right) / 2, (ink.Top + ink.Bottom) / 2)) {
            found.push_back(kept.Text);
            found.back().Visible = kept.Shape.PerCent();
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const StandingText &a, const StandingText &b) {
        return a.Ink.Top != b.Ink.Top ? a.Ink.Top < b.Ink.Top : a.Ink.Left < b.Ink.Left;
    });
    return found;
}

std::vector<StandingText> TextsOn(Window window) {
    return TextsIn(window, {-1000, -1000, 1000, 1000});
}

std::string TextAt(Window window, const Rect &box) {
    std::string all;
    for (const StandingText &text : TextsIn(window, box))
        all += (all.empty() ? "" : " | ") + text.Words;
    return all;
}

std::vector<StandingText> Remains(Window window) {
    std::vector<StandingText> all = TextsOn(window);
    std::erase_if(all, [](const StandingText &text) { return text.Visible > 70; });
    return all;
}

Colour ColourAt(Window window, int x, int y) {
    Canvas &canvas = CanvasOf(window);
    return Inside({0, 0, canvas.Width, canvas.Height}, x, y) ? canvas.At(x, y) : NothingPainted;
}

bool IsRed(Colour colour) {
    const int red = colour >> 16 & 0xFF, green = colour >> 8 & 0xFF, blue = colour & 0xFF;
    return red >= green + 40 && red >= blue + 40;
}

bool ColourIn(Window window, const Rect &box, Colour colour) {
    for (int y = box.Top; y < box.Bottom; ++y)
        for (int x = box.Left; x < box.Right; ++x)
            if (ColourAt(window, x, y) == colour)
                return true;
    return false;
}

std::vector<StandingImage> ImagesOn(Window window) {
    std::vector<StandingImage> all;
    for (const KeptImage &kept : CanvasOf(window).Images) {
        all.push_back(kept.Image);
        all.back().Visible = kept.Shape.PerCent();
    }
    return all;
}

int ImageAt(Window window, int x, int y) {
    int found = 0;
    for (KeptImage &kept : CanvasOf(window).Images)
        if (Inside(kept.Shape.Box, x, y) && *kept.Shape.At(x, y))
            found = kept.Image.Id;
    return found;
}

} // namespace testhost

using namespace testhost;

void FillRect(Window window, const Rect &box, Colour fill) {
    ++painted[window].Fills;
    Canvas &canvas = CanvasOf(window);
    Paint(canvas, box, fill);
    ForgetCovered(canvas);
}

void DrawPolyline(Window window, const Point *points, int count, Colour pen, int width) {
    ++painted[window].Lines;
    Canvas &canvas = CanvasOf(window);
    for (int n = 1; n < count; ++n)
        PaintLine(canvas, points[n - 1], points[n], pen, width);
    ForgetCovered(canvas);
}

void FillPolygon(Window window, const Point *points, int count, Colour fill, Colour outline) {
    ++painted[window].Shapes;
    Canvas &canvas = CanvasOf(window);
    for (int y = 0; y < canvas.Height; ++y) {
        std::vector<double> crossings; // of the edges with the middle of this row of pixels
        for (int n = 0; n < count; ++n) {
            const Point &a = points[n], &b = points[(n + 1) % count];
            const double middle = y + 0.5;
            if ((a.Y <= middle) != (b.Y <= middle))
                crossings.push_back(a.X + (middle - a.Y) * (b.X - a.X) / (b.Y - a.Y));
        }
        std::sort(crossings.begin(), crossings.end());
        for (size_t n = 1; n < crossings.size(); n += 2)
            Paint(canvas, {Clamped(std::lround(crossings[n - 1])), y, Clamped(std::lround(crossings[n])), y + 1}, fill);
    }
    for (int n = 0; n < count; ++n)
        PaintLine(canvas, points[n], points[(n + 1) % count], outline, 1);
    ForgetCovered(canvas);
}

// Without a fill the outline alone.
static void PaintEllipse(Window window, const Rect &box, const Colour *fill, Colour outline, int width) {
    ++painted[window].Shapes;
    Canvas &canvas = CanvasOf(window);
    const double middleX = (box.Left + box.Right) / 2.0, middleY = (box.Top + box.Bottom) / 2.0;
    const double halfWidth = (box.Right - box.Left) / 2.0, halfHeight = (box.Bottom - box.Top) / 2.0;
    for (int y = box.Top; y < box.Bottom; ++y) {
        const double up = (y + 0.5 - middleY) / halfHeight;
        const double across = halfWidth * std::sqrt(std::max(0.0, 1 - up * up));
        const int left = Clamped(std::lround(middleX - across)), right = Clamped(std::lround(middleX + across));
        const bool edge = y < box.Top + width || y >= box.Bottom - width;
        if (edge || fill)
            Paint(canvas, {left, y, right, y + 1}, edge ? outline : *fill);
        Paint(canvas, {left, y, left + width, y + 1}, outline);
        Paint(canvas, {right - width, y, right, y + 1}, outline);
    }
    ForgetCovered(canvas);
}

void FillEllipse(Window window, const Rect &box, Colour fill, Colour outline) {
    PaintEllipse(window, box, &fill, outline, 1);
}
void DrawEllipse(Window window, const Rect &box, Colour pen, int width) {
    PaintEllipse(window, box, nullptr, pen, width);
}

int TextWidth(const char16_t *text, Font font) {
    const auto &face = Faces[static_cast<size_t>(font)];
    int64_t width = 0;
    for (; *text; ++text)
        if (*text >= 32 && *text < 127)
            width += face.Advance[*text - 32];
        else if (*text < 0xDC00 || *text > 0xDFFF) // the second half of a pair takes no place
            width += AverageAdvance;
    return static_cast<int>((width * face.Letters + 2047) / 2048);
}

void PaintText(Window window, const char16_t *text, const Rect &box, Align align, Font font, Colour ink, int fit) {
    ++painted[window].Texts;
    Canvas &canvas = CanvasOf(window);
    const int natural = TextWidth(text, font), room = box.Right - box.Left;
    const int width = fit && natural > room ? std::max(room, 0) : natural;
    const int cell = Faces[static_cast<size_t>(font)].Cell;
    int left = box.Left;
    if (align == Align::Right || align == Align::TopRight)
        left = box.Right - width;
    else if (align == Align::Centre)
        left = box.Left + (room - width) / 2;
    const bool top = align == Align::TopLeft || align == Align::TopRight;
    const int y = top ? box.Top : box.Top + (box.Bottom - box.Top - cell) / 2;

    const Rect whole = {left, y + 1, left + width, y + cell - 1};
    const Rect window_ = canvas.Clip(box);
    const Rect seen = {std::max(whole.Left, window_.Left), std::max(whole.Top, window_.Top),
                       std::min(whole.Right, window_.Right), std::min(whole.Bottom, window_.Bottom)};
    if (seen.Left >= seen.Right || seen.Top >= seen.Bottom)
        return;
    const bool cut = seen.Right - seen.Left < width;
    const StandingText stands = {Utf8(text), box, seen, ink, font, align, width < natural, cut, 100};
    // The same words painted again at the same place are one text.
    std::erase_if(canvas.Texts, [&](const KeptText &kept) {
        const Rect &old = kept.Text.Ink;
        return kept.Text.Words == stands.Words && old.Left == seen.Left && old.Top == seen.Top &&
               old.Right == seen.Right && old.Bottom == seen.Bottom;
    });
    canvas.Texts.push_back({stands, Mask(seen)});
}

static void PutImage(Window window, const Rect &to, int image, const Rect &part, Blit blit) {
    ++painted[window].Images;
    Canvas &canvas = CanvasOf(window);
    const Rect clipped = canvas.Clip(to);
    if (clipped.Left >= clipped.Right || clipped.Top >= clipped.Bottom)
        return;
    if (blit == Blit::Plain)
        CoverAll(canvas, clipped);
    canvas.Images.push_back({{image, part, to, 100}, Mask(clipped)});
    ForgetCovered(canvas);
}

void CopyImage(Window window, Point to, int image, const Rect &part, Blit blit) {
    const Rect place = {to.X, to.Y, to.X + part.Right - part.Left, to.Y + part.Bottom - part.Top};
    PutImage(window, place, image, part, blit);
}

void StretchImage(Window window, const Rect &to, int image, const Rect &part) {
    PutImage(window, to, image, part, Blit::Plain);
}

void ShowNow() {
    ++machine.ShownNow;
}
