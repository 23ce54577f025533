// A full repaint of an account's transactions, and a step of an extrapolation's date, on the real surface:
// bench_repaint [ROUNDS]
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/start.h"
#include "platform/files.h"
#include "program/door.h"
#include "resources/geometry.h"
#include "state/state.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

// The median of what one event takes at each scale.
static void Measure(const char *what, const Event &event, int rounds, int toReach) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        host.Frame->resize(qRound(ScreenWidth * scale), qRound(ScreenHeight * scale));
        QApplication::processEvents();
        std::vector<double> taken;
        for (int round = 0; round < rounds; ++round) {
            state.RepaintSkip = 0; // each request is carried out
            QElapsedTimer timer;
            timer.start();
            HandleEvent(event);
            taken.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
        std::nth_element(taken.begin(), taken.begin() + rounds / 2, taken.end());
        printf("%s at scale %g: %.2f ms (to reach: %d)\n", what, scale, taken[static_cast<size_t>(rounds / 2)],
               toReach);
    }
}

static void Press(Window window, int x, int y) {
    HandleEvent({.Kind = EventKind::PointerDown, .Where = window, .X = x, .Y = y});
    HandleEvent({.Kind = EventKind::PointerUp, .Where = window, .X = x, .Y = y});
}

int main(int count, char **words) {
    const int rounds = count > 1 ? std::max(1, atoi(words[1])) : 201;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    QTemporaryDir root;
    SetDeviceRoot(root.path().toUtf8().constData());
    PrepareHost(1);
    if (WinMain() != 1)
        return 1;
    HandleEvent({.Kind = EventKind::Key, .Code = static_cast<int>(Key::Escape)}); // the front page
    ShowDevice();
    Deliver({.Kind = EventKind::Key, .Code = static_cast<int>(Key::Enter)}); // opens the first account
    if (state.CurrentScreen != TransactionList)
        return 1;
    Measure("repaint", {.Kind = EventKind::Paint}, rounds, 2);
    Deliver({.Kind = EventKind::Key, .Code = static_cast<int>(Key::Tab3)});
    Press(TopWindow, 53, 25); // extrapolation
    Press(ListWindow, 165, 10);
    Measure("a box step", {.Kind = EventKind::Key, .Code = static_cast<int>(Key::Up)}, rounds, 5);
    return 0;
}
