#include "hosts/qt/start.h"
#include "hosts/qt/accessible.h"
#include "hosts/qt/art.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/keys.h"
#include "hosts/qt/pointer.h"
#include "hosts/qt/style.h"
#include "hosts/qt/surface.h"
#include "platform/shell.h"
#include "resources/art.h"
#include <QApplication>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <cstdio>

static void LoadResources() {
    Q_INIT_RESOURCE(zentrik);
}

// The scale that the owner wants, or the largest there is room for.
static double ScaleThatFits(double wanted, const QSize &screen) {
    if (wanted * ScreenWidth <= screen.width() && wanted * ScreenHeight <= screen.height())
        return wanted;
    const double largest = LargestScale(screen);
    if (wanted <= largest)
        return wanted;
    char line[120];
    snprintf(line, sizeof line, "a scale of %g does not fit this screen of %d x %d: it is %g now", wanted,
             screen.width(), screen.height(), largest);
    TellTerminal(line);
    return largest;
}

void PrepareHost(double scale) {
    LoadResources();
    const QScreen *const screen = QGuiApplication::primaryScreen();
    const QSize room = screen->availableSize();
    host.FillsScreen = scale <= 0 && DeviceFillsScreen(room);
    host.Scale = scale > 0 ? ScaleThatFits(scale, room) : FirstScale(room);
    host.Factor = host.Scale * screen->devicePixelRatio();

    QApplication::setStyle(MakeDeviceStyle());
    QPalette palette(QColor(style::Silver), QColor(style::Paper));
    palette.setColor(QPalette::Base, QColor(style::Paper));
    palette.setColor(QPalette::Button, QColor(style::Silver));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, QColor(style::Ink));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(style::GreyInk));
    palette.setColor(QPalette::Highlight, QColor(style::Selection));
    palette.setColor(QPalette::HighlightedText, QColor(style::SelectionInk));
    QApplication::setPalette(palette);
    QApplication::setFont(DeviceFont(Font::Normal, host.Scale));
    WatchKeys();
    WatchPointer();
    OfferSpeech();
}

static void ShowIcon() {
    constexpr int Size = 64;
    const Rect whole = {0, 0, Size, Size};
    if (const ArtPixels icon = StretchedArt(ProgramIcon, whole, QRect(0, 0, Size, Size)); icon.Pixels)
        host.Frame->setWindowIcon(QPixmap::fromImage(*icon.Pixels));
}

void ShowDevice() {
    DeliverWaiting();
    DeliverPaint();
    host.Frame->setFocus(Qt::OtherFocusReason);
    if (host.FillsScreen)
        host.Frame->FillScreen(true);
    else
        host.Frame->show();
    host.Frame->activateWindow();                // on a device without a window manager nobody else gives it the keys
    QTimer::singleShot(0, host.Frame, ShowIcon); // the first screen does not wait for it
}
