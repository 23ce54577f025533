// The real controls: what an owner does is told once and after it was done; what the program does tells nothing.
#include "host_qt/little_program.h"
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

using namespace little;

enum Id : int16_t {
    Memo = 1002,
    Whole = 1003,
    Reference = 1004,
    Tick = 1005,
    Title = 1007,
    Category = 1008,
    Day = 1018,
    Files = 1030,
    Bar = 1032,
    Notes = 1040
};

// clang-format off
static constexpr FormControl Controls[] = {
    {Day,       ControlKind::Date,        40,  22, 130, 20,  0, u"Date"},
    {Title,     ControlKind::Combo,       40,  43, 180, 20, 24, u"Title"},
    {Whole,     ControlKind::Combo,       40,  66,  70, 20,  8, u"Whole"},
    {Memo,      ControlKind::Edit,        40,  92, 140, 20, 31, u"Memo"},
    {Reference, ControlKind::Number,     184,  92,  50, 20,  3, u"Reference"},
    {Tick,      ControlKind::Check,      200,  66,  16, 16,  0, u"Tick"},
    {Category,  ControlKind::List,        40, 134, 130, 20,  0, u"Category"},
    {Bar,       ControlKind::Progress,    40, 160, 180, 14,  0, u"Progress"},
    {Files,     ControlKind::ListBox,      5, 180, 110, 70,  0, u"Files"},
    {Notes,     ControlKind::MultiLine,  120, 180, 115, 70, 20, u"Notes"},
};
// clang-format on
static constexpr FormTemplate Sample = {111, Controls, std::size(Controls)};

static void BeginForm(double scale = 1) {
    Begin(scale);
    OpenForm(&Sample);
    for (const char16_t *item : {u"Rent", u"Bread", u"Wages"}) {
        AddControlItem(Title, item);
        AddControlItem(Whole, item);
        AddControlItem(Category, item);
        AddControlItem(Files, item);
    }
    EXPECT_EQ(Told(), "paint");
}

static std::u16string Text(int id, int room = 100) {
    char16_t text[200];
    const int length = GetControlText(id, text, room);
    EXPECT_EQ(text[length], 0);
    return text;
}

// Device coordinates of a place in a control.
static QPoint In(int id, int right = 0) {
    for (const FormControl &control : Controls)
        if (control.Id == id)
            return {right ? control.X + control.Width - right : control.X + 8, control.Y + 26 + control.Height / 2};
    return {};
}
static void TapIn(int id, int right = 0) {
    TapAt(In(id, right).x(), In(id, right).y());
}

TEST(Controls, StandWhereTheTemplateSaysAtEveryScale) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        BeginForm(scale);
        for (const FormControl &control : Controls) {
            const QWidget *real = Control(QString::fromUtf16(control.Name).toLatin1().constData());
            ASSERT_TRUE(real);
            EXPECT_EQ(real->geometry(),
                      WidgetBox({control.X, control.Y, control.X + control.Width, control.Y + control.Height}));
            if (control.Kind == ControlKind::Date) {
                const auto *const date = qobject_cast<const QLineEdit *>(real);
                const QFontMetrics metrics(date->font());
                EXPECT_LE(metrics.horizontalAdvance(QStringLiteral("28 May 2026 (Wed)")) + 6 * scale,
                          date->width() - date->textMargins().right());
                EXPECT_LE(metrics.height(), date->height());
            }
        }
    }
    host.Frame->resize(ScreenWidth, ScreenHeight); // with the form open
    EXPECT_EQ(Told(), "paint");
    EXPECT_EQ(Control("Memo")->geometry(), QRect(40, 92, 140, 20));
}

TEST(Controls, WhatTheProgramSetsIsThereAndTellsNothing) {
    BeginForm();
    SetControlText(Title, u"Something else");
    EXPECT_EQ(Text(Title), u"Something else");
    EXPECT_EQ(SelectedControlItem(Title), -1);
    SetControlText(Title, u"Bread");
    EXPECT_EQ(SelectedControlItem(Title), 1);
    SelectControlItem(Title, 2);
    EXPECT_EQ(Text(Title), u"Wages");
    SelectControlItem(Title, -1);
    EXPECT_EQ(Text(Title), u"");
    EXPECT_EQ(SelectedControlItem(Category), -1); // the first item added chooses nothing
    SelectControlItem(Category, 1);
    EXPECT_EQ(SelectedControlItem(Category), 1);
    ClearControlList(Category);
    EXPECT_EQ(ControlItemCount(Category), 0);
    EXPECT_EQ(SelectedControlItem(Category), -1);
    SetControlText(Whole, u"12");
    ClearControlList(Whole);
    AddControlItem(Whole, u"99");
    EXPECT_EQ(Text(Whole), u"12"); // a list filled anew leaves the text
    SelectControlItem(Files, 2);
    EXPECT_EQ(SelectedControlItem(Files), 2);
    SetControlText(Memo, u"12345678901234567890123456789012345");
    EXPECT_EQ(Text(Memo), u"1234567890123456789012345678901");
    EXPECT_EQ(Text(Memo, 5), u"1234");
    SetControlText(Notes, u"123456789\n123456789 and more");
    EXPECT_EQ(Text(Notes).size(), 20u);
    SetControlCheck(Tick, 1);
    EXPECT_TRUE(ControlChecked(Tick));
    SetControlProgress(Bar, 250);
    EnableControl(Memo, 0);
    ShowControl(Memo, 0);
    ShowControl(Memo, 1);
    EnableControl(Memo, 1);
    FocusControl(Memo);
    EXPECT_EQ(FocusedControl(), Memo);
    for (const auto &[year, month, day] : {std::tuple(2024, 2, 29), {1699, 12, 31}, {9999, 12, 31}}) {
        SetControlDate(Day, {year, month, day});
        const ControlDate date = GetControlDate(Day);
        EXPECT_TRUE(date.Year == year && date.Month == month && date.Day == day) << year;
    }
    SetControlDate(Day, {1601, 1, 1}); // before the dates that records hold
    EXPECT_EQ(GetControlDate(Day).Year, 1699);
    SetControlDate(Day, {2026, 2, 31}); // no date at all
    EXPECT_EQ(GetControlDate(Day).Year, 1699);
    EXPECT_EQ(Told(), "");

    constexpr int Unknown = 4711;
    SetControlText(Unknown, u"x");
    SelectControlItem(Unknown, 0);
    EXPECT_EQ(Text(Unknown), u"");
    EXPECT_EQ(ControlItemCount(Unknown), 0);
    EXPECT_EQ(SelectedControlItem(Unknown), -1);
}

TEST(Controls, WhatTheOwnerDoesIsToldAfterItWasDone) {
    BeginForm();
    std::u16string seen;
    OnEvent = [&](const Event &event) {
        if (event.Kind == EventKind::Control && event.Change == ControlChange::Text)
            seen = Text(event.Control);
    };
    TapIn(Memo);
    EXPECT_EQ(Told(), "control 1002 Focus");
    Type("a");
    EXPECT_EQ(Told(), "control 1002 Text");
    EXPECT_EQ(seen, u"a");
    Type("b");
    EXPECT_EQ(Told(), "control 1002 Text");
    EXPECT_EQ(seen, u"ab");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Told(), "control 1004 Focus");
    PressKey(Qt::Key_Backtab);
    EXPECT_EQ(Told(), "control 1002 Focus");
    QApplication::clipboard()->setText(QString(1000, u'x') + QStringLiteral("\nsecond line"));
    PressKey(Qt::Key_A, Qt::ControlModifier);
    PressKey(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Told(), "control 1002 Text");
    EXPECT_EQ(seen.size(), 31u);

    TapIn(Tick);
    EXPECT_EQ(Told(), "control 1005 Focus; control 1005 Pressed");
    EXPECT_TRUE(ControlChecked(Tick));
    TapIn(Title);
    Type("Bre");
    EXPECT_EQ(Told().rfind("control 1007 Focus; control 1007 Text", 0), 0u);
    EXPECT_EQ(Text(Title), u"Bre"); // not completed
    PressKey(Qt::Key_Down);         // opens the list, and lights what begins so
    EXPECT_EQ(Told(), "control 1007 Dropped");
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(Told(), "control 1007 Choice");
    EXPECT_EQ(Text(Title), u"Bread");
    TapIn(Category, 5);
    EXPECT_EQ(Told(), "control 1008 Focus; control 1008 Dropped");
    QWidget *const popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    EXPECT_TRUE(host.Frame->screen()->geometry().contains(popup->frameGeometry()));
    QTest::keyClick(popup->windowHandle(), Qt::Key_Down);
    QTest::keyClick(popup->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(Told(), "control 1008 Choice");
    EXPECT_EQ(SelectedControlItem(Category), 1);

    TapIn(Files);
    EXPECT_EQ(Told(), "control 1030 Focus; control 1030 Choice; control 1030 Pressed");
    EXPECT_EQ(SelectedControlItem(Files), 2);
    DoubleTapAt(In(Files).x(), In(Files).y());
    EXPECT_EQ(Told(), "control 1030 Focus; control 1030 Pressed; control 1030 DoublePressed");
    TapIn(Notes);
    Type("Z");
    EXPECT_EQ(Told(), "control 1040 Focus; control 1040 Text");
    TapAt(130, 193); // on the bar of progress: the form's background
    EXPECT_EQ(Told(), "down Dialog 130,167; up Dialog 130,167");
    TapAt(10, 40);
    EXPECT_EQ(Told(), "down Dialog 10,14; up Dialog 10,14");
    EXPECT_EQ(FocusedControl(), Notes); // a tap on the background leaves the focus
}

TEST(Controls, ADateIsTypedOrTakenFromTheCalendar) {
    BeginForm();
    SetControlDate(Day, {2026, 3, 12});
    TapIn(Day);
    Type("05");
    EXPECT_NE(Told().find("control 1018 Choice"), std::string::npos);
    EXPECT_EQ(GetControlDate(Day).Day, 5);
    TapIn(Day, 5);
    EXPECT_EQ(Told(), "control 1018 Focus; control 1018 Calendar");
    QWidget *const popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    EXPECT_TRUE(host.Frame->screen()->geometry().contains(popup->frameGeometry()));
    QTest::keyClick(popup->windowHandle(), Qt::Key_Right);
    QTest::keyClick(popup->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(Told(), "control 1018 Choice");
    EXPECT_EQ(GetControlDate(Day).Day, 6);
    EXPECT_EQ(FocusedControl(), Day);
    PressKey(Qt::Key_Tab); // on to the next field, not to the month
    EXPECT_EQ(FocusedControl(), Title);
    PressKey(Qt::Key_Backtab);
    EXPECT_EQ(FocusedControl(), Day);
    EXPECT_EQ(Told(), "control 1007 Focus; control 1018 Focus");
}

TEST(Controls, AHandlerMayCloseOrReplaceTheFormThatCalledIt) {
    for (const bool replace : {false, true}) {
        BeginForm();
        OnEvent = [&](const Event &event) {
            if (event.Kind != EventKind::Control || event.Change == ControlChange::Focus)
                return;
            if (replace)
                OpenForm(&Sample);
            else
                CloseForm();
            OnEvent = nullptr;
        };
        TapIn(Memo);
        Type("abc"); // what is typed after the first character finds another form or none
        QTest::qWait(1);
        const std::string told = Told();
        EXPECT_EQ(told.find("control 1002 Focus; control 1002 Text; paint"), 0u) << told;
        EXPECT_EQ(WindowShown(DialogWindow), replace);
        EXPECT_EQ(FocusedControl(), replace ? int(Day) : 0);
        // The owner presses a list and the form goes while the list is open.
        BeginForm();
        OnEvent = [](const Event &event) {
            if (event.Change == ControlChange::Dropped)
                CloseForm();
        };
        TapIn(Category, 5);
        EXPECT_EQ(Told(), "control 1008 Focus; control 1008 Dropped; paint");
        EXPECT_FALSE(QApplication::activePopupWidget());
    }
}

TEST(Controls, TheHubsKeysAreTypedIntoTheControlWithTheFocus) {
    BeginForm();
    FocusControl(Whole);
    for (const int key : {int('4'), int('5'), int('.'), int('6'), 8})
        SendControlKey(key);
    EXPECT_EQ(Text(Whole), u"45.");
    CloseForm();
    SendControlKey('4');
}

TEST(Controls, ATextThatRecordsCannotHoldIsMadeFit) {
    BeginForm();
    TapIn(Memo);
    const struct {
        QString Pasted;
        std::u16string Held;
    } Cases[] = {
        {QStringLiteral("two\nlines\tand a tab"), u"two lines and a tab"},
        {QString(30, u'x') + QStringLiteral("\U0001F600"), std::u16string(30, u'x')}, // no half of a pair
        {QStringLiteral("a") + QChar(0xDE00) + QStringLiteral("b") + QChar(0xD83D) + QStringLiteral("c"), u"abc"},
        {QStringLiteral("a\U0001F600b"), u"a\U0001F600b"},
        {QStringLiteral("a\u00D7b\u2026"), u"a\u00D7b\u2026"},
        {QStringLiteral("a") + QChar(0) + QStringLiteral("b"), u"a b"},
    };
    for (const auto &one : Cases) {
        QApplication::clipboard()->setText(one.Pasted);
        PressKey(Qt::Key_A, Qt::ControlModifier);
        PressKey(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(Text(Memo), one.Held) << one.Pasted.toStdString();
    }
}

TEST(Controls, AHeldPressOpensTheContextMenuOfATextBox) {
    BeginForm();
    SetControlText(Memo, u"abc");
    PressAt(In(Memo).x(), In(Memo).y());
    QTest::qWait(800);
    QWidget *const menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    menu->close();
    ReleaseAt(In(Memo).x(), In(Memo).y());
    PressAt(In(Memo).x(), In(Memo).y());
    MoveTo(In(Memo).x() + 30, In(Memo).y()); // selecting text
    QTest::qWait(800);
    EXPECT_FALSE(QApplication::activePopupWidget());
    ReleaseAt(In(Memo).x() + 30, In(Memo).y());
}
