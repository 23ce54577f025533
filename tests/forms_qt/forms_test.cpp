// An owner fills each form with pointer and keyboard in real controls, ticks, and finds everything again after a
// restart. A sitting is one run of the program, in a process of its own.
#include "frame/changes.h"
#include "frame/form.h"
#include "host_qt/hands.h"
#include "hosts/qt/device.h"
#include "hosts/qt/start.h"
#include "platform/files.h"
#include "platform/text.h"
#include "program/door.h"
#include "resources/menus.h"
#include "state/state.h"
#include "store/windows.h"
#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace little;

namespace {

// --- Sittings

int Sit(double scale, const std::function<void()> &story) {
    static char name[] = "forms", *words[] = {name, nullptr};
    static int count = 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    PrepareHost(scale);
    if (WinMain() != 1)
        return 1;
    ShowDevice();
    host.Frame->activateWindow();
    Settle();
    PressKey(Qt::Key_Escape); // the front page
    if (state.HelpMode)
        PressKey(Qt::Key_F1);
    story();
    host.Frame->close();
    Settle();
    return testing::Test::HasFailure();
}

class Forms : public testing::TestWithParam<double> {
protected:
    QTemporaryDir root;

    void SetUp() override { SetDeviceRoot(root.path().toUtf8().constData()); }
    void Sitting(const std::function<void()> &story) {
        fflush(stdout);
        const pid_t child = fork();
        if (child == 0) {
            const int failed = Sit(GetParam(), story);
            fflush(stdout);
            _exit(failed);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
};
INSTANTIATE_TEST_SUITE_P(Scale, Forms, testing::Values(1.0, 2.0));

// --- The owner's hands

void TapItemOf(int item) {
    for (const FormPart &part : state.OpenedForm->Parts)
        if (part.Item == item && (!part.Present || part.Present())) {
            TapAt((part.Hit.Left + part.Hit.Right) / 2, TitleHeight + (part.Hit.Top + part.Hit.Bottom) / 2);
            return;
        }
    ADD_FAILURE() << item;
}

// A press in the control, `fromRight` widget pixels from its right end or in its text.
void TapControl(QWidget *control, int fromRight = 0) {
    const QPoint inside =
        fromRight ? QPoint(control->width() - fromRight, control->height() / 2) : QPoint(6, control->height() / 2);
    QTest::mouseClick(host.Frame->windowHandle(), Qt::LeftButton, {}, control->mapTo(host.Frame, inside));
    Settle();
}

// A row of the list, by opening it.
void Pick(QComboBox *box, const char *item) {
    const int row = box->findText(QString::fromUtf8(item));
    ASSERT_GE(row, 0) << item;
    TapControl(box, 6);
    QWidget *const popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup) << item;
    QTest::keyClick(popup->windowHandle(), Qt::Key_Home);
    for (int n = 0; n < row; ++n)
        QTest::keyClick(popup->windowHandle(), Qt::Key_Down);
    QTest::keyClick(popup->windowHandle(), Qt::Key_Return);
    Settle();
    ASSERT_FALSE(QApplication::activePopupWidget());
}

std::string Shown(const char *name) {
    QWidget *const control = Control(name);
    if (const ControlDate date = GetControlDate(DateField); std::string(name) == "Date")
        return QDate(date.Year, date.Month, date.Day).toString(Qt::ISODate).toStdString();
    if (const auto *edit = qobject_cast<QLineEdit *>(control))
        return edit->text().toStdString();
    if (const auto *box = qobject_cast<QComboBox *>(control))
        return box->currentText().toStdString();
    if (const auto *note = qobject_cast<QPlainTextEdit *>(control))
        return note->toPlainText().toStdString();
    if (const auto *check = qobject_cast<QCheckBox *>(control))
        return check->isChecked() ? "on" : "off";
    return "no control";
}

enum class By { Typing, Choice, Press };
struct Entry {
    const char *Field;
    By How;
    const char *Value;
};

void Enter(const Entry &entry) {
    QWidget *const control = Control(entry.Field);
    ASSERT_TRUE(control) << entry.Field;
    switch (entry.How) {
    case By::Typing:
        TapControl(control);
        PressKey(Qt::Key_A, Qt::ControlModifier);
        Type(entry.Value);
        break;
    case By::Choice:
        Pick(qobject_cast<QComboBox *>(control), entry.Value);
        break;
    case By::Press:
        TapControl(control);
        break;
    }
}

void ShowScreen(int screen) {
    PressKey(static_cast<Qt::Key>(Qt::Key_0 + screen), Qt::ControlModifier);
}
void NewForm(int screen) {
    ShowScreen(screen);
    PressKey(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(state.OpenedForm);
}
void LastForm(int screen) {
    ShowScreen(screen);
    state.SelectedPos[screen] = state.EntryCount[screen];
    PressKey(Qt::Key_M, Qt::ControlModifier);
    ASSERT_TRUE(state.OpenedForm);
}
void Tick() {
    PressKey(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(state.OpenedForm);
}
void Cross() {
    PressKey(Qt::Key_Escape);
    EXPECT_FALSE(state.OpenedForm);
}

// --- The forms of lists

TEST_P(Forms, EveryListsFormKeepsWhatWasEntered) {
    const struct Story {
        int Screen;
        std::vector<Entry> Entries;
    } stories[] = {
        {AccountList,
         {{"Name", By::Typing, "Shares of ours"},
          {"Max enabled", By::Press, "on"},
          {"Max", By::Typing, "900"},
          {"Min", By::Typing, "12"},
          {"Account type", By::Choice, "Share"}}},
        {RecurringList,
         {{"Name", By::Typing, "Rent"},
          {"Amount", By::Typing, "750"},
          {"Fraction", By::Choice, "25"},
          {"Ref", By::Typing, "flat"},
          {"Number", By::Choice, "Cash"},
          {"Account", By::Choice, "Savings account"},
          {"Transfer", By::Choice, "Current account"},
          {"Category", By::Choice, "Cat 2 - Corporate"},
          {"Every", By::Typing, "3"},
          {"Unit", By::Choice, "Week(s)"},
          {"For", By::Typing, "12"}}},
        {TemplateList,
         {{"Name", By::Typing, "Papers"},
          {"Amount", By::Choice, "2"},
          {"Fraction", By::Typing, "125"},
          {"Ref", By::Typing, "a week's"},
          {"Number", By::Typing, "7"},
          {"Transfer", By::Choice, "Savings account"},
          {"Category", By::Choice, "Cat 1 - Credit cards"}}},
        {CategoryList, {{"Name", By::Typing, "Boats"}, {"Ref", By::Typing, "and oars"}}},
        {ConversionList,
         {{"From", By::Choice, "CHF (Switzerland) Franc"},
          {"Amount", By::Typing, "1"},
          {"Fraction", By::Typing, "062"},
          {"To", By::Typing, "cowries"},
          {"Ref", By::Typing, "May"}}},
    };
    Sitting([&] {
        for (const Story &story : stories) {
            SCOPED_TRACE(story.Screen);
            NewForm(story.Screen);
            for (const Entry &entry : story.Entries)
                Enter(entry);
            // A recurring item of a far day: it must not post itself meanwhile, and is last in its list.
            if (story.Screen == RecurringList)
                Enter({"Date", By::Typing, "31 May 2090"});
            for (const Entry &entry : story.Entries)
                EXPECT_EQ(Shown(entry.Field), entry.Value) << entry.Field;
            Tick();
        }
    });
    Sitting([&] {
        for (const Story &story : stories) {
            SCOPED_TRACE(story.Screen);
            LastForm(story.Screen);
            for (const Entry &entry : story.Entries)
                EXPECT_EQ(Shown(entry.Field), entry.Value) << entry.Field;
            EXPECT_TRUE(story.Screen != RecurringList || Shown("Date") == "2090-05-31");
            for (const Entry &entry : story.Entries)
                if (entry.How == By::Typing)
                    Enter({entry.Field, By::Typing, "9"});
            Cross();
            LastForm(story.Screen);
            EXPECT_EQ(Shown(story.Entries[0].Field), story.Entries[0].Value); // the cross keeps nothing
            Cross();
        }
    });
}

// --- The forms of transactions

// The row of transactions shown whose name begins so; 0 when there is none.
int RowNamed(std::u16string_view name) {
    for (int row = 1; row <= std::min(state.EntryCount[TransactionList], state.RowCount); ++row)
        if (std::u16string_view(state.TranRows[row].Rec.Name).starts_with(name))
            return row;
    return 0;
}

TEST_P(Forms, TheRoadIsWalkedWithMouseAndKeyboardAlone) {
    Sitting([] {
        const auto rowY = [](int row) { return 62 + (row - 1) * 17 + 9; };
        DoubleTapAt(50, rowY(1));
        ASSERT_EQ(state.CurrentScreen, TransactionList);
        const int entries = state.EntryCount[TransactionList];
        const FixedAmount last = state.TranRows[entries].Rec.RunTotal;
        DoubleTapAt(60, rowY(entries + 2));
        ASSERT_EQ(state.ActiveDialog, TransactionDialog);
        TapAt(100, 79);
        Type("Bakery");
        PressKey(Qt::Key_Tab);
        Type("12");
        PressKey(Qt::Key_Tab);
        Type("5");
        PressKey(Qt::Key_Return);
        ASSERT_EQ(state.ActiveDialog, NoDialog);
        ASSERT_EQ(state.EntryCount[TransactionList], entries + 1);
        const int row = RowNamed(u"Bakery");
        ASSERT_GT(row, 0);
        const TRec &made = state.TranRows[row].Rec;
        EXPECT_EQ(made.Value, -12500);
        EXPECT_EQ(state.TranRows[entries + 1].Rec.RunTotal, last - 12500);

        DoubleTapAt(60, rowY(row));
        ASSERT_EQ(state.ActiveDialog, TransactionDialog);
        TapAt(100, 79);
        Type("Baker"); // what stood there is replaced
        Cross();
        EXPECT_EQ(RowNamed(u"Bakery"), row); // the cross keeps nothing

        PressAt(60, rowY(row)); // a stroke
        for (int x = 66; x <= 130; x += 8)
            MoveTo(x, rowY(row));
        ReleaseAt(130, rowY(row));
        EXPECT_EQ(made.Cleared, 1u);
        host.Frame->close();
        Settle();
        EXPECT_TRUE(host.Leaving);
    });
}

TEST_P(Forms, AnEntryIsTypedChosenAndFoundAgain) {
    Sitting([] {
        ShowScreen(TransactionList);
        const int before = state.EntryCount[TransactionList];
        NewForm(TransactionList);
        Enter({"Date", By::Typing, "14"});
        Enter({"Name", By::Typing, "Bakery, a title much too long"});
        EXPECT_EQ(Shown("Name"), "Bakery, a title much too");
        Enter({"Amount", By::Typing, "1234567890"});
        EXPECT_EQ(Shown("Amount"), "12345678");
        Enter({"Amount", By::Typing, "12"});
        Enter({"Fraction", By::Choice, "50"});
        TapItemOf(FirstSignItem);
        TapItemOf(ClearedItem);
        Enter({"Amount", By::Typing, "7"});
        TapItemOf(ViewItem);
        EXPECT_EQ(Shown("Name"), "Bakery, a title much too");
        Type("12"); // in the box that had the keys, in place of what stood there
        EXPECT_EQ(Shown("Amount"), "12");
        Enter({"Transfer", By::Choice, "Savings account"});
        Enter({"Category", By::Choice, "Cat 2 - Corporate"});
        // The clipboard carries a text from box to box.
        TapControl(Control("Name"));
        PressKey(Qt::Key_A, Qt::ControlModifier);
        PressKey(Qt::Key_C, Qt::ControlModifier);
        TapControl(Control("Ref"));
        PressKey(Qt::Key_V, Qt::ControlModifier);
        PressKey(Qt::Key_Return); // the tick is the default
        EXPECT_FALSE(state.OpenedForm);
        EXPECT_EQ(state.EntryCount[TransactionList], before + 1);
    });
    Sitting([] {
        ShowScreen(TransactionList);
        const int row = state.SelectedPos[TransactionList] = RowNamed(u"Bakery");
        ASSERT_GT(row, 0);
        const TRec &found = state.TranRows[row].Rec;
        EXPECT_EQ(found.Value, 12500);
        EXPECT_EQ(found.Date.Day, 14);
        EXPECT_EQ(found.Cleared, 1u);
        EXPECT_GT(found.TransferID, 0u);
        PressKey(Qt::Key_M, Qt::ControlModifier);
        EXPECT_EQ(Shown("Ref"), "Bakery, a title much too");
        EXPECT_EQ(Shown("Category"), "Cat 2 - Corporate");
        EXPECT_EQ(Shown("Fraction"), "50");
        Cross();
    });
}

TEST_P(Forms, WhatIsTypedInOneGoIsWhatIsKept) {
    Sitting([] {
        const auto value = [] { return state.TranRows[RowNamed(u"Typed")].Rec.Value; };
        NewForm(TransactionList);
        EXPECT_EQ(host.Frame->Title.toStdString(), "New transaction");
        Enter({"Date", By::Typing, "29 Feb 2028"});
        Enter({"Name", By::Typing, "Typed"});
        Enter({"Amount", By::Typing, "+1.234,50"});
        Tick();
        ASSERT_GT(RowNamed(u"Typed"), 0);
        EXPECT_EQ(value(), 1234500);
        EXPECT_EQ(state.TranRows[RowNamed(u"Typed")].Rec.Date.Year, 2028u);
        EXPECT_EQ(state.TranRows[RowNamed(u"Typed")].Rec.Date.Day, 29);

        state.SelectedPos[TransactionList] = RowNamed(u"Typed");
        PressKey(Qt::Key_M, Qt::ControlModifier);
        Enter({"Date", By::Typing, "29 Feb 2027"});
        PressKey(Qt::Key_Return);
        ASSERT_TRUE(state.OpenedForm) << "no such day";
        EXPECT_EQ(state.MessageLine[1], 506);
        Enter({"Date", By::Typing, "28 Feb 2027"});
        Enter({"Amount", By::Typing, "-12.50"});
        PressKey(Qt::Key_Return, Qt::ShiftModifier); // and the next of the same day
        ASSERT_TRUE(state.OpenedForm);
        EXPECT_EQ(Shown("Date"), "2027-02-28");
        Cross();
        EXPECT_EQ(host.Frame->Title.toStdString(), "Zentrik");
        PressKey(Qt::Key_F1);
        EXPECT_EQ(value(), -12500);
    });
}

TEST_P(Forms, ATemplateChosenInBasicOpensTheAdvancedViewUnderTheOwnersHand) {
    Sitting([] {
        NewForm(TemplateList);
        Enter({"Name", By::Typing, "Hotel"});
        Enter({"Amount", By::Typing, "319"});
        Enter({"Number", By::Typing, "9"});
        Tick();
        NewForm(TransactionList);
        EXPECT_FALSE(Control("Number"));
        Enter({"Name", By::Choice, "Hotel"});
        ASSERT_TRUE(Control("Number"));
        EXPECT_EQ(Shown("Number"), "9");
        EXPECT_EQ(Shown("Name"), "Hotel");
        EXPECT_EQ(Shown("Amount"), "319");
        Cross();
    });
}

TEST_P(Forms, ATitleThatIsTypedLeavesTheAmountWhateverTemplateHasItsName) {
    Sitting([] {
        NewForm(TransactionList);
        Enter({"Amount", By::Typing, "12"});
        Enter({"Name", By::Typing, "ATM"}); // a template of 100.00
        PressKey(Qt::Key_Tab);
        EXPECT_EQ(Shown("Amount"), "12");
        EXPECT_EQ(Shown("Name"), "ATM");
        Cross();
    });
}

TEST_P(Forms, ATemplateWithALongNameIsLoadedWhenItIsChosen) {
    Sitting([] {
        FRec row;
        InitFRec(&row);
        CopyText(row.Name, TextRoom, u"Dragged here from a statement");
        row.Value = 7000;
        ShowScreen(TemplateList);
        ASSERT_TRUE(AddRecFile(0, 1, &row, 0));
        NewForm(TransactionList);
        Enter({"Name", By::Choice, "Dragged here from a statement"});
        EXPECT_EQ(Shown("Amount"), "7");
        Cross();
    });
}

TEST_P(Forms, AListShowsItsAccountsWholeHoweverNarrowItsBox) {
    Sitting([] {
        NewForm(AccountList);
        Enter({"Name", By::Typing, "Wwwwwww wwwwwww wwwwwww"});
        Tick();
        NewForm(RecurringList);
        for (const char *field : {"Account", "Transfer"}) {
            auto *const box = qobject_cast<QComboBox *>(Control(field));
            TapControl(box, 6);
            QWidget *const popup = QApplication::activePopupWidget();
            ASSERT_TRUE(popup);
            EXPECT_GE(box->view()->viewport()->width(), box->view()->sizeHintForColumn(0));
            EXPECT_TRUE(host.Frame->screen()->geometry().contains(popup->frameGeometry()));
            QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
            Settle();
        }
        Cross();
    });
}

TEST_P(Forms, NotepadAndSettingsAreKept) {
    Sitting([] {
        PressKey(Qt::Key_F10);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
        Settle();
        ASSERT_TRUE(Control("Notepad"));
        Type("milk");
        PressKey(Qt::Key_Return);
        Type("bread");
        Tick();
        HandleEvent({.Kind = EventKind::Command, .Code = CommandGeneral});
        Settle();
        Enter({"Look ahead", By::Choice, "14"});
        Enter({"I'm an advanced user", By::Press, "on"});
        Tick();
    });
    Sitting([] {
        HandleEvent({.Kind = EventKind::Command, .Code = CommandNotepad});
        EXPECT_EQ(Shown("Notepad"), "milk\nbread");
        Cross();
        HandleEvent({.Kind = EventKind::Command, .Code = CommandGeneral});
        EXPECT_EQ(Shown("Look ahead"), "14");
        EXPECT_EQ(Shown("I'm an advanced user"), "on");
        Enter({"Look ahead", By::Typing, "ab9"}); // letters are refused
        Tick();
        EXPECT_EQ(state.CheckAheadDays, 9);
        NewForm(TransactionList);
        EXPECT_TRUE(Control("Number"));
        Cross();
    });
}

TEST_P(Forms, UpAndDownGoThroughTheCategoriesAndKeepWhatWasTyped) {
    Sitting([] {
        LastForm(CategoryList);
        Enter({"Name", By::Typing, "Oars"});
        PressKey(Qt::Key_Up);
        EXPECT_EQ(Shown("Name"), "Cat 2 - Corporate");
        PressKey(Qt::Key_Down);
        EXPECT_EQ(Shown("Name"), "Oars");
        Cross();
        // They are the controls' own in other forms.
        LastForm(TransactionList);
        const std::string name = Shown("Name");
        TapControl(Control("Ref"));
        PressKey(Qt::Key_Up);
        EXPECT_EQ(Shown("Name"), name);
        Cross();
    });
}

TEST_P(Forms, TabGoesDownAFormAndBack) {
    Sitting([] {
        NewForm(RecurringList);
        const char *const order[] = {"Date",    "Name",     "Amount",   "Fraction", "Ref",  "Number",
                                     "Account", "Transfer", "Category", "Every",    "Unit", "For"};
        const auto focused = [] {
            for (QWidget *one = host.Frame->focusWidget(); one; one = one->parentWidget())
                if (!one->accessibleName().isEmpty())
                    return one->accessibleName().toStdString();
            return std::string();
        };
        TapControl(Control("Date"));
        for (size_t n = 0; n < std::size(order); ++n) {
            EXPECT_EQ(focused(), order[n]);
            PressKey(Qt::Key_Tab);
        }
        EXPECT_EQ(focused(), "Date");
        PressKey(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focused(), "For");
        Cross();
    });
}

// --- The exchange

TEST_P(Forms, AnAccountGoesOutAndComesInAgain) {
    Sitting([] {
        ShowScreen(TransactionList);
        const int before = state.EntryCount[TransactionList];
        HandleEvent({.Kind = EventKind::Command, .Code = CommandExport});
        Settle();
        EXPECT_EQ(Shown("File name"), "Acc_Current_account");
        EXPECT_EQ(Shown("Format"), " csv");
        Enter({"File name", By::Typing, "mine"});
        Tick();
        HandleEvent({.Kind = EventKind::Command, .Code = CommandImport});
        Settle();
        EXPECT_EQ(Shown("File name"), "<no files>");
        EXPECT_EQ(Shown("Security"), "<not applicable>");
        Enter({"Format", By::Choice, " csv"});
        EXPECT_EQ(Shown("File name"), "mine");
        TapItemOf(FirstChoiceItem);
        Tick();
        EXPECT_EQ(state.EntryCount[TransactionList], 2 * before - 1); // but for the Day marker
        EXPECT_EQ(state.ImportCount[0], before - 1);
    });
    Sitting([] {
        ShowScreen(TransactionList);
        EXPECT_EQ(state.EntryCount[TransactionList], 9);
        HandleEvent({.Kind = EventKind::Command, .Code = CommandImport});
        Settle();
        PressKey(Qt::Key_F2);
        EXPECT_EQ(state.DateOption, 1);
        Cross();
        EXPECT_EQ(state.EntryCount[TransactionList], 9);
    });
}

TEST_P(Forms, AtRestNothingWakesTheProgram) {
    Sitting([] {
        constexpr int AfterTheLastWork = 1500, Watched = 500; // milliseconds
        const auto wait = [](int milliseconds) {
            QEventLoop loop;
            QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
            loop.exec();
        };
        wait(AfterTheLastWork);
        int woken = 0;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, [&] { ++woken; });
        wait(Watched);
        EXPECT_LE(woken, 4) << "by the clock at the most, and by this wait";
    });
}

} // namespace
