// The device's window on the desktop: geometry and scale, the title bar, and the program's windows in it.
#include "hosts/qt/device.h"
#include "hosts/qt/art.h"
#include "hosts/qt/command_bar.h"
#include "hosts/qt/controls.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/style.h"
#include "hosts/qt/surface.h"
#include "platform/clock.h"
#include "platform/shell.h"
#include "platform/text.h"
#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>
#include <cmath>

Host host;

namespace {

constexpr double LeastScale = 0.5, StepOfScale = 0.5;
constexpr int FrameRoom = 32; // pixels that a window's title takes
constexpr QRgb SurroundColour = 0xff202024, TitleColour = 0xff1b2440, TitleEdgeColour = 0xff0a0e1c,
               TitleInk = 0xfff4f6ff, ClockInk = 0xffb9c4e4;
constexpr int TitleMargin = 6, ClockRoom = 54;

int Edge(double at, double factor) {
    return static_cast<int>(std::floor(at * factor + 0.5));
}

QRect EdgeBox(const Rect &box, double factor) {
    const int left = Edge(box.Left, factor), top = Edge(box.Top, factor);
    return {left, top, Edge(box.Right, factor) - left, Edge(box.Bottom, factor) - top};
}

QSize ImageSize(const Rect &box) {
    return PixelBox({0, 0, box.Right - box.Left, box.Bottom - box.Top}).size();
}

} // namespace

int PixelEdge(double at) {
    return Edge(at, host.Factor);
}
int WidgetEdge(double at) {
    return Edge(at, host.Scale);
}
QRect PixelBox(const Rect &box) {
    return EdgeBox(box, host.Factor);
}
QRect WidgetBox(const Rect &box) {
    return EdgeBox(box, host.Scale);
}

double LargestScale(const QSize &screen) {
    const double fits = std::min(screen.width() / double(ScreenWidth), screen.height() / double(ScreenHeight));
    return std::max(LeastScale, std::floor(fits / StepOfScale) * StepOfScale);
}

bool DeviceFillsScreen(const QSize &screen) {
    const double scale = LargestScale(screen);
    return screen.width() - ScreenWidth * scale < FrameRoom && screen.height() - ScreenHeight * scale < FrameRoom;
}

double FirstScale(const QSize &screen) {
    const int frame = DeviceFillsScreen(screen) ? 0 : FrameRoom;
    return std::max(1.0, LargestScale(QSize(screen.width(), screen.height() - frame)));
}

ProgramWindow::ProgramWindow(QWidget *parent, Window which, const Rect &box) : QWidget(parent), Which(which), Box(box) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(which == TopWindow); // whose edges show that they can be dragged
    hide();
    Place();
}

void ProgramWindow::Place() {
    setGeometry(WidgetBox(Box));
    if (!Image.isNull() && Image.size() != ImageSize(Box))
        Image = Image.scaled(ImageSize(Box));
    Painted = {};
    update();
}

QImage *ProgramWindow::PersistentImage() {
    if (Image.isNull()) {
        Image = QImage(ImageSize(Box), QImage::Format_RGB32);
        Image.fill(Qt::white);
    }
    return &Image;
}

void ProgramWindow::ShowPainted() {
    if (Painted.isEmpty())
        return;
    const double perPixel = host.Scale / host.Factor;
    const QRectF shown(Painted.x() * perPixel, Painted.y() * perPixel, Painted.width() * perPixel,
                       Painted.height() * perPixel);
    update(shown.toAlignedRect());
    Painted = {};
}

void ProgramWindow::paintEvent(QPaintEvent *event) {
    const double pixels = host.Factor / host.Scale;
    QPainter painter(this);
    for (const QRect &box : event->region())
        painter.drawImage(QRectF(box), *PersistentImage(),
                          QRectF(box.x() * pixels, box.y() * pixels, box.width() * pixels, box.height() * pixels));
}

Device::Device() : Stage(new QWidget(this)), Bar(new QWidget(this)) {
    setWindowTitle(QStringLiteral("Zentrik"));
    setAccessibleName(windowTitle());
    Title = windowTitle();
    setMinimumSize(QSize(static_cast<int>(ScreenWidth * LeastScale), static_cast<int>(ScreenHeight * LeastScale)));
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(WidgetBox({0, 0, ScreenWidth, ScreenHeight}).size());
    WaitForMinute();
}

void TitleDevice(const char16_t *title) {
    if (!host.Frame)
        return;
    const QString program = QStringLiteral("Zentrik");
    host.Frame->Title = title && title[0] ? QString::fromUtf16(title) : program;
    host.Frame->setWindowTitle(host.Frame->Title == program ? program
                                                            : host.Frame->Title + QStringLiteral(" - ") + program);
    host.Frame->update();
}

void Device::FillScreen(bool on) {
    Filled = on;
    if (on) {
        Framed = geometry();
        showFullScreen();
        setGeometry(screen()->geometry()); // where no window manager does it
        return;
    }
    showNormal();
    if (Framed.isValid())
        setGeometry(Framed);
}

void Device::PlaceEverything() {
    const double scale = std::min(width() / double(ScreenWidth), height() / double(ScreenHeight));
    const QRect device = EdgeBox({0, 0, ScreenWidth, ScreenHeight}, scale);
    Corner = {(width() - device.width()) / 2, (height() - device.height()) / 2};
    SetScale(scale);
    Stage->setGeometry(WidgetBox({0, TitleHeight, ScreenWidth, BarTop}).translated(Corner));
    Bar->setGeometry(WidgetBox({0, BarTop, ScreenWidth, ScreenHeight}).translated(Corner));
    update();
}

void SetScale(double scale) {
    const double factor = scale * host.Frame->devicePixelRatioF();
    if (scale == host.Scale && factor == host.Factor)
        return;
    host.Scale = scale;
    host.Factor = factor;
    QApplication::setFont(DeviceFont(Font::Normal, scale));
    QToolTip::setFont(DeviceFont(Font::Normal, scale));
    ForgetArt();
    for (ProgramWindow *window : host.Windows)
        if (window)
            window->Place();
    if (host.ListBar)
        host.ListBar->setGeometry(WidgetBox(host.ListBarBox));
    RescaleForm();
    RescaleBar();
    RequestPaint();
}

bool Device::event(QEvent *event) {
    const bool taken = QWidget::event(event);
    if (event->type() == QEvent::ScreenChangeInternal && isVisible())
        PlaceEverything();
    return taken;
}

void Device::resizeEvent(QResizeEvent *) {
    PlaceEverything();
}

void Device::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QRect title = WidgetBox({0, 0, ScreenWidth, TitleHeight}).translated(Corner);
    painter.fillRect(rect(), QColor(SurroundColour));
    painter.fillRect(title, QColor(TitleColour));
    painter.fillRect(WidgetBox({0, TitleHeight - 1, ScreenWidth, TitleHeight}).translated(Corner),
                     QColor(TitleEdgeColour));

    const QRect bar = Bar->geometry();
    painter.fillRect(bar, QColor(style::Silver));
    painter.fillRect(bar.x(), bar.y(), bar.width(), WidgetEdge(1), QColor(style::Shadow));

    const int margin = WidgetEdge(TitleMargin);
    const QRect text = title.adjusted(margin, 0, -margin, 0);
    painter.setFont(DeviceFont(Font::Bold, host.Scale));
    painter.setPen(QColor(TitleInk));
    const int room = text.width() - WidgetEdge(ClockRoom);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(Title, Qt::ElideMiddle, room));

    ClockTime now;
    char time[16];
    ReadClock(&now);
    WriteShortTime(time, sizeof time, &now);
    painter.setPen(QColor(ClockInk));
    painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, QString::fromUtf8(time));

    if (host.QuitAfterPaint) {
        host.Leaving = true;
        QMetaObject::invokeMethod(
            qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    }
}

void Device::WaitForMinute() {
    ClockTime now;
    ReadClock(&now);
    if (ClockTimer)
        killTimer(ClockTimer);
    ClockTimer = startTimer((60 - now.Second) * 1000 + 50, Qt::CoarseTimer);
}

void Device::timerEvent(QTimerEvent *) {
    update(WidgetBox({0, 0, ScreenWidth, TitleHeight}).translated(Corner));
    WaitForMinute();
}

void Device::closeEvent(QCloseEvent *event) {
    event->ignore(); // the program decides, and leaves in order
    Deliver({.Kind = EventKind::Close});
}
