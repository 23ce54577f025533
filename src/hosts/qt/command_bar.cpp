// The command bar of shell.h: buttons that are reused from one bar to the next, so that the eyes can move at every tap,
// and menus built from the table of resources/menus.h.
#include "hosts/qt/command_bar.h"
#include "hosts/qt/art.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/keys.h"
#include "hosts/qt/style.h"
#include "platform/shell.h"
#include "resources/art.h"
#include "resources/menus.h"
#include <QAbstractButton>
#include <QHash>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <cmath>

namespace {

constexpr int MostButtons = 16;
constexpr int TextMargin = 3, ImageWidth = 20, SeparatorWidth = 4, CellSize = 16;
constexpr double GreyedOpacity = 0.3;

QHash<int, bool> greyed;   // by command or popup
QHash<int, QMenu *> menus; // by popup

bool Enabled(int id) {
    return !greyed.value(id, false);
}

class BarWidget : public QAbstractButton {
public:
    explicit BarWidget(QWidget *parent) : QAbstractButton(parent) {
        setFocusPolicy(Qt::NoFocus); // a tap on the tick leaves the focus in the form
        connect(this, &QAbstractButton::clicked, [this] {
            if (What.Kind == BarKind::Popup)
                OpenMenu();
            else
                DeliverLater({.Kind = EventKind::Command, .Code = What.Command});
        });
    }

    BarButton What{};
    void OpenMenu();

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        if (What.Kind == BarKind::Separator) {
            painter.fillRect(QRect(width() / 2, height() / 5, std::max(1, WidgetEdge(1)), height() * 3 / 5),
                             QColor(style::Shadow));
            return;
        }
        if (isDown() || (menus.contains(What.Command) && menus[What.Command]->isVisible())) {
            const int inset = WidgetEdge(2);
            painter.fillRect(rect().adjusted(0, inset, 0, -inset), QColor(style::Pressed));
        }
        if (What.Text) {
            painter.setPen(QColor(isEnabled() ? style::Ink : style::GreyInk));
            painter.drawText(rect(), Qt::AlignCenter, QString::fromUtf16(What.Text).trimmed());
        }
        if (What.Image)
            PaintCell(&painter);
    }

private:
    void PaintCell(QPainter *painter) const {
        const QRect cell = PixelBox({What.Cell * CellSize, 0, (What.Cell + 1) * CellSize, CellSize});
        const ArtPixels art = Art(What.Image, 0, 0);
        if (!art.Pixels)
            return;
        const double pixels = host.Factor / host.Scale;
        const QSizeF shown = QSizeF(cell.size()) / pixels;
        const QPointF corner(std::round((width() - shown.width()) / 2), std::round((height() - shown.height()) / 2));
        painter->setOpacity(isEnabled() ? 1 : GreyedOpacity);
        painter->drawImage(QRectF(corner, shown), *art.Pixels, cell);
    }
};

BarWidget *bar[MostButtons];
int barCount;

void OpenNeighbour(const QMenu *menu, int step);

// A letter goes to the next item that begins with it, and takes the only one.
class LetterMenu : public QMenu {
public:
    using QMenu::QMenu;

protected:
    void keyPressEvent(QKeyEvent *event) override {
        const QString typed = event->text();
        if (event->modifiers() != Qt::NoModifier || typed.size() != 1 || !typed[0].isLetter()) {
            QMenu::keyPressEvent(event);
            return;
        }
        QList<QAction *> fitting;
        for (QAction *action : actions())
            if (action->isEnabled() && action->text().startsWith(typed, Qt::CaseInsensitive))
                fitting.append(action);
        if (fitting.isEmpty())
            return;
        setActiveAction(fitting[(fitting.indexOf(activeAction()) + 1) % fitting.size()]);
        if (fitting.size() > 1)
            return;
        QKeyEvent choose(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QMenu::keyPressEvent(&choose);
    }
};

// A menu of the bar; Left and Right at its first level go to the bar's other menus.
class BarMenu : public LetterMenu {
public:
    using LetterMenu::LetterMenu;

protected:
    void keyPressEvent(QKeyEvent *event) override {
        const QAction *const at = activeAction();
        if (event->key() == Qt::Key_Left)
            OpenNeighbour(this, -1);
        else if (event->key() == Qt::Key_Right && !(at && at->menu()))
            OpenNeighbour(this, 1);
        else
            LetterMenu::keyPressEvent(event);
    }
};

void FillMenu(QMenu *menu, int popup) {
    for (const MenuRow &row : Menu) {
        if (row.Parent != popup)
            continue;
        QAction *action;
        if (row.Popup) {
            QMenu *const below = new LetterMenu(menu);
            FillMenu(below, row.Id);
            action = menu->addMenu(below);
        } else {
            action = menu->addAction(QString());
            QObject::connect(action, &QAction::triggered,
                             [id = row.Id] { DeliverLater({.Kind = EventKind::Command, .Code = id}); });
        }
        action->setText(QString::fromUtf16(row.Text));
        action->setData(row.Id);
        if (row.Id == CommandExit) { // the last
            QAction *const keys = new QAction(QStringLiteral("Keys ..."), menu);
            QObject::connect(keys, &QAction::triggered, ShowKeyList);
            menu->insertAction(action, keys);
        }
    }
}

void GreyMenu(QMenu *menu) {
    for (QAction *action : menu->actions()) {
        action->setEnabled(Enabled(action->data().toInt()));
        if (action->menu())
            GreyMenu(action->menu());
    }
}

QMenu *MenuOf(int popup) {
    QMenu *&menu = menus[popup];
    if (!menu) {
        menu = new BarMenu(host.Frame);
        FillMenu(menu, popup);
        QObject::connect(menu, &QMenu::aboutToHide, host.Frame->Bar, [] { host.Frame->Bar->update(); });
    }
    GreyMenu(menu);
    return menu;
}

void BarWidget::OpenMenu() {
    QMenu *const menu = MenuOf(What.Command);
    menu->popup(mapToGlobal(QPoint(0, 0)) - QPoint(0, menu->sizeHint().height()));
    if (!menu->activeAction())
        for (QAction *action : menu->actions())
            if (action->isEnabled()) {
                menu->setActiveAction(action);
                break;
            }
    update();
}

// Opens the next popup of the bar that can be opened, from one place on; wraps.
void OpenPopupFrom(int at, int step) {
    for (int tried = 0; tried < barCount; ++tried, at += step) {
        BarWidget *const button = bar[(at + barCount) % barCount];
        if (button->What.Kind == BarKind::Popup && button->isEnabled()) {
            button->OpenMenu();
            return;
        }
    }
}

void OpenNeighbour(const QMenu *menu, int step) {
    for (int i = 0; i < barCount; ++i)
        if (menus.value(bar[i]->What.Command) == menu) {
            menus[bar[i]->What.Command]->hide();
            OpenPopupFrom(i + step, step);
            return;
        }
}

int ButtonWidth(const BarButton &button) {
    switch (button.Kind) {
    case BarKind::Separator:
        return SeparatorWidth;
    case BarKind::Button:
    case BarKind::Popup:
        if (button.Text)
            return TextWidth(button.Text, Font::Normal) + 2 * TextMargin;
        return ImageWidth;
    case BarKind::Image:
        return ImageWidth;
    }
    return 0;
}

// The name of the key that does what a button does.
QString KeyOf(const BarButton &button) {
    constexpr struct {
        int Command;
        Key Pressed;
    } Rows[] = {{CommandNew, Key::New},
                {CommandTick, Key::Tick},
                {CommandCross, Key::Escape},
                {CommandLeftEye, Key::Help},
                {CommandRightEye, Key::Help}};
    if (button.Kind == BarKind::Popup)
        return NameOfMenuKey();
    for (const auto &row : Rows)
        if (row.Command == button.Command)
            return NameOfKey(row.Pressed, false);
    return {};
}

void PlaceButtons() {
    int left = 0;
    for (int i = 0; i < barCount; ++i) {
        const int right = left + ButtonWidth(bar[i]->What);
        bar[i]->setGeometry(WidgetBox({left, 1, right, BarHeight}));
        left = right;
    }
}

} // namespace

void ShowCommandBar(const BarButton *buttons, int count) {
    if (!host.Frame)
        return;
    barCount = std::min(count, MostButtons);
    for (int i = 0; i < MostButtons; ++i) {
        BarWidget *&widget = bar[i];
        if (i < barCount) {
            if (!widget)
                widget = new BarWidget(host.Frame->Bar);
            widget->What = buttons[i];
            widget->setEnabled(Enabled(buttons[i].Command));
            const QString name = QString::fromUtf16(buttons[i].Name ? buttons[i].Name : buttons[i].Text);
            widget->setAccessibleName(name);
            widget->setToolTip(buttons[i].Name ? WithKey(name, KeyOf(buttons[i])) : QString());
            widget->setAttribute(Qt::WA_TransparentForMouseEvents, buttons[i].Kind == BarKind::Separator);
            widget->update();
        }
        if (widget)
            widget->setVisible(i < barCount);
    }
    PlaceButtons();
}

void RescaleBar() {
    PlaceButtons();
}

void OpenBarMenu() {
    if (barCount)
        OpenPopupFrom(0, 1);
}

void EnableMenuItem(int id, int on) {
    greyed[id] = !on;
    for (int i = 0; i < barCount; ++i)
        if (bar[i]->What.Command == id)
            bar[i]->setEnabled(on);
}
