// The tour is a table of what an owner does and what is to be seen then. It is played once for each scale on a root of
// its own; a sitting is one run of the program, in a process of its own, so that what the next one shows came from the
// files.
#include "hosts/qt/tour.h"
#include "hosts/qt/device.h"
#include "hosts/qt/start.h"
#include "platform/files.h"
#include "program/door.h"
#include "records/records.h"
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum class Act : uint8_t { Tap, DoubleTap, Drag, Type, Key, Wait, Picture, Restart };

struct Step {
    Act What;
    int X, Y, ToX, ToY; // of the device; for a key X is the Qt key and Y its modifiers; to wait X milliseconds
    const char *Text;   // to type; the name of a picture
};

constexpr Step Tap(int x, int y) {
    return {Act::Tap, x, y, 0, 0, nullptr};
}
constexpr Step DoubleTap(int x, int y) {
    return {Act::DoubleTap, x, y, 0, 0, nullptr};
}
constexpr Step Drag(int x, int y, int toX, int toY) {
    return {Act::Drag, x, y, toX, toY, nullptr};
}
constexpr Step Type(const char *text) {
    return {Act::Type, 0, 0, 0, 0, text};
}
constexpr Step Press(int key, int modifiers = Qt::NoModifier) {
    return {Act::Key, key, modifiers, 0, 0, nullptr};
}
// A screen by its number, as the key of that digit shows it.
constexpr Step Show(int screen) {
    return Press(Qt::Key_0 + screen, Qt::ControlModifier);
}
constexpr Step Picture(const char *name) {
    return {Act::Picture, 0, 0, 0, 0, name};
}
constexpr Step Wait(int milliseconds) {
    return {Act::Wait, milliseconds, 0, 0, 0, nullptr};
}
constexpr Step Restart() {
    return {Act::Restart, 0, 0, 0, 0, nullptr};
}

// Places of the device.
constexpr int RowY(int row) {
    return 62 + (row - 1) * 17 + 9;
}
constexpr int TabX(int slot) {
    return (slot - 1) * 37 + 20;
}
constexpr int LowTabY = 280, BarY = 307, HubButtonX = 125, HubY = 215;
constexpr int IconY = 52, PlotY = 62, BarX = 73, PieX = 93, GroupY = 72, OrderY = 89; // of the graph screen

// clang-format off
constexpr Step Steps[] = {
    Wait(4000), Picture("front-page"), Tap(120, 120),
    Picture("first-screen"),
    Tap(50, RowY(1)), Picture("help"),
    DoubleTap(50, RowY(1)), Picture("transactions"),
    Press(Qt::Key_F1), Picture("without-help"),
    Press(Qt::Key_F, Qt::ControlModifier), Type("visa"), Picture("search"), Press(Qt::Key_Escape),
    Press(Qt::Key_F12), Picture("keys"), Press(Qt::Key_Escape),
    DoubleTap(60, RowY(9)), Picture("new-entry"),
    Press(Qt::Key_Down), Picture("calendar"), Press(Qt::Key_Escape),
    Press(Qt::Key_Tab), Press(Qt::Key_Down), Picture("list"), Press(Qt::Key_Escape),
    Tap(100, 79), Type("Bakery"), Tap(45, 101), Type("12.50"), Picture("new-entry-filled"),
    Press(Qt::Key_Return, Qt::ControlModifier), Picture("entry-in-its-place"),
    Drag(60, RowY(4), 130, RowY(4)), Picture("reconciled"),
    DoubleTap(60, RowY(4)), Picture("entry"), Press(Qt::Key_Escape),
    Press(Qt::Key_F10), Picture("menu"), Press(Qt::Key_Escape),
    Tap(TabX(1), LowTabY), Picture("accounts"),
    DoubleTap(50, RowY(6)), Picture("new-account"), Press(Qt::Key_Escape),
    Tap(TabX(4), LowTabY), Picture("recurring"),
    Press(Qt::Key_N, Qt::ControlModifier), Picture("new-recurring"),
    Press(Qt::Key_F9), Picture("new-recurring-then"), Press(Qt::Key_Escape),
    Tap(TabX(5), LowTabY), Picture("templates"),
    DoubleTap(50, RowY(1)), Picture("template"), Press(Qt::Key_Escape),
    Tap(TabX(6), LowTabY), Picture("bin"),
    Press(Qt::Key_F10), Type("e"), Picture("question"), Press(Qt::Key_Escape),
    Show(CategoryList), Picture("categories"),
    DoubleTap(100, RowY(1)), Picture("category"),
    Tap(120, 98), Picture("palette"), Tap(41, 127), Tap(180, 145), Tap(210, 70), Picture("palette-mixed"),
    Tap(160, 195), Press(Qt::Key_F1), Picture("palette-with-help"), Tap(160, 195), Press(Qt::Key_F1),
    Press(Qt::Key_Return), Picture("category-recoloured"), Press(Qt::Key_Escape),
    Show(ConversionList), Picture("conversions"),
    DoubleTap(50, RowY(1)), Picture("conversion"), Press(Qt::Key_Escape),
    Press(Qt::Key_F10), Press(Qt::Key_Return), Picture("notepad"), Press(Qt::Key_Escape),
    Press(Qt::Key_F10), Press(Qt::Key_Down), Press(Qt::Key_Right), Press(Qt::Key_Return), Picture("settings"),
    Press(Qt::Key_Escape),
    Press(Qt::Key_F10), Press(Qt::Key_Down), Press(Qt::Key_Down), Press(Qt::Key_Right), Press(Qt::Key_Return), Type("12"),
    Picture("pass-code"), Press(Qt::Key_F2), Picture("long-pass-code"), Press(Qt::Key_Escape),
    Press(Qt::Key_F10), Press(Qt::Key_Right), Type("b"), Picture("backup"), Press(Qt::Key_Escape),
    Show(GraphList), Press(Qt::Key_Right), Picture("graph"), Tap(97, PlotY + 52), Picture("graph-point"),
    Tap(33, IconY), Picture("regression"),
    Tap(53, IconY), Picture("extrapolation"), Tap(83, PlotY + 12), Tap(189, PlotY + 12), Tap(130, PlotY + 12),
    Tap(150, PlotY + 90), Picture("extrapolation-changed"), Tap(13, IconY),
    Press(Qt::Key_Left),
    Tap(200, 33), Tap(PieX, IconY), Picture("pie"), Tap(110, 190), Picture("pie-segment"), Tap(190, GroupY), Picture("pie-groups"),
    Tap(190, GroupY + 30), Tap(190, OrderY), Picture("pie-orders"), Tap(170, OrderY + 58),
    Picture("pie-by-category"), Press(Qt::Key_F1), Picture("pie-with-help"),
    Tap(BarX, IconY), Picture("bars-with-help"), Press(Qt::Key_F1), Picture("bars"),
    Tap(190, GroupY), Tap(190, GroupY + 58), Tap(40, 88), Picture("bars-by-month"),
    Drag(100, 150, 60, 150), Picture("bars-stretched"), Drag(60, 150, 100, 150),
    Tap(190, GroupY), Tap(190, GroupY + 100), Picture("debits-and-credits"),
    Press(Qt::Key_F1), Picture("debits-and-credits-with-help"), Press(Qt::Key_F1), Tap(13, IconY),
    Show(TransactionList), Tap(60, RowY(2)), Tap(HubButtonX, BarY), Tap(98, HubY + 22), Picture("hub"),
    Tap(HubButtonX, BarY), Picture("calculator"),
    Tap(109, 139), Tap(165, 233), Tap(122, 259), Tap(205, 139), Picture("calculated"),
    Tap(35, 228), DoubleTap(50, RowY(1)), Picture("picked-rate"),
    Tap(35, 228), Picture("pick-a-rate"), Press(Qt::Key_Escape),
    DoubleTap(60, RowY(9)), Tap(HubButtonX, BarY), Tap(45, 101), Tap(130, HubY + 65), Tap(160, HubY + 65),
    Picture("hub-types-into-a-form"), Press(Qt::Key_Escape), Press(Qt::Key_Escape),
    Show(TransactionList), DoubleTap(60, RowY(9)), Tap(215, 198), Picture("new-entry-advanced"), Press(Qt::Key_Escape),
    Drag(60, RowY(9), 130, RowY(9)), Picture("new-reconcile"), Press(Qt::Key_Escape),
    Press(Qt::Key_F10), Press(Qt::Key_Right), Press(Qt::Key_Down), Press(Qt::Key_Return), Picture("export"),
    Press(Qt::Key_Return, Qt::ControlModifier), Press(Qt::Key_F1),
    Press(Qt::Key_F10), Press(Qt::Key_Right), Press(Qt::Key_Down), Press(Qt::Key_Down), Press(Qt::Key_Return),
    Picture("import"), Tap(110, 61), Press(Qt::Key_Down), Press(Qt::Key_Down), Press(Qt::Key_Return),
    Press(Qt::Key_F2), Picture("import-of-the-export"), Press(Qt::Key_Return, Qt::ControlModifier), Picture("imported"),
    Press(Qt::Key_Z, Qt::ControlModifier), Picture("taken-back"), Press(Qt::Key_F1),
    Tap(60, RowY(2)), Press(Qt::Key_F10), Press(Qt::Key_Right), Press(Qt::Key_Down), Press(Qt::Key_Down),
    Press(Qt::Key_Down), Press(Qt::Key_Down), Press(Qt::Key_Down), Press(Qt::Key_Right), Picture("archive-menu"),
    Press(Qt::Key_Return), Picture("archived"),
    Tap(120, 33), Picture("archive-view"),
    Show(AccountList), Picture("archives"), Tap(120, 33),
    Show(TransactionList), Tap(60, RowY(3)), Press(Qt::Key_F10), Press(Qt::Key_Down), Press(Qt::Key_Down),
    Press(Qt::Key_Down), Press(Qt::Key_Down), Press(Qt::Key_Right), Press(Qt::Key_Right), Picture("filter-menu"),
    Press(Qt::Key_Return), Picture("filtered"),
    Press(Qt::Key_F1), Picture("filtered-with-help"),
    Show(AccountList), Picture("accounts-with-help"),
    Show(GraphList), Press(Qt::Key_Right), Picture("graph-with-help"),
    Tap(53, IconY), Tap(150, PlotY + 60), Picture("extrapolation-with-help"),
    Tap(33, IconY), Press(Qt::Key_Up), Picture("regression-with-help"), Press(Qt::Key_Left),
    Show(RecurringList), Picture("recurring-with-help"),
    Show(TemplateList), Picture("templates-with-help"),
    Show(BinList), Picture("bin-with-help"),
    Show(CategoryList), Picture("categories-with-help"),
    Show(ConversionList), Picture("conversions-with-help"),
    Press(Qt::Key_F10), Press(Qt::Key_Right), Press(Qt::Key_Return), Wait(1500), Picture("about"), Press(Qt::Key_Escape),
    Restart(),
    Press(Qt::Key_Escape), Picture("accounts-after-restart"),
    DoubleTap(50, RowY(1)), Picture("transactions-after-restart"),
};
// clang-format on

void Settle(int milliseconds = 30) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

// --- The owner's hand: events as the window system gives them, to the widget that it would give them to.

QWidget *pressed; // gets what follows a press until the release

void Mouse(QEvent::Type type, int x, int y) {
    const QPoint inFrame = host.Frame->Corner + QPoint(WidgetEdge(x + 0.5), WidgetEdge(y + 0.5));
    const QPoint screen = host.Frame->mapToGlobal(inFrame);
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
        QWidget *const popup = QApplication::activePopupWidget();
        QWidget *const window = popup ? popup : host.Frame;
        pressed = window->childAt(window->mapFromGlobal(screen));
        if (!pressed)
            pressed = window;
        if (pressed->focusPolicy() & Qt::ClickFocus)
            pressed->setFocus(Qt::MouseFocusReason);
    }
    const bool moves = type == QEvent::MouseMove, ends = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, pressed->mapFromGlobal(screen), screen, moves ? Qt::NoButton : Qt::LeftButton,
                      ends ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pressed, &event);
}

void PressAndRelease(QEvent::Type press, int x, int y) {
    Mouse(press, x, y);
    Mouse(QEvent::MouseButtonRelease, x, y);
    Settle();
}

void DragFromTo(const Step &step) {
    constexpr int Moves = 8;
    Mouse(QEvent::MouseButtonPress, step.X, step.Y);
    for (int i = 1; i <= Moves; ++i)
        Mouse(QEvent::MouseMove, step.X + (step.ToX - step.X) * i / Moves, step.Y + (step.ToY - step.Y) * i / Moves);
    Mouse(QEvent::MouseButtonRelease, step.ToX, step.ToY);
    Settle();
}

void Stroke(int key, Qt::KeyboardModifiers modifiers, const QString &text) {
    QWidget *window = QApplication::activePopupWidget();
    window = window ? window : host.Frame;
    QWidget *const target = window->focusWidget() ? window->focusWidget() : window;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(target, &event);
    }
    Settle();
}

void TypeText(const char *text) {
    for (; *text; ++text)
        Stroke(QChar::fromLatin1(*text).toUpper().unicode(), Qt::NoModifier, QString(QLatin1Char(*text)));
}

// What stands on the screen now, menus and lists that are open included, also where they reach out of the device.
int SavePicture(const QString &path) {
    QList<QWidget *> windows = {host.Frame};
    QRect whole = host.Frame->geometry();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != host.Frame && window->isVisible()) {
            windows.append(window);
            whole |= window->geometry();
        }
    QPixmap picture(whole.size());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (QWidget *window : windows)
        painter.drawPixmap(window->geometry().topLeft() - whole.topLeft(), window->grab());
    painter.end();
    if (!picture.save(path)) {
        fprintf(stderr, "zentrik: can't write the picture %s\n", qPrintable(path));
        return 0;
    }
    printf("%s\n", qPrintable(path));
    return 1;
}

struct Play {
    QString Directory;
    double Scale;
};

// Plays from one step to the next restart in this process.
int PlaySitting(int count, char **words, const Play &play, const Step *first, const Step *end, int picturesBefore) {
    QApplication application(count, words);
    application.setCursorFlashTime(0);
    PrepareHost(play.Scale);
    if (WinMain() != 1)
        return 0;
    ShowDevice();
    Settle();
    int pictures = picturesBefore;
    for (const Step *step = first; step != end; ++step)
        switch (step->What) {
        case Act::Tap:
            PressAndRelease(QEvent::MouseButtonPress, step->X, step->Y);
            break;
        case Act::DoubleTap:
            PressAndRelease(QEvent::MouseButtonPress, step->X, step->Y);
            PressAndRelease(QEvent::MouseButtonDblClick, step->X, step->Y);
            break;
        case Act::Drag:
            DragFromTo(*step);
            break;
        case Act::Type:
            TypeText(step->Text);
            break;
        case Act::Key:
            Stroke(step->X, static_cast<Qt::KeyboardModifiers>(step->Y), QString());
            break;
        case Act::Wait:
            Settle(step->X);
            break;
        case Act::Picture:
            Settle();
            if (!SavePicture(QStringLiteral("%1/%2-%3-x%4.png")
                                 .arg(play.Directory)
                                 .arg(++pictures, 2, 10, QLatin1Char('0'))
                                 .arg(QLatin1String(step->Text))
                                 .arg(play.Scale)))
                return 0;
            break;
        case Act::Restart:
            break;
        }
    host.Frame->close();
    Settle();
    return host.Leaving;
}

// 1 when the sitting came to its end in a process of its own.
int InOwnProcess(int (*sitting)(void *), void *context) {
    fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const int done = sitting(context);
        fflush(stdout);
        _exit(done ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

int PlayTour(int count, char **words, const QString &directory) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!QDir().mkpath(directory)) {
        fprintf(stderr, "zentrik: can't make the directory %s\n", qPrintable(directory));
        return 1;
    }
    const auto isRestart = [](const Step &step) { return step.What == Act::Restart; };
    const auto isPicture = [](const Step &step) { return step.What == Act::Picture; };
    for (const double scale : {1.0, 2.0}) {
        QTemporaryDir root;
        SetDeviceRoot(root.path().toUtf8().constData());
        const Play play = {QDir(directory).absolutePath(), scale};
        int pictures = 0;
        for (const Step *first = Steps; first != std::end(Steps);) {
            const Step *const end = std::find_if(first, std::end(Steps), isRestart);
            auto sitting = [&] { return PlaySitting(count, words, play, first, end, pictures); };
            if (!InOwnProcess([](void *context) { return (*static_cast<decltype(sitting) *>(context))(); }, &sitting)) {
                fprintf(stderr, "zentrik: the tour broke off\n");
                return 1;
            }
            pictures += static_cast<int>(std::count_if(first, end, isPicture));
            first = end == std::end(Steps) ? end : end + 1;
        }
    }
    return 0;
}
