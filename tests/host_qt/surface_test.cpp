// Painting: crisp at every scale, nothing left behind, nothing lost.
#include "host_qt/little_program.h"
#include "hosts/qt/delivery.h"
#include "resources/art.h"
#include "resources/messages.h"
#include <QScreen>
#include <set>

using namespace little;

static constexpr double Scales[] = {1, 1.5, 2, 2.25, 3};

static std::set<QRgb> ColoursOf(Window window, const Rect &box) {
    std::set<QRgb> colours;
    const QImage part = host.Windows[window]->PersistentImage()->copy(PixelBox(box));
    for (int y = 0; y < part.height(); ++y)
        for (int x = 0; x < part.width(); ++x)
            colours.insert(part.pixel(x, y) & 0xffffff);
    return colours;
}

TEST(Surface, NeighboursMeetWithoutAGapAndPaintingOverLeavesNothing) {
    for (const double scale : Scales) {
        SCOPED_TRACE(scale);
        Begin(scale);
        for (int row = 0; row < 15; ++row)
            for (int column = 0; column < 48; ++column)
                FillRect(ListWindow, {column * 5, row * 17, column * 5 + 5, row * 17 + 17},
                         (row + column) % 2 ? 0x0000ff : 0xff0000);
        EXPECT_EQ(ColoursOf(ListWindow, {0, 0, 240, 255}), (std::set<QRgb>{0x0000ff, 0xff0000}));

        const Point bevel[] = {{7, 3}, {91, 3}, {91, 20}, {7, 20}, {7, 3}};
        DrawPolyline(ListWindow, bevel, 5, 0x00ff00);
        EXPECT_EQ(ColoursOf(ListWindow, {7, 3, 92, 4}), (std::set<QRgb>{0x00ff00}));
        EXPECT_EQ(ColoursOf(ListWindow, {91, 3, 92, 21}), (std::set<QRgb>{0x00ff00}));
        EXPECT_EQ(ColoursOf(ListWindow, {8, 4, 91, 20}), (std::set<QRgb>{0x0000ff, 0xff0000}));
        PaintText(ListWindow, u"Wjg 12,345.67", {100, 30, 160, 47}, Align::Right, Font::Bold, 0);
        EXPECT_FALSE(ColoursOf(ListWindow, {0, 17, 100, 255}).contains(0));
        FillRect(ListWindow, {0, 0, 240, 262}, 0xffffff);
        EXPECT_EQ(ColoursOf(ListWindow, {0, 0, 240, 262}), (std::set<QRgb>{0xffffff}));
    }
}

// Where in a box, in device pixels from its left and right edge, something dark stands.
static std::pair<double, double> InkMargins(const Rect &box) {
    const QImage part = host.Windows[ListWindow]->PersistentImage()->copy(PixelBox(box));
    int left = part.width(), right = -1;
    for (int y = 0; y < part.height(); ++y)
        for (int x = 0; x < part.width(); ++x)
            if (qGray(part.pixel(x, y)) < 128) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    return {left / host.Factor, (part.width() - 1 - right) / host.Factor};
}

TEST(Surface, AmountsAreNeverCutAndTextStandsWhereItIsAligned) {
    for (const double scale : Scales) {
        SCOPED_TRACE(scale);
        Begin(scale);
        const Rect cell = {10, 10, 60, 27};
        PaintText(ListWindow, u"100,000,000.00", cell, Align::Right, Font::Bold, 0, 1);
        const auto [left, right] = InkMargins(cell);
        EXPECT_TRUE(left > 0 && left < 3) << left;
        EXPECT_TRUE(right >= 0 && right < 3) << right;

        for (const auto &[align, least, most] :
             {std::tuple(Align::Left, 0, 3), {Align::Centre, 80, 110}, {Align::Right, 170, 200}}) {
            FillRect(ListWindow, {0, 0, 240, 262}, 0xffffff);
            PaintText(ListWindow, u"HHH", {10, 50, 210, 67}, align, Font::Normal, 0);
            const double at = InkMargins({10, 50, 210, 67}).first;
            EXPECT_TRUE(at >= least && at <= most) << at;
        }
        const auto inkOf = [](Align align) { // no letter loses a part, not even the J's hook
            FillRect(ListWindow, {0, 0, 240, 262}, 0xffffff);
            PaintText(ListWindow, u"Jeopardy", {10, 50, 210, 67}, align, Font::Bold, 0);
            const QImage &image = *host.Windows[ListWindow]->PersistentImage();
            int ink = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    ink += 255 - qGray(image.pixel(x, y));
            return ink;
        };
        EXPECT_EQ(inkOf(Align::Left), inkOf(Align::Centre));
    }
}

TEST(Surface, EveryMessageFitsIntoTheMessageWindow) {
    for (const double scale : Scales) {
        Begin(scale);
        for (const auto &message : Messages)
            EXPECT_LE(TextWidth(message.Text, Font::Bold), 236) << message.Id << " at " << scale;
    }
}

TEST(Surface, EveryPictureIsThereAndAPartPaintedAgainChangesNothing) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        Begin(scale);
        for (const Image &image : Images) {
            FillRect(HostWindow, {0, 0, 240, 394}, 0xfedcba);
            CopyImage(HostWindow, {0, 0}, image.Id, {0, 0, std::min(240, image.Width), image.Height});
            EXPECT_GT(ColoursOf(HostWindow, {0, 0, 240, 394}).size(), 1u) << image.Id;
        }
        CopyImage(DialogWindow, {0, 0}, FormGround, {0, 0, 240, 268});
        const QImage whole = *host.Windows[DialogWindow]->PersistentImage();
        CopyImage(DialogWindow, {23, 67}, FormGround, {23, 67, 38, 81});
        EXPECT_TRUE(whole == *host.Windows[DialogWindow]->PersistentImage());
    }
    CopyImage(HostWindow, {0, 0}, 9999, {0, 0, 10, 10}); // no such image: nothing is painted
}

TEST(Surface, PaintingOutsideAWindowOrWithNothingToPaintIsHarmless) {
    Begin(2);
    FillRect(ListWindow, {-50, -50, 500, 500}, 0x112233);
    FillRect(ListWindow, {20, 20, 10, 10}, 0);
    FillRect(NoWindow, {0, 0, 10, 10}, 0);
    const Point far[] = {{-100, -100}, {1000, 900}};
    DrawPolyline(ListWindow, far, 2, 0x445566, 2);
    DrawPolyline(ListWindow, far, 0, 0);
    FillPolygon(ListWindow, far, 0, 0, 0);
    FillEllipse(ListWindow, {300, 300, 400, 400}, 0, 0);
    PaintText(ListWindow, nullptr, {0, 0, 50, 17}, Align::Left, Font::Normal, 0);
    PaintText(ListWindow, u"x", {50, 0, 50, 17}, Align::Left, Font::Normal, 0, 1);
    EXPECT_TRUE(ColoursOf(ListWindow, {0, 0, 240, 262}).contains(0x445566));
    EXPECT_FALSE(ColoursOf(ListWindow, {0, 0, 240, 262}).contains(0));
}

// Slanted lines: pixel for pixel where pixels are large, smooth from 1.5 on.
TEST(Surface, SlantedLinesAreExactAtScaleOneAndSmoothFromOneAndAHalf) {
    const Point curve[] = {{10, 10}, {20, 15}, {23, 30}, {15, 30}};
    const Point shape[] = {{60, 10}, {80, 14}, {80, 24}, {60, 20}};
    for (const double scale : Scales) {
        SCOPED_TRACE(scale);
        Begin(scale);
        FillRect(ListWindow, {0, 0, 240, 262}, 0xffffff);
        DrawPolyline(ListWindow, curve, 4, 0);
        EXPECT_EQ(ColoursOf(ListWindow, {5, 5, 30, 35}).size() > 2, scale >= 1.5);
        FillPolygon(ListWindow, shape, 4, 0, 0);
        FillEllipse(ListWindow, {100, 10, 120, 30}, 0, 0);
        EXPECT_EQ(ColoursOf(ListWindow, {50, 5, 130, 35}).size() > 2, scale >= 1.5);
    }
    Begin(1);
    FillRect(ListWindow, {0, 0, 240, 262}, 0xffffff);
    DrawPolyline(ListWindow, curve, 3, 0);
    const QImage &image = *host.Windows[ListWindow]->PersistentImage();
    int black = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            black += (image.pixel(x, y) & 0xffffff) == 0;
    EXPECT_EQ(black, 11 + 15); // one in each column, then one in each row
    for (const Point &on : {Point{10, 10}, {12, 11}, {14, 12}, {20, 15}, {21, 20}, {23, 30}})
        EXPECT_EQ(image.pixel(on.X, on.Y) & 0xffffff, 0u) << on.X << ", " << on.Y;
    const Point away[] = {{-2000000000, 7}, {2000000000, 250}, {5, -2000000000}};
    DrawPolyline(ListWindow, away, 3, 0x445566); // as far as numbers go, and at once
    EXPECT_TRUE(ColoursOf(ListWindow, {0, 0, 240, 262}).contains(0x445566));
}

TEST(Surface, ShowNowShowsWithoutTakingInput) {
    Begin();
    FillRect(ListWindow, {0, 0, 240, 262}, 0x336699);
    QCoreApplication::postEvent(host.Frame, new QCloseEvent); // input that waits
    ShowNow();
    EXPECT_TRUE(host.Windows[ListWindow]->Painted.isEmpty());
    EXPECT_EQ(host.Frame->grab().toImage().pixel(WidgetPixel(120, 150)) & 0xffffff, 0x336699u);
    EXPECT_EQ(Told(), "close");
}

TEST(Windows, KeepWhatWasPaintedWhileTheyAreCoveredAndWhileTheScaleChanges) {
    Begin();
    FillRect(TopWindow, {0, 0, 240, 36}, 0x00279f);
    ShowWindow(HostWindow, 1);
    FillRect(HostWindow, {0, 0, 240, 394}, 0xff0000);
    EXPECT_EQ(host.Frame->grab().toImage().pixel(WidgetPixel(5, 30)) & 0xffffff, 0xff0000u);
    EXPECT_EQ(Told(), "paint");
    ShowWindow(HostWindow, 0);
    EXPECT_EQ(host.Frame->grab().toImage().pixel(WidgetPixel(5, 30)) & 0xffffff, 0x00279fu);
    EXPECT_EQ(Told(), "paint");

    host.Frame->resize(600, 640); // wider than the device: it stands in the middle
    EXPECT_EQ(Told(), "paint");
    EXPECT_EQ(host.Scale, 2);
    EXPECT_EQ(host.Frame->Corner, QPoint(60, 0));
    EXPECT_EQ(host.Frame->grab().toImage().pixel(WidgetPixel(5, 30)) & 0xffffff, 0x00279fu);
    host.Frame->resize(700, 640); // the scale stays: nothing to paint
    EXPECT_EQ(Told(), "");
}

TEST(Windows, AskForPaintOnceAndAfterTheInputThatWaits) {
    Begin();
    PlaceScrollBar({226, 0, 240, 205});
    ShowScrollBar(1);
    Told();
    const struct {
        const char *What;
        void (*Do)();
        const char *Told;
    } Cases[] = {
        {"a window shown and another", [] { ShowWindow(HostWindow, 1), ShowWindow(HubWindow, 1); }, "paint"},
        {"shown twice", [] { ShowWindow(HostWindow, 1); }, ""},
        {"hidden", [] { ShowWindow(HostWindow, 0), ShowWindow(HubWindow, 0); }, "paint"},
        {"the bar moved",
         [] {
             PlaceScrollBar({225, 0, 239, 205});
         },
         ""},
        {"the bar resized",
         [] {
             PlaceScrollBar({226, 0, 240, 120});
         },
         "paint"},
        {"the bar hidden", [] { ShowScrollBar(0); }, "paint"},
        {"the bar shown", [] { ShowScrollBar(1); }, ""},
        {"input waits", [] { ShowWindow(HubWindow, 1), DeliverLater({.Kind = EventKind::Command, .Code = 7}); },
         "command 7; paint"},
    };
    for (const auto &one : Cases) {
        one.Do();
        EXPECT_EQ(Told(), one.Told) << one.What;
    }
    IdleStepsWanted = 5;
    DeliverLater({.Kind = EventKind::Command, .Code = 8});
    EXPECT_EQ(Told(), "command 8");
    QTest::qWait(20);
    EXPECT_EQ(IdleStepsDone, 5);
}

TEST(Windows, TheFirstScaleFillsTheScreenToTheLastHalfStep) {
    const struct {
        int Width, Height;
        double Scale;
        bool Fills; // no frame
    } screens[] = {
        {1920, 1080, 3, false}, {1366, 768, 2, false}, {3840, 2160, 6.5, false}, {1280, 960, 2.5, false},
        {240, 320, 1, true},    {480, 640, 2, true},   {480, 800, 2, false},     {800, 600, 1.5, false},
        {300, 2000, 1, false},  {100, 100, 1, true},
    };
    for (const auto &screen : screens) {
        const QSize size(screen.Width, screen.Height);
        EXPECT_EQ(FirstScale(size), screen.Scale) << screen.Width << "x" << screen.Height;
        EXPECT_EQ(DeviceFillsScreen(size), screen.Fills) << screen.Width << "x" << screen.Height;
    }
}

TEST(Windows, F11IsTheWholeScreenAndBack) {
    Begin();
    const QRect before = host.Frame->geometry();
    const QSize screen = host.Frame->screen()->size();
    PressKey(Qt::Key_F11);
    EXPECT_EQ(host.Frame->size(), screen);
    EXPECT_DOUBLE_EQ(host.Scale, std::min(screen.width() / 240.0, screen.height() / 320.0));
    TapAt(17, 100); // the stylus still lands where it points
    EXPECT_EQ(Told(), "paint; down List 17,38; up List 17,38");
    PressKey(Qt::Key_F11);
    EXPECT_EQ(host.Frame->geometry(), before);
    EXPECT_EQ(host.Scale, 1);
}
