// The keyboard, the command bar and its menus: everything can be reached without a stylus, and nothing twice.
#include "host_qt/little_program.h"
#include "resources/art.h"
#include "resources/key_guide.h"
#include "resources/menus.h"
#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QTreeWidget>
#include <set>

using namespace little;

static constexpr FormControl Controls[] = {{1002, ControlKind::Edit, 40, 92, 140, 20, 31, u"Memo"},
                                           {1008, ControlKind::List, 40, 134, 130, 20, 0, u"Category"},
                                           {1040, ControlKind::MultiLine, 40, 160, 130, 60, 0, u"Notes"}};
static constexpr FormTemplate Sample = {111, Controls, std::size(Controls)};

static constexpr BarButton Bar[] = {
    {BarKind::Button, CommandNew, u"New ", 0, 0, nullptr},
    {BarKind::Popup, EditPopup, u"Edit ", 0, 0, nullptr},
    {BarKind::Popup, ToolsPopup, nullptr, ToolsImage, 0, u"Tools"},
    {BarKind::Image, CommandCross, nullptr, CrossImage, 0, u"Cross"},
    {BarKind::Image, CommandTick, nullptr, TickImage, 0, u"Tick"},
    {BarKind::Separator, 0, nullptr, 0, 0, nullptr},
    {BarKind::Image, CommandLeftEye, nullptr, BarSheet, 9, u"Left eye"},
};

static void BeginBar() {
    Begin();
    for (const MenuRow &row : Menu)
        EnableMenuItem(row.Id, 1), EnableMenuItem(row.Parent, 1);
    ShowCommandBar(Bar, std::size(Bar));
    Told();
}

TEST(Keys, EveryKeyOfTheTableIsSentAndNoOther) {
    Begin();
    PlaceScrollBar({226, 0, 240, 205});
    ShowScrollBar(1);
    OpenForm(&Sample);
    CloseForm();
    Told();
    const struct {
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        const char *OnScreens, *InForms;
    } Keys[] = {
        {Qt::Key_Up, {}, "key Up", "key Up"},
        {Qt::Key_Left, {}, "key Left", ""},
        {Qt::Key_Return, {}, "key Enter", "key Tick"},
        {Qt::Key_Enter, Qt::KeypadModifier, "key Enter", "key Tick"},
        {Qt::Key_5, {}, "key Digit5", "control 1002 Text"},
        {Qt::Key_9, Qt::KeypadModifier, "key Digit9", "control 1002 Text"},
        {Qt::Key_Backspace, {}, "key Backspace", "control 1002 Text"},
        {Qt::Key_8, Qt::ControlModifier, "key Tab8", ""},
        {Qt::Key_9, Qt::ControlModifier, "", ""},
        {Qt::Key_Space, {}, "key Stroke", "control 1002 Text"},
        {Qt::Key_Delete, {}, "key Delete", ""},
        {Qt::Key_N, Qt::ControlModifier, "key New", ""},
        {Qt::Key_M, Qt::ControlModifier, "key Modify", ""},
        {Qt::Key_Return, Qt::ControlModifier, "key Tick", "key Tick"},
        {Qt::Key_Escape, {}, "key Escape", "key Escape"},
        {Qt::Key_F1, {}, "key Help", "key Help"},
        {Qt::Key_PageUp, {}, "scroll PageUp", ""},
        {Qt::Key_End, {}, "scroll Bottom", ""},
        {Qt::Key_Up, Qt::ShiftModifier, "", ""},
        {Qt::Key_Q, {}, "character q", "control 1002 Text"},
        {Qt::Key_Plus, Qt::KeypadModifier, "character +", "control 1002 Text"},
        {Qt::Key_K, Qt::ControlModifier, "hub 35", "hub 35"},
        {Qt::Key_F, Qt::ControlModifier, "key Find", ""},
        {Qt::Key_Z, Qt::ControlModifier, "key Undo", "control 1002 Text"},
        {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "key Redo", "control 1002 Text"},
        {Qt::Key_Return, Qt::ShiftModifier, "", "key TickAndNext"},
    };
    for (const auto &row : Keys) {
        PressKey(row.Key, row.Modifiers);
        EXPECT_EQ(Told(), row.OnScreens) << row.Key;
    }
    OpenForm(&Sample);
    Told();
    for (const auto &row : Keys) {
        PressKey(row.Key, row.Modifiers);
        EXPECT_EQ(Told(), row.InForms) << row.Key << " in a form";
    }
    PressKey(Qt::Key_Tab);
    PressKey(Qt::Key_Tab);
    PressKey(Qt::Key_Return); // a new line of the notes
    EXPECT_EQ(Told(), "control 1008 Focus; control 1040 Focus; control 1040 Text");
    CloseForm();
}

TEST(Bar, ItsButtonsSendTheirCommandsUnlessGreyed) {
    BeginBar();
    const auto press = [](const char *name) {
        for (QAbstractButton *button : host.Frame->Bar->findChildren<QAbstractButton *>())
            if (button->accessibleName() == QLatin1String(name) && button->isVisible())
                QTest::mouseClick(button, Qt::LeftButton);
    };
    press("New ");
    press("Tick");
    press("Left eye");
    EXPECT_EQ(Told(), "command 40076; command 40091; command 1433");
    EnableMenuItem(CommandTick, 0);
    press("Tick");
    ShowCommandBar(Bar, std::size(Bar)); // the greys are kept
    press("Tick");
    EXPECT_EQ(Told(), "");
    OnEvent = [](const Event &) { ShowCommandBar(Bar, 2); }; // from the handler of a button that goes
    press("Left eye");
    EXPECT_EQ(Told(), "command 1433");
    press("Left eye");
    EXPECT_EQ(Told(), "");
    EnableMenuItem(CommandTick, 1);
}

static std::string ItemsOf(const QMenu *menu) {
    std::string items;
    for (const QAction *action : menu->actions())
        items +=
            (items.empty() ? "" : ", ") + std::string(action->isEnabled() ? "" : "-") + action->text().toStdString();
    return items;
}

TEST(Menus, ListWhatTheTableListsAndGreyWhatTheProgramGreys) {
    BeginBar();
    EnableMenuItem(DeletePopup, 0);
    EnableMenuItem(CommandEmptyBin, 0);
    OpenBarMenu();
    auto *edit = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(edit);
    EXPECT_EQ(ItemsOf(edit),
              "Notepad ..., Config, Password, Jeopardy, Filter, Insert, Modify ..., -Delete, -Empty Bin");
    EXPECT_LE(edit->geometry().bottom(), host.Frame->Bar->mapToGlobal(QPoint(0, 2)).y());
    QTest::keyClick(edit, Qt::Key_Up); // over the greyed ones to the last that can be chosen
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(Told(), "command 40069");

    PressKey(Qt::Key_F10);
    edit = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(edit);
    EXPECT_EQ(edit->activeAction()->text(), QStringLiteral("Notepad ..."));
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right})
        QTest::keyClick(edit, key);
    auto *filter = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(filter && filter != edit);
    EXPECT_EQ(ItemsOf(filter), "Show only this ..., Exclude this ..., OFF");
    QTest::keyClick(filter, Qt::Key_Up);
    QTest::keyClick(filter, Qt::Key_Return);
    EXPECT_EQ(Told(), "command 40128");

    PressKey(Qt::Key_F10);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right); // from Edit to the tools
    auto *tools = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(tools);
    EXPECT_EQ(ItemsOf(tools),
              "About ..., Export ..., Import ..., Backup ..., Restore ..., Archive, Unarchive, Keys ..., Exit");
    QTest::keyClick(tools, Qt::Key_Escape);
    EXPECT_EQ(Told(), ""); // the key was the menu's

    EnableMenuItem(EditPopup, 0);
    OpenBarMenu();
    EXPECT_EQ(QApplication::activePopupWidget(), tools);
    tools->close();
    EnableMenuItem(ToolsPopup, 0);
    OpenBarMenu();
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST(Menus, LettersChoose) {
    BeginBar();
    PressKey(Qt::Key_F10);
    QTest::keyClick(QApplication::activePopupWidget(), 'm'); // the only one: it is taken
    EXPECT_EQ(Told(), "command 40069");
    EXPECT_FALSE(QApplication::activePopupWidget());
    PressKey(Qt::Key_F10);
    auto *const edit = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(edit);
    QTest::keyClick(edit, 'i'); // a menu of its own opens
    auto *const insert = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(insert && insert != edit);
    QTest::keyClick(insert, 'r');
    EXPECT_EQ(Told(), "command 40148");
    PressKey(Qt::Key_F10);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
    auto *const tools = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(tools);
    for (const char *item : {"Export ...", "Exit", "Export ..."}) { // several: one after the other
        QTest::keyClick(tools, 'e');
        EXPECT_EQ(tools->activeAction()->text().toStdString(), item);
    }
    QTest::keyClick(tools, 'z');
    QTest::keyClick(tools, Qt::Key_Escape);
    EXPECT_EQ(Told(), "");
}

// The keys that --help, the manual and README.md name; "F2 to F5" are four.
std::set<QString> KeysOfGuide() {
    std::set<QString> keys;
    for (const KeyWords &row : KeyGuide)
        for (const QString &part : QString::fromUtf8(row.Keys).replace("Enter", "Return").split(", ")) {
            const QStringList ends = part.split(" to ");
            const auto last = (ends.size() > 1 ? ends[1] : part).back();
            for (QString name = ends[0]; name.back() <= last; name.back() = QChar(name.back().unicode() + 1))
                keys.insert(QKeySequence(name).toString(QKeySequence::NativeText));
        }
    return keys;
}

TEST(Keys, TheListOfThemIsReadOnTheScreen) {
    BeginBar();
    PressKey(Qt::Key_F12);
    auto *const list = qobject_cast<QTreeWidget *>(QApplication::activePopupWidget());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->findItems(QStringLiteral("Ctrl+N"), Qt::MatchExactly).size(), 1);
    EXPECT_EQ(list->findItems(QStringLiteral("F12"), Qt::MatchExactly).size(), 1);
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        EXPECT_TRUE(KeysOfGuide().count(list->topLevelItem(i)->text(0))) << qPrintable(list->topLevelItem(i)->text(0));
    QTest::keyClick(list, Qt::Key_Down); // its own
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_EQ(Told(), "");
}

TEST(Bar, AButtonSaysWhatItIsAndItsKey) {
    BeginBar();
    std::string tips;
    for (const QAbstractButton *button : host.Frame->Bar->findChildren<QAbstractButton *>())
        tips += button->isVisible() && !button->toolTip().isEmpty() ? button->toolTip().toStdString() + "; " : "";
    EXPECT_EQ(tips, "Tools (F10); Cross (Esc); Tick (Ctrl+Return); Left eye (F1); ");
}

TEST(Menus, AltOpensThemOnlyWhenPressedAlone) {
    BeginBar();
    QWindow *const window = host.Frame->windowHandle();
    const auto alt = [&](bool down) {
        QTest::sendKeyEvent(down ? QTest::Press : QTest::Release, window, Qt::Key_Alt, QString(),
                            down ? Qt::AltModifier : Qt::NoModifier);
    };
    alt(true);
    EXPECT_FALSE(QApplication::activePopupWidget());
    alt(false);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
    alt(true);
    PressKey(Qt::Key_X, Qt::AltModifier);
    alt(false);
    EXPECT_FALSE(QApplication::activePopupWidget());
    alt(true);
    TapAt(50, 100);
    alt(false);
    EXPECT_FALSE(QApplication::activePopupWidget());
}
