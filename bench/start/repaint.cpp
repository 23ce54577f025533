// A full repaint of an account's transactions on the real surface: bench_repaint [ROUNDS]
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/start.h"
#include "platform/files.h"
#include "program/door.h"
#include "state/state.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

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
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        host.Frame->resize(qRound(DeviceWidth * scale), qRound(DeviceHeight * scale));
        QApplication::processEvents();
        std::vector<double> taken;
        for (int round = 0; round < rounds; ++round) {
            state.RepaintSkip = 0; // each request is carried out
            QElapsedTimer timer;
            timer.start();
            HandleEvent({.Kind = EventKind::Paint});
            taken.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
        std::nth_element(taken.begin(), taken.begin() + rounds / 2, taken.end());
        printf("repaint at scale %g: %.2f ms (to reach: 2)\n", scale, taken[static_cast<size_t>(rounds / 2)]);
    }
    return 0;
}
