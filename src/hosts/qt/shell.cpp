// shell.h but for the command bar and the lock: the program's windows, the list's scroll bar, panel, sound, pauses,
// chance.
#include "platform/shell.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/style.h"
#include <QApplication>
#include <QInputMethod>
#include <QRandomGenerator>
#include <QScreen>
#include <QScrollBar>
#include <QThread>
#include <QWheelEvent>
#include <cstdio>

namespace {

struct WindowRow {
    Window Which;
    bool Shown;
    const char *Name; // for a screen reader
};
// From the back to the front.
constexpr WindowRow Windows[] = {
    {TopWindow, true, "Header"},   {ListWindow, true, "List"},     {HostWindow, false, "Page"},
    {DialogWindow, false, "Form"}, {HubWindow, false, "Data hub"},
};

// The list's scroll bar: tells the program what the owner does, and stands where the program puts its thumb.
class ListScrollBar : public QScrollBar {
public:
    explicit ListScrollBar(QWidget *parent) : QScrollBar(Qt::Vertical, parent) {
        setFocusPolicy(Qt::NoFocus);
        setContextMenuPolicy(Qt::NoContextMenu);
        setAccessibleName(QStringLiteral("Scroll the list"));
        connect(this, &QAbstractSlider::actionTriggered, this, &ListScrollBar::Tell);
    }

protected:
    // The list's own, so that a turn is a line over the bar too.
    void wheelEvent(QWheelEvent *event) override { QApplication::sendEvent(parentWidget(), event); }

private:
    void Tell(int action) {
        constexpr struct {
            SliderAction Action;
            ScrollCode Code;
        } Codes[] = {{SliderSingleStepSub, ScrollCode::LineUp}, {SliderSingleStepAdd, ScrollCode::LineDown},
                     {SliderPageStepSub, ScrollCode::PageUp},   {SliderPageStepAdd, ScrollCode::PageDown},
                     {SliderToMinimum, ScrollCode::Top},        {SliderToMaximum, ScrollCode::Bottom},
                     {SliderMove, ScrollCode::ThumbTrack}};
        for (const auto &row : Codes)
            if (row.Action == action)
                DeliverLater(
                    {.Kind = EventKind::Scroll, .Code = static_cast<int>(row.Code), .Position = sliderPosition()});
        if (action != SliderMove)
            setSliderPosition(value()); // only the program moves the thumb
    }
};

} // namespace

int CreateWindows() {
    if (!qApp || host.Frame)
        return 0;
    host.Frame = new Device;
    for (const WindowRow &row : Windows) {
        ProgramWindow *const window = new ProgramWindow(host.Frame->Stage, row.Which, WindowBoxes[row.Which]);
        window->setAccessibleName(QLatin1String(row.Name));
        host.Windows[row.Which] = window;
        window->setVisible(row.Shown);
    }
    host.ListBar = new ListScrollBar(host.Windows[ListWindow]);
    host.ListBar->hide();
    host.Frame->PlaceEverything();
    RequestPaint();
    return 1;
}

void ShowWindow(Window window, int on) {
    ProgramWindow *const widget = window < WindowCount ? host.Windows[window] : nullptr;
    if (!widget || widget->isHidden() == !on)
        return;
    widget->setVisible(on);
    RequestPaint();
}

int WindowShown(Window window) {
    const ProgramWindow *const widget = window < WindowCount ? host.Windows[window] : nullptr;
    return widget && !widget->isHidden();
}

void PlaceWindow(Window window, const Rect &box) {
    if ((window != HubWindow && window != HostWindow) || !host.Windows[window])
        return;
    ProgramWindow *const placed = host.Windows[window];
    const Rect &before = placed->Box;
    if (box.Right - box.Left != before.Right - before.Left || box.Bottom - box.Top != before.Bottom - before.Top)
        placed->Image = {}; // of another size: nothing is painted on it yet
    placed->Box = box;
    placed->Place();
}

void LeaveLoop() {
    host.Leaving = true;
}

void ShowScrollBar(int on) {
    if (!host.ListBar || host.ListBar->isHidden() == !on)
        return;
    host.ListBar->setVisible(on);
    if (!on)
        RequestPaint();
}

void PlaceScrollBar(const Rect &box) {
    if (!host.ListBar)
        return;
    const bool resized = box.Right - box.Left != host.ListBarBox.Right - host.ListBarBox.Left ||
                         box.Bottom - box.Top != host.ListBarBox.Bottom - host.ListBarBox.Top;
    host.ListBarBox = box;
    host.ListBar->setGeometry(WidgetBox(box));
    if (resized)
        RequestPaint();
}

void SetScrollBar(int low, int high, int page, int position) {
    if (!host.ListBar)
        return;
    host.ListBar->setRange(low, std::max(low, high));
    host.ListBar->setPageStep(std::max(1, page));
    host.ListBar->setValue(position);
}

// A panel shows itself only where the platform has one; it chooses its keys by the control's own hints.
int PanelUp() {
    return QGuiApplication::inputMethod()->isVisible();
}
void RaisePanel() {
    QGuiApplication::inputMethod()->show();
}
void LowerPanel() {
    QGuiApplication::inputMethod()->hide();
}
void PreferPanel(int) {}

void Beep(Sound) {
    QApplication::beep();
}

void Sleep(int milliseconds) {
    ShowNow();
    if (milliseconds > 0)
        QThread::msleep(static_cast<unsigned long>(milliseconds));
}

int Random(int below) {
    return below > 0 ? QRandomGenerator::global()->bounded(below) : 0;
}

void TellTerminal(const char *line) {
    fprintf(stderr, "zentrik: %s\n", line);
}
