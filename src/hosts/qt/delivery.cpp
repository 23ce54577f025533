// The way of an event to the program: at once, after a control's own work, or when no input waits.
#include "hosts/qt/delivery.h"
#include "hosts/qt/accessible.h"
#include "hosts/qt/controls.h"
#include "hosts/qt/device.h"
#include "program/door.h"
#include <QBasicTimer>
#include <QCoreApplication>
#include <QList>

namespace {

struct Waiting {
    Event What;
    int Form; // dropped when another form is open by then; 0 for an event of no form
};

QList<Waiting> waiting;
bool giving, paintWanted;

void ShowAllPainted() {
    for (ProgramWindow *window : host.Windows)
        if (window)
            window->ShowPainted();
}

// Posts itself what a control left to be told, and works in the pauses of the input.
class Pump : public QObject {
public:
    void WakeForEvents() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    void WakeWhenIdle() {
        if (!Idle.isActive())
            Idle.start(0, this);
        Rest.start(RestMilliseconds, this);
    }

protected:
    bool event(QEvent *event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        DeliverWaiting();
        return true;
    }
    void timerEvent(QTimerEvent *event) override {
        if (giving)
            return;
        if (event->timerId() == Rest.timerId()) {
            Rest.stop();
            RestStep();
            return;
        }
        if (paintWanted) {
            DeliverPaint();
        } else if (host.Leaving || !IdleStep()) {
            Idle.stop();
        }
        ShowAllPainted();
    }

private:
    QBasicTimer Idle, Rest;
};

Pump *ThePump() {
    static Pump *pump = new Pump; // lives as long as the process: events may be posted to it until the very end
    return pump;
}

void Give(const Event &event) {
    if (host.Leaving)
        return;
    giving = true;
    HandleEvent(event);
    giving = false;
    ShowAllPainted();
    TellChanges();
    if (host.Leaving)
        QCoreApplication::exit(0);
    ThePump()->WakeWhenIdle();
}

void Keep(const Waiting &one) {
    waiting.append(one);
    ThePump()->WakeForEvents();
}

} // namespace

void Deliver(const Event &event) {
    if (giving) {
        DeliverLater(event);
        return;
    }
    DeliverWaiting();
    Give(event);
}

void DeliverLater(const Event &event) {
    Keep({event, 0});
}
void DeliverFromForm(const Event &event) {
    if (const int form = OpenFormNumber()) // what a box says while its form closes concerns no other
        Keep({event, form});
}

void DeliverWaiting() {
    while (!giving && !waiting.isEmpty()) {
        const Waiting next = waiting.takeFirst();
        if (next.Form == 0 || next.Form == OpenFormNumber())
            Give(next.What);
    }
}

void RequestPaint() {
    paintWanted = true;
    ThePump()->WakeWhenIdle();
}

void DeliverPaint() {
    if (!paintWanted || giving)
        return;
    paintWanted = false;
    Deliver({.Kind = EventKind::Paint});
}
