// One running copy a device root. The lock is a record lock on a file in the root, so the system drops it when the
// process ends, however it ends; and the system says which process holds it, which is then woken by a signal.
#include "hosts/qt/device.h"
#include "platform/files.h"
#include "platform/shell.h"
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char LockName[] = ".zentrik-lock";
// What a desktop gives a start so that its window may come to the front. A second start leaves it in the lock file for
// the first.
constexpr char TokenVariable[] = "XDG_ACTIVATION_TOKEN";
constexpr int TokenRoom = 256;
int lockFile = -1; // stays open: closing it would drop the lock
int wakePipe[2] = {-1, -1};

void HandleWakeSignal(int) {
    const int kept = errno;
    [[maybe_unused]] const ssize_t written = write(wakePipe[1], "", 1);
    errno = kept;
}

void LeaveToken(int file) {
    const QByteArray token = qgetenv(TokenVariable);
    if (!token.isEmpty() && token.size() < TokenRoom && ftruncate(file, 0) == 0) [[maybe_unused]]
        const ssize_t written = pwrite(file, token.constData(), static_cast<size_t>(token.size()), 0);
}

void TakeToken() {
    char token[TokenRoom] = {};
    if (lockFile < 0 || pread(lockFile, token, TokenRoom - 1, 0) <= 0 || ftruncate(lockFile, 0) != 0)
        return;
    qputenv(TokenVariable, token);
}

// From here on a wake signal brings the window to the front, also one that comes before there is a window.
void ListenForWake() {
    if (wakePipe[0] >= 0 || pipe(wakePipe) != 0)
        return;
    for (const int end : wakePipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    struct sigaction action {};
    action.sa_handler = HandleWakeSignal;
    action.sa_flags = SA_RESTART;
    sigaction(SIGUSR1, &action, nullptr);
    static QSocketNotifier notifier(wakePipe[0], QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [] {
        char drained[16];
        while (read(wakePipe[0], drained, sizeof drained) > 0) {
        }
        TakeToken();
        if (!host.Frame)
            return;
        if (host.Frame->isMinimized())
            host.Frame->showNormal();
        host.Frame->raise();
        host.Frame->activateWindow();
    });
}

} // namespace

int TakeInstanceLock() {
    char path[PathRoom + sizeof LockName + 1];
    snprintf(path, sizeof path, "%s/%s", DeviceRoot(), LockName);
    const int file = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0) {
        // A root that cannot be written has nothing to guard; each failed write is told as it happens.
        return 1;
    }
    ListenForWake();
    struct flock lock {};
    do {
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        if (fcntl(file, F_SETLK, &lock) == 0) {
            lockFile = file;
            return 1;
        }
        if ((errno != EACCES && errno != EAGAIN) || fcntl(file, F_GETLK, &lock) != 0)
            return 1;                 // a file system without locks
    } while (lock.l_type == F_UNLCK); // the holder has just ended
    LeaveToken(file);
    if (lock.l_pid > 0)
        kill(lock.l_pid, SIGUSR1);
    close(file);
    return 0;
}
