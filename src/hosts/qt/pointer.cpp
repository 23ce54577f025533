// Mouse, touch and pen: each is the stylus, told to the program window that lies under it.
#include "hosts/qt/pointer.h"
#include "hosts/qt/controls.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/keys.h"
#include "program/door.h"
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <QWindow>
#include <cmath>

namespace {

// From the front to the back.
constexpr Window FrontToBack[] = {HubWindow, DialogWindow, HostWindow, ListWindow, TopWindow};
constexpr int WheelNotch = 120; // eighths of a degree

bool pointerDown;

// The program may hide the window that holds the press; the toolkit then sends what follows to nobody.
class LostPointerFilter : public QObject {
public:
    using QObject::QObject;
    QPointer<ProgramWindow> Holder;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        const bool moves = event->type() == QEvent::MouseMove, ends = event->type() == QEvent::MouseButtonRelease;
        if ((moves || ends) && pointerDown && Holder && Holder->isHidden() && watched == host.Frame->windowHandle())
            SendPointer(moves ? EventKind::PointerMove : EventKind::PointerUp,
                        static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
        return false;
    }
};

LostPointerFilter *lostPointer;

// The device pixel that covers a pixel of a widget.
int DevicePixel(int widgetPixel) {
    return static_cast<int>(std::ceil((widgetPixel + 0.5) / host.Scale)) - 1;
}

} // namespace

void SendPointer(EventKind kind, const QPoint &screen) {
    if (kind == EventKind::PointerDown || kind == EventKind::DoubleTap)
        pointerDown = true;
    else if (!pointerDown)
        return;
    if (kind == EventKind::PointerUp)
        pointerDown = false;

    const QPoint at = host.Frame->Stage->mapFromGlobal(screen);
    if (host.Frame->Stage->rect().contains(at))
        for (const Window which : FrontToBack) {
            const ProgramWindow *window = host.Windows[which];
            if (!window || window->isHidden() || !window->geometry().contains(at))
                continue;
            const bool tapsAlone = which == DialogWindow || which == TopWindow; // know no double tap
            if (kind == EventKind::DoubleTap && tapsAlone)
                kind = EventKind::PointerDown;
            Deliver({.Kind = kind,
                     .Where = which,
                     .X = DevicePixel(at.x() - window->x()),
                     .Y = DevicePixel(at.y() - window->y())});
            return;
        }
    if (kind == EventKind::PointerUp)
        Deliver({.Kind = kind, .Where = NoWindow});
}

void WatchPointer() {
    lostPointer = new LostPointerFilter(qApp);
    qApp->installEventFilter(lostPointer);
}

// Both kinds of press.
static void Press(ProgramWindow *window, const QMouseEvent &event, EventKind kind) {
    if (event.button() != Qt::LeftButton)
        return;
    lostPointer->Holder = window;
    SendPointer(kind, event.globalPosition().toPoint());
}

void ProgramWindow::mousePressEvent(QMouseEvent *event) {
    Press(this, *event, EventKind::PointerDown);
}
void ProgramWindow::mouseDoubleClickEvent(QMouseEvent *event) {
    Press(this, *event, EventKind::DoubleTap);
}

void ProgramWindow::mouseMoveEvent(QMouseEvent *event) {
    if (event->buttons() & Qt::LeftButton) {
        SendPointer(EventKind::PointerMove, event->globalPosition().toPoint());
        return;
    }
    const QPoint at = event->position().toPoint();
    if (CanDragEdge(Which, DevicePixel(at.x()), DevicePixel(at.y())))
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
}

// A pointer that rests on something painted is told what it is, and which key does the same.
bool ProgramWindow::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *const help = static_cast<QHelpEvent *>(event);
    const Hint hint = HintAt(Which, DevicePixel(help->x()), DevicePixel(help->y()));
    if (!hint.Words)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(),
                           WithKey(QString::fromUtf16(hint.Words), NameOfKey(hint.Pressed, OpenFormNumber() != 0)),
                           this);
    return true;
}

void ProgramWindow::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        SendPointer(EventKind::PointerUp, event->globalPosition().toPoint());
}

void ProgramWindow::wheelEvent(QWheelEvent *event) {
    static int turned; // less than a notch, as touch pads send it
    if (Which != ListWindow && Which != TopWindow)
        return;
    turned += event->angleDelta().y();
    const int notches = turned / WheelNotch;
    turned -= notches * WheelNotch;
    ScrollLines(-notches);
}

void ScrollLines(int lines) {
    if (!host.ListBar || host.ListBar->isHidden())
        return;
    const ScrollCode code = lines < 0 ? ScrollCode::LineUp : ScrollCode::LineDown;
    for (int left = std::abs(lines); left > 0; --left)
        Deliver({.Kind = EventKind::Scroll, .Code = static_cast<int>(code)});
}
