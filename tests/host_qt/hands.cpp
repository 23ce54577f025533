#include "host_qt/hands.h"
#include "hosts/qt/device.h"
#include <QApplication>

namespace little {

void Settle() {
    for (int pass = 0; pass < 6; ++pass)
        QApplication::processEvents();
}

QPoint WidgetPixel(int x, int y) {
    return host.Frame->Corner +
           QPoint(static_cast<int>((x + 0.5) * host.Scale), static_cast<int>((y + 0.5) * host.Scale));
}

void PressAt(int x, int y) {
    QTest::mousePress(host.Frame->windowHandle(), Qt::LeftButton, {}, WidgetPixel(x, y));
}
void MoveTo(int x, int y) {
    QTest::mouseMove(host.Frame->windowHandle(), WidgetPixel(x, y));
}
void ReleaseAt(int x, int y) {
    QTest::mouseRelease(host.Frame->windowHandle(), Qt::LeftButton, {}, WidgetPixel(x, y));
    Settle();
}
void TapAt(int x, int y) {
    PressAt(x, y);
    ReleaseAt(x, y);
    // Beyond the time in which a second tap would make it a double tap.
    QTest::mouseMove(host.Frame->windowHandle(), WidgetPixel(x, y), QApplication::doubleClickInterval() + 1);
    Settle();
}
void DoubleTapAt(int x, int y) {
    QTest::mouseDClick(host.Frame->windowHandle(), Qt::LeftButton, {}, WidgetPixel(x, y));
    Settle();
}

void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(host.Frame->windowHandle(), key, modifiers);
    Settle();
}
void Type(const char *text) {
    for (; *text; ++text)
        QTest::keyClick(host.Frame->windowHandle(), *text);
    Settle();
}

QWidget *Control(const char *name) {
    for (QWidget *one : host.Windows[DialogWindow]->findChildren<QWidget *>())
        if (one->parentWidget() == host.Windows[DialogWindow] && one->accessibleName() == QLatin1String(name) &&
            !one->isHidden())
            return one;
    return nullptr;
}

} // namespace little
