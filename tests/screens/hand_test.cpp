// What makes the program easy in the hand: search by typing, questions before what leaves the bin for good, rows that
// come into view before anything happens to them, columns that stay as they were drawn, the next entry of a pile.
#include "frame/changes.h"
#include "frame/shown.h"
#include "host/device.h"
#include "program/door.h"

using namespace testhost;

namespace {

void Type(const char *text) {
    for (; *text; ++text)
        if (*text == ' ')
            SendKey(Key::Stroke);
        else if (*text >= '0' && *text <= '9')
            SendKey(static_cast<Key>(static_cast<int>(Key::Digit0) + *text - '0'));
        else
            SendEvent({.Kind = EventKind::Character, .Code = *text});
}

std::string SelectedName() {
    TRec row;
    return FetchTran(state.SelectedPos[TransactionList], &row) ? Utf8(row.Name) : "";
}

TEST_F(Device, SearchGoesToTheNextRowThatHoldsTheWords) {
    ShowScreen(TransactionList);
    const std::vector<uint8_t> before = ReadBytes(root.DataFile("E1_02A1"));
    state.SelectedPos[TransactionList] = 2;
    const struct {
        const char *Typed, *Found, *Title;
    } cases[] = {
        {"rent", "Rent", "Find: rent"},
        {"VISA", "Visa payment", "Find: VISA"},
        {"a", "ATM", "Find: a"},
        {"pay vis", "Visa payment", "Find: pay vis"},
        {"248.0", "Rent", "Find: 248.0"},
        {"344", "Visa payment", "Find: 344"},
        {"pay 344.98", "Visa payment", "Find: pay 344.98"},
        {"open", "Opening balance", "Find: open"}, // round the end
        {"rentx", "Rent", "Find: rentx  (none)"},  // stays at the last that held
    };
    for (const auto &one : cases) {
        SendKey(Key::Find);
        Type(one.Typed);
        EXPECT_EQ(SelectedName(), one.Found) << one.Typed;
        EXPECT_EQ(machine.Title, one.Title);
        SendKey(Key::Escape);
        EXPECT_EQ(SelectedName(), "ATM") << "Escape goes back";
        EXPECT_EQ(machine.Title, "");
    }
    SendKey(Key::Find);
    Type("a");
    std::string found = SelectedName();
    for (int n = 0; n < 4; ++n) {
        SendKey(Key::Enter);
        found += "," + SelectedName();
    }
    EXPECT_EQ(found, "ATM,Rent,Monday,Visa payment,Opening balance");
    Type("x");
    SendKey(Key::Backspace);
    SendKey(Key::Enter);
    SendKey(Key::Down); // any other key stays there, and does its own
    EXPECT_EQ(SelectedName(), "Monday");
    EXPECT_EQ(machine.Title, "");
    Type("q"); // no search: nothing hears it
    EXPECT_EQ(SelectedName(), "Monday");
    EXPECT_EQ(ReadBytes(root.DataFile("E1_02A1")), before);
    EXPECT_TRUE(ReadBytes(root.DataFile("E1_02AF1")).empty());
}

TEST_F(Device, SearchWorksOnEveryScreenWithTitles) {
    const struct {
        int Screen;
        const char *Typed;
        int Found;
    } cases[] = {
        {AccountList, "work", 3}, {AccountList, "6033", 2}, {CategoryList, "corp", 2}, {TemplateList, "atm", 0}};
    for (const auto &one : cases) {
        ShowScreen(one.Screen);
        state.SelectedPos[one.Screen] = 1;
        SendKey(Key::Find);
        Type(one.Typed);
        EXPECT_TRUE(one.Found == 0 || state.SelectedPos[one.Screen] == one.Found) << one.Typed;
        EXPECT_EQ(machine.Title.find("none"), std::string::npos) << one.Typed;
        SendKey(Key::Escape);
        EXPECT_EQ(state.SelectedPos[one.Screen], 1);
    }
    ShowScreen(GraphList); // nothing to search
    SendKey(Key::Find);
    EXPECT_EQ(machine.Title, "");
}

TEST_F(Device, ARowOutOfViewComesIntoViewBeforeAnythingHappensToIt) {
    ShowScreen(TransactionList);
    for (int n = 0; n < 30; ++n) {
        TRec row;
        InitTRec(&row);
        row.RowKind = EntryRow;
        row.Units = 1;
        ASSERT_TRUE(AddRecFile(1, 1, &row, 0));
    }
    ShowScreen(TransactionList);
    for (const Key key : {Key::Stroke, Key::Delete}) {
        state.SelectedPos[TransactionList] = 3;
        Scroll(ScrollCode::Bottom);
        const std::vector<TRec> before = Rows();
        SendKey(key);
        EXPECT_TRUE(state.TopPos[TransactionList] <= 3) << "it shows";
        EXPECT_EQ(Rows().size(), before.size());
        EXPECT_EQ(Rows()[2].Cleared, before[2].Cleared);
        SendKey(key);
        EXPECT_TRUE(Rows().size() < before.size() || Rows()[2].Cleared != before[2].Cleared);
    }
}

TEST_F(Device, WhatLeavesTheBinForGoodIsAskedOnce) {
    ShowScreen(TemplateList);
    for (int n = 0; n < 3; ++n) {
        TapRow(1);
        SendKey(Key::Delete); // into the bin: no question
    }
    ShowScreen(BinList);
    TapRow(1);
    const auto sizeAfter = [](Key key) {
        SendKey(key);
        return state.EntryCount[BinList];
    };
    EXPECT_EQ(sizeAfter(Key::Delete), 3);
    EXPECT_EQ(TextAt(ListWindow, {0, 147, 240, 268}).rfind("Delete this entry for good?", 0), 0u);
    EXPECT_EQ(sizeAfter(Key::Delete), 2);
    EXPECT_EQ(state.HelpMode, 0u);
    EXPECT_EQ(sizeAfter(Key::Delete), 2);
    EXPECT_EQ(sizeAfter(Key::Up), 2); // another key is a no
    EXPECT_EQ(sizeAfter(Key::Delete), 2);
    TapRow(2); // another row is another question
    EXPECT_EQ(sizeAfter(Key::Delete), 2);
    SendCommand(CommandEmptyBin);
    EXPECT_EQ(sizeAfter(Key::Drop6), 2);
    EXPECT_EQ(sizeAfter(Key::Drop6), 1);
    SendCommand(CommandEmptyBin);
    EXPECT_EQ(Ids(), "0,505,502,0,503,504"); // asked, in a window that opens for it
    EXPECT_EQ(state.RowCount, 7);
    EXPECT_EQ(sizeAfter(Key::Up), 1);
    EXPECT_EQ(state.RowCount, 12);
    SendKey(Key::Help); // an owner's own help stays
    SendKey(Key::Delete);
    SendKey(Key::Escape);
    EXPECT_EQ(state.EntryCount[BinList], 1);
    SendCommand(CommandEmptyBin);
    SendCommand(CommandEmptyBin);
    EXPECT_EQ(TextAt(TopWindow, {210, 0, 240, 15}), "0");
}

TEST_F(Device, ColumnsStayAsTheyWereDrawnWhateverEndsTheProgram) {
    constexpr int Screens[] = {AccountList, TransactionList, RecurringList, TemplateList, BinList, ConversionList};
    for (const int screen : Screens) {
        ShowScreen(screen);
        const int edge = state.ColumnEdge[screen][1];
        EXPECT_TRUE(CanDragEdge(TopWindow, edge, 24)) << screen;
        EXPECT_FALSE(CanDragEdge(ListWindow, edge, 24));
        Drag(edge, 50, edge + 9, 50);
        EXPECT_NE(state.ColumnEdge[screen][1], edge) << screen;
    }
    int32_t drawn[ScreenCount + 1][5];
    std::memcpy(drawn, state.ColumnEdge, sizeof drawn);
    for (const bool closed : {false, true}) {
        if (closed)
            QuitProgram();
        ASSERT_TRUE(StartProgram());
        ShowScreen(TransactionList);
        for (const int screen : Screens)
            for (int edge = 1; edge < 4; ++edge)
                EXPECT_NEAR(state.ColumnEdge[screen][edge], drawn[screen][edge], 1) << screen;
    }
}

TEST_F(Device, ShiftEnterTicksAndOpensTheNextEntryOfTheSameDay) {
    New(TransactionList);
    EXPECT_EQ(machine.Title, "New transaction");
    SetDate(DateField, 2026, 2, 14);
    SetText(TitleField, "First");
    SendKey(Key::TickAndNext);
    ASSERT_NE(form.Resource, 0);
    EXPECT_EQ(machine.Title, "New transaction");
    EXPECT_EQ(form.Controls[DateField].Date.Day, 14);
    EXPECT_EQ(ControlText(TitleField), "");
    SetText(TitleField, "Second");
    Tick();
    EXPECT_EQ(machine.Title, "");
    EXPECT_EQ(Rows()[1].Date.Day, 14);
    EXPECT_EQ(Rows()[2].Date.Day, 14);
    EXPECT_EQ(Rows().size(), 7u);
    New(AccountList); // where nothing follows it is the tick
    SendKey(Key::TickAndNext);
    EXPECT_EQ(form.Resource, 0);
}

TEST_F(Device, EveryMarkTabAndFormHasAName) {
    const auto words = [](Window window, int x, int y) {
        const Hint hint = HintAt(window, x, y);
        return hint.Words ? Utf8(hint.Words) : "";
    };
    EXPECT_EQ(words(ListWindow, 20, 215), "Accounts");
    EXPECT_EQ(HintAt(ListWindow, 20, 215).Pressed, Key::Tab1);
    EXPECT_EQ(words(ListWindow, 235, 215), "The other tabs");
    EXPECT_EQ(words(ListWindow, 20, 20), "");
    EXPECT_EQ(words(TopWindow, 40, 5), "The account before");
    for (const int screen : {TransactionList, RecurringList, TemplateList, ConversionList, AccountList}) {
        New(screen);
        EXPECT_NE(machine.Title, "");
        for (const FormPart &part : state.OpenedForm->Parts)
            EXPECT_TRUE((part.Present && !part.Present()) || part.Hit.Right <= part.Hit.Left ||
                        !(part.Item || part.Field) || words(DialogWindow, part.Hit.Left, part.Hit.Top) != "")
                << screen << ": " << part.Item;
        Cross();
    }
    // A minus that is typed is the sign.
    New(TransactionList);
    for (const auto &[change, sign] : {std::pair(ControlChange::Plus, 1u), {ControlChange::Minus, 0u}}) {
        SendEvent({.Kind = EventKind::Control, .Control = WholeField, .Change = change});
        EXPECT_EQ(state.FirstSign, sign);
    }
    Cross();
}

} // namespace
