#include "hosts/qt/signals.h"
#include "hosts/qt/delivery.h"
#include <QApplication>
#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int told[2] = {-1, -1}; // read by the loop, written by the handler

// A handler may do little more than write a byte. When the byte finds no room, one is waiting already.
void TellLoop(int) {
    [[maybe_unused]] const ssize_t written = write(told[1], "", 1);
}

void Leave() {
    char bytes[16];
    if (read(told[0], bytes, sizeof bytes) > 0)
        Deliver({.Kind = EventKind::Close});
}

} // namespace

void WatchSignals() {
    if (told[0] >= 0 || pipe2(told, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    QObject::connect(new QSocketNotifier(told[0], QSocketNotifier::Read, qApp), &QSocketNotifier::activated, qApp,
                     Leave);
    struct sigaction action = {};
    action.sa_handler = TellLoop;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        sigaction(number, &action, nullptr);
}
