// The device's window and the program's windows in it: what the sources of this host share.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"
#include "resources/geometry.h"
#include <QImage>
#include <QWidget>

class QScrollBar;

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
