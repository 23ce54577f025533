// Stylus, scroll bar and wheel: an event goes where the pointer is, in the pixels of that window.
#include "host_qt/little_program.h"
#include "hosts/qt/delivery.h"
#include <QApplication>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

using namespace little;

TEST(Pointer, ATapLandsOnTheDevicePixelUnderItAtEveryScale) {
    const struct {
        int X, Y; // of the device
        const char *Told;
    } Taps[] = {
        {0, 26, "down Top 0,0; up Top 0,0"},
        {239, 61, "down Top 239,35; up Top 239,35"},
        {0, 62, "down List 0,0; up List 0,0"},
        {120, 293, "down List 120,231; up List 120,231"},
        {17, 100, "down List 17,38; up List 17,38"},
        {100, 10, ""}, // the title bar
        {239, 319, ""},
    };
    for (const double scale : {1.0, 1.5, 2.0, 2.25, 3.0}) {
        Begin(scale);
        for (const auto &tap : Taps) {
            TapAt(tap.X, tap.Y);
            EXPECT_EQ(Told(), tap.Told) << tap.X << "," << tap.Y << " at " << scale;
        }
    }
}

TEST(Pointer, ADragIsToldToTheWindowUnderIt) {
    Begin();
    PressAt(50, 100);
    EXPECT_EQ(Told(), "down List 50,38");
    MoveTo(60, 40);
    EXPECT_EQ(Told(), "move Top 60,14");
    ShowWindow(HubWindow, 1);
    PlaceWindow(HubWindow, {20, 100, 100, 150});
    Told();
    MoveTo(30, 130);
    EXPECT_EQ(Told(), "move Hub 10,4");
    MoveTo(30, 305); // the command bar
    EXPECT_EQ(Told(), "");
    ReleaseAt(30, 305);
    EXPECT_EQ(Told(), "up None 0,0");
    MoveTo(50, 100); // nothing is held any more
    EXPECT_EQ(Told(), "");
}

TEST(Pointer, ADoubleTapIsPressReleaseDoubleReleaseButOnAFormTwoPresses) {
    Begin();
    DoubleTapAt(50, 100);
    EXPECT_EQ(Told(), "down List 50,38; up List 50,38; double List 50,38; up List 50,38");
    ShowWindow(DialogWindow, 1);
    Told();
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    DoubleTapAt(50, 100);
    EXPECT_EQ(Told(), "down Dialog 50,74; up Dialog 50,74; down Dialog 50,74; up Dialog 50,74");
}

TEST(Pointer, TheReleaseArrivesWhenThePressHidItsWindow) {
    Begin();
    ShowWindow(HostWindow, 1);
    Told();
    OnEvent = [](const Event &event) {
        if (event.Kind == EventKind::PointerDown)
            ShowWindow(HostWindow, 0);
    };
    TapAt(50, 100);
    EXPECT_EQ(Told(), "down Host 50,74; paint; up List 50,38");
}

TEST(Pointer, OtherButtonsAreNoStylus) {
    Begin();
    QTest::mouseClick(host.Frame->windowHandle(), Qt::RightButton, {}, WidgetPixel(50, 100));
    QTest::mouseClick(host.Frame->windowHandle(), Qt::MiddleButton, {}, WidgetPixel(50, 100));
    EXPECT_EQ(Told(), "");
}

static void Turn(int x, int y, int eighths) {
    const QPoint at = WidgetPixel(x, y);
    QWheelEvent wheel(at, host.Frame->mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(host.Frame->childAt(at), &wheel);
}

TEST(Pointer, WhatItRestsOnIsNamedWithItsKeyAndAnEdgeShowsThatItCanBeDragged) {
    Begin();
    const auto rest = [](Window window, const QPoint &at) {
        ProgramWindow *const widget = host.Windows[window];
        QHelpEvent event(QEvent::ToolTip, at, widget->mapToGlobal(at));
        QApplication::sendEvent(widget, &event);
        QTest::qWait(500); // what it no longer says goes after a while
        return QToolTip::isVisible() ? QToolTip::text().toStdString() : "";
    };
    EXPECT_EQ(rest(ListWindow, {20, 210}), "Transactions (Ctrl+2)");
    EXPECT_EQ(rest(TopWindow, {20, 10}), "");
    QToolTip::hideText();
    for (const auto &[x, shape] : {std::pair(105, Qt::SplitHCursor), {120, Qt::ArrowCursor}}) {
        MoveTo(x, 26 + 25);
        Settle();
        EXPECT_EQ(host.Windows[TopWindow]->cursor().shape(), shape) << x;
    }
    EXPECT_EQ(Told(), ""); // a pointer that is not down tells nothing
}

TEST(Scrolling, TheWheelIsLineUpAndLineDownWhereTheListIs) {
    Begin();
    Turn(50, 100, -120);
    EXPECT_EQ(Told(), ""); // no scroll bar: nothing to scroll
    PlaceScrollBar({226, 0, 240, 205});
    ShowScrollBar(1);
    SetScrollBar(1, 40, 12, 5);
    Told();
    Turn(50, 100, -240);
    EXPECT_EQ(Told(), "scroll LineDown; scroll LineDown");
    Turn(232, 150, 120); // over the scroll bar itself
    EXPECT_EQ(Told(), "scroll LineUp");
    Turn(50, 100, 60);
    Turn(50, 100, 60);
    EXPECT_EQ(Told(), "scroll LineUp");
    ShowWindow(DialogWindow, 1);
    Told();
    Turn(50, 100, -120);
    EXPECT_EQ(Told(), "");
}

TEST(Scrolling, TheBarTellsWhatTheOwnerDoesAndStandsWhereTheProgramPutsIt) {
    Begin();
    PlaceScrollBar({226, 0, 240, 205});
    ShowScrollBar(1);
    SetScrollBar(1, 31, 12, 5);
    Told();
    const struct {
        int Y; // of the device
        const char *Told;
    } Presses[] = {{65, "scroll LineUp"}, {262, "scroll LineDown"}, {240, "scroll PageDown"}, {78, "scroll PageUp"}};
    for (const auto &press : Presses) {
        TapAt(233, press.Y);
        EXPECT_EQ(Told(), press.Told);
        EXPECT_EQ(host.ListBar->value(), 5) << press.Told; // the program has not moved it
    }
    OnEvent = [](const Event &event) {
        if (event.Kind == EventKind::Scroll)
            SetScrollBar(1, 31, 12, event.Position);
    };
    PressAt(233, 110); // the thumb
    MoveTo(233, 300);
    EXPECT_EQ(Told(), "scroll ThumbTrack 31");
    ReleaseAt(233, 300);
    EXPECT_EQ(host.ListBar->value(), 31);
    SetScrollBar(1, 0, 12, 1); // fewer rows than the window
    EXPECT_EQ(host.ListBar->maximum(), 1);
    EXPECT_EQ(Told(), "");
}

TEST(Delivery, AnEventNeverInterruptsAnother) {
    Begin();
    int depth = 0, deepest = 0;
    OnEvent = [&](const Event &event) {
        deepest = std::max(deepest, ++depth);
        if (event.Kind == EventKind::PointerDown)
            Deliver({.Kind = EventKind::Command, .Code = 5});
        --depth;
    };
    TapAt(50, 100);
    EXPECT_EQ(Told(), "down List 50,38; command 5; up List 50,38");
    EXPECT_EQ(deepest, 1);
}

TEST(Delivery, TheCloseButtonAsksTheProgram) {
    Begin();
    host.Frame->close();
    EXPECT_EQ(Told(), "close");
    EXPECT_TRUE(host.Frame->isVisible());
}
