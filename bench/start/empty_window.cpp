// The reference: a program that paints one line of text and leaves.
#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace {

class Empty : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("One line of text"));
        QMetaObject::invokeMethod(
            qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    }
};

} // namespace

int main(int count, char **words) {
    QApplication application(count, words);
    Empty window;
    window.resize(480, 640);
    window.show();
    return QApplication::exec();
}
