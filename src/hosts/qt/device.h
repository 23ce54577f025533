// What the sources of this host share: the device's window, the program's windows in it, and the way events take to
// the program.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"
#include <QImage>
#include <QWidget>

class QScrollBar;

inline constexpr int DeviceWidth = 240, DeviceHeight = 320;
inline constexpr int TitleHeight = 26, BarTop = 294, BarHeight = DeviceHeight - BarTop;

// One of the program's windows: a widget that shows its persistent image.
class ProgramWindow : public QWidget {
public:
    ProgramWindow(QWidget *parent, Window which, const Rect &box);

    Window Which;
    Rect Box;      // in device pixels, from the stage's corner
    QImage Image;  // what was painted, in pixels of the screen; null until something was
    QRect Painted; // part of Image that was painted and is not shown yet

    // White at first.
    QImage *PersistentImage();
    // Takes the place of Box at the present scale; what was painted is kept, stretched until it is painted anew.
    void Place();
    void Mark(const QRect &pixels) { Painted |= pixels; }
    void ShowPainted();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};

// The window of the desktop: title bar, stage and command bar of the device, centred in it.
class Device : public QWidget {
public:
    Device();

    QWidget *Stage; // clips the program's windows to the rows between title bar and command bar
    QWidget *Bar;
    QPoint Corner; // of the device in this widget
    QString Title; // what the title bar says

    void PlaceEverything();
    // The whole screen without a frame, at the largest scale that fits; or the window as it was.
    void FillScreen(bool on);
    bool FillsScreen() const { return Filled; }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    int ClockTimer = 0;
    bool Filled = false; // a machine without a window manager does not know
    QRect Framed;        // where the window was before it filled the screen
    void WaitForMinute();
};

struct Host {
    Device *Frame;
    ProgramWindow *Windows[WindowCount];
    QScrollBar *ListBar;
    Rect ListBarBox;
    double Scale = 1;  // widget pixels in a device pixel
    double Factor = 1; // screen pixels in a device pixel
    bool Leaving;      // LeaveLoop was called
    bool QuitAfterPaint;
    bool FillsScreen; // the device is as large as the screen
};
extern Host host;

// Edges: the screen pixel, or widget pixel, at which device pixel `at` begins. Two boxes that share an edge meet there
// at every scale.
int PixelEdge(double at);
int WidgetEdge(double at);
QRect PixelBox(const Rect &box);
QRect WidgetBox(const Rect &box);

// The largest of 0.5, 1, 1.5, ... at which the device fits a screen.
double LargestScale(const QSize &screen);
// Whether a device of that size leaves no room for a window's frame, nor for anything else.
bool DeviceFillsScreen(const QSize &screen);
// The largest of 1, 1.5, 2, ... that fits with a window's frame, or without one where the device fills the screen.
double FirstScale(const QSize &screen);
void SetScale(double scale);

// Delivery. An event of the pointer or a key is given to the program at once, one of a control after the control has
// finished its own work; what waits is given first, and an event never interrupts another.
void Deliver(const Event &event);
void DeliverLater(const Event &event);
// As DeliverLater, unless the form that is open now has been closed by then.
void DeliverFromForm(const Event &event);
// Gives the events that wait.
void DeliverWaiting();
// Asks for a paint event once no input waits; however often, for one.
void RequestPaint();
// Gives the paint event that was asked for, if one was.
void DeliverPaint();

// Once, before the first press.
void WatchPointer();
// Sends what a pointer does at a point of the screen to the program window that lies there.
void SendPointer(EventKind kind, const QPoint &screen);
// The same as a press on an arrow of the list's scroll bar, `lines` times; below 0 is up.
void ScrollLines(int lines);

// The counter of forms opened: a control's event is dropped when its form is no more.
int OpenFormNumber();
void RescaleForm();
void RescaleBar();

QFont DeviceFont(Font font, double pixelsPerUnit);
// Art: a whole image of resources/art.h in pixels of the screen, and where its corner lies. Null pixels when there is
// no such image. Valid until ForgetArt or the next call.
struct ArtPixels {
    const QImage *Pixels = nullptr;
    QPoint Corner;
};
void ForgetArt();
// At the present scale, with its corner at pixel (x, y), which may lie between pixels.
ArtPixels Art(int image, double x, double y);
// Stretched so that a part of it fills a box of pixels.
ArtPixels StretchedArt(int image, const Rect &part, const QRect &box);
