// The program on a desktop or handheld: arguments, the device root, the loop.
#include "hosts/qt/device.h"
#include "hosts/qt/signals.h"
#include "hosts/qt/start.h"
#include "hosts/qt/tour.h"
#include "platform/files.h"
#include "program/door.h"
#include "resources/key_guide.h"
#include "resources/version.h"
#include <QApplication>
#include <QDir>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr char Usage[] =
    "usage: zentrik [--root DIR] [--scale N]\n"
    "       zentrik --tour DIR\n"
    "\n"
    "  --root DIR           the device root that keeps the data (~/Zentrik)\n"
    "  --scale N            the size of a device pixel: 1, 1.5, 2, ...\n"
    "  --tour DIR           plays the program off-screen on a throw-away root and leaves pictures in DIR\n"
    "  --quit-after-paint   leaves when the first screen stands, for measuring the start\n"
    "  --help, --version    answer and leave\n";
constexpr char NoDisplay[] =
    "zentrik: no display: set DISPLAY or WAYLAND_DISPLAY to one, or see pictures of the program "
    "with 'zentrik --tour DIR'\n";
constexpr double LargestScale = 16;

struct Arguments {
    QString Root = QDir::homePath() + QStringLiteral("/Zentrik");
    QString Tour;
    double Scale = 0;
    bool Help = false, Version = false;
};

// 1, or 0 when an argument is unknown, lacks its value or has a bad one.
int ReadArguments(int count, char **words, Arguments *to) {
    for (int i = 1; i < count; ++i) {
        const char *const word = words[i];
        const char *const value = i + 1 < count ? words[i + 1] : nullptr;
        if (strcmp(word, "--help") == 0 || strcmp(word, "-h") == 0) {
            to->Help = true;
        } else if (strcmp(word, "--version") == 0) {
            to->Version = true;
        } else if (strcmp(word, "--quit-after-paint") == 0) {
            host.QuitAfterPaint = true;
        } else if (strcmp(word, "--root") == 0 && value && value[0]) {
            to->Root = QString::fromLocal8Bit(words[++i]);
        } else if (strcmp(word, "--tour") == 0 && value && value[0]) {
            to->Tour = QString::fromLocal8Bit(words[++i]);
        } else if (strcmp(word, "--scale") == 0 && value) {
            char *end;
            to->Scale = strtod(words[++i], &end);
            if (*end || !(to->Scale >= 0.5 && to->Scale <= LargestScale)) {
                fprintf(stderr, "zentrik: --scale wants a number from 0.5 to %g, not '%s'\n", LargestScale, value);
                return 0;
            }
        } else {
            fprintf(stderr, "zentrik: can't use '%s'\n%s", word, Usage);
            return 0;
        }
    }
    return 1;
}

// Words in a column, broken where a line of 100 would be too short for the next one.
void PrintWrapped(const QString &text) {
    constexpr int Left = 34, Right = 100;
    int at = Left;
    for (const QString &word : text.split(QLatin1Char(' '))) {
        const int length = static_cast<int>(word.size()) + 1;
        if (at > Left && at + length > Right) {
            printf("\n%*s", Left, "");
            at = Left;
        }
        printf(" %s", qPrintable(word));
        at += length;
    }
    printf("\n");
}

void ShowUsage() {
    fputs(Usage, stdout);
    fputs("\nKeys\n", stdout);
    for (const KeyWords &row : KeyGuide) {
        printf("  %-32s", row.Keys);
        PrintWrapped(QString::fromUtf8(row.Does));
    }
}

int DisplayNamed() {
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char *value = getenv(variable); value && value[0])
            return 1;
    return 0;
}

// The toolkit ends the process when it can't reach the display; the owner reads one line that helps. Its lesser remarks
// about the machine are not for the owner.
void TellToolkitTrouble(QtMsgType type, const QMessageLogContext &, const QString &text) {
    if (type == QtFatalMsg) {
        fputs(NoDisplay, stderr);
        _Exit(1);
    }
    if (type == QtCriticalMsg)
        fprintf(stderr, "zentrik: %s\n", qPrintable(text));
}

// Makes the root when it is missing and names it to the program. 1, or 0 with a line on the terminal.
int PrepareRoot(const QString &wanted) {
    if (!QDir().mkpath(wanted)) {
        fprintf(stderr, "zentrik: can't make the device root %s\n", qPrintable(wanted));
        return 0;
    }
    const QByteArray path = QDir(wanted).canonicalPath().toUtf8();
    if (path.size() >= PathRoom) {
        fprintf(stderr, "zentrik: the path of the device root is too long\n");
        return 0;
    }
    SetDeviceRoot(path.constData());
    return 1;
}

} // namespace

int main(int count, char **words) {
    Arguments arguments;
    if (!ReadArguments(count, words, &arguments))
        return 2;
    if (arguments.Help || arguments.Version) {
        if (arguments.Help)
            ShowUsage();
        else
            printf("zentrik %s\n", ProgramVersion);
        return 0;
    }
    qInstallMessageHandler(TellToolkitTrouble);
    if (!arguments.Tour.isEmpty())
        return PlayTour(count, words, arguments.Tour);
    if (!DisplayNamed()) {
        fputs(NoDisplay, stderr);
        return 1;
    }
    if (!PrepareRoot(arguments.Root))
        return 1;

    QApplication application(count, words);
    application.setApplicationName(QStringLiteral("Zentrik"));
    application.setDesktopFileName(QStringLiteral("zentrik"));
    PrepareHost(arguments.Scale);
    WatchSignals();
    const int started = WinMain();
    if (started < 0)
        return 0; // the copy that runs already has come to the front
    if (started == 0) {
        fputs("zentrik: the machine refused the windows\n", stderr);
        return 1;
    }
    ShowDevice();
    return host.Leaving ? 0 : QApplication::exec();
}
