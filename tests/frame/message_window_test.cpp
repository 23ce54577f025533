// The owner's help lines on the screen, and the way in and out of help mode.
#include "drawing/colours.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "host/test_host.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/windows.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

struct Call {
    Window Where;
    int Mask, Screen, Rows, Top;
    bool operator==(const Call &) const = default;
};
std::vector<Call> calls;

void NotePaint(Window window, int mask) {
    calls.push_back({window, mask, state.CurrentScreen, state.RowCount, state.TopPos[state.CurrentScreen]});
}

class Messages : public testing::Test {
protected:
    Messages() {
        root.MakeDataDirectory();
        LoadHelp();
        calls.clear();
        state.FrontPageDone = 1;
        state.Paint[0] = PaintMessages;
        for (int screen = AccountList; screen <= ConversionList; ++screen)
            state.Paint[screen] = NotePaint;
    }
    void OpenQuietly() {
        state.MessageWindowOn = state.HelpMode = 1;
        state.RowCount = RowsAboveMessages;
    }
    TestRoot root;
};

TEST_F(Messages, EachLineStandsInItsPlaceAndWarningsAreRed) {
    OpenQuietly();
    ShowHelpMessage(1, 0, 211, 0, 278, 0, 0, 999);
    std::vector<StandingText> texts = TextsOn(ListWindow);
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].Words, "!*** Invalid input ***!");
    EXPECT_TRUE(IsRed(texts[0].InkColour));
    EXPECT_EQ(texts[0].Box.Top, 150);
    EXPECT_EQ(texts[0].Place, Align::Centre);
    EXPECT_EQ(texts[0].Face, Font::Bold);
    EXPECT_EQ(texts[1].Words, "A % depreciation/appreciation");
    EXPECT_EQ(texts[1].InkColour, Black);
    EXPECT_EQ(texts[1].Box.Top, 150 + 2 * 13);
    EXPECT_EQ(ColourAt(ListWindow, 120, 147), White);
    EXPECT_EQ(ColourAt(ListWindow, 120, 146), NothingPainted);

    ShowHelpMessage(0, 0, 1, 2, 3, 4, 5, 6);
    texts = TextsOn(ListWindow);
    ASSERT_EQ(texts.size(), 6u) << "the lines before are gone";
    for (const StandingText &text : texts) {
        EXPECT_EQ(text.Ink.Left, 2) << text.Words;
        EXPECT_FALSE(text.Cut) << text.Words;
    }
    EXPECT_LE(texts[5].Box.Bottom, 268 - 36) << "above the command bar";
}

TEST_F(Messages, ArePaintedWhereTheOwnerLooksAndOnlyWhenTheyChange) {
    constexpr struct {
        Dialog Open;
        int Hub;
        Window Where;
        int Top;
    } cases[] = {
        {NoDialog, 0, ListWindow, 150},        {TransactionDialog, 0, DialogWindow, 189},
        {PaletteDialog, 0, HostWindow, 189},   {PassCodeDialog, 0, HostWindow, 189},
        {ArchiveDialog, 0, DialogWindow, 189}, {NoDialog, 1, NoWindow, 0},
        {TransactionDialog, 1, NoWindow, 0},
    };
    for (const auto &row : cases) {
        ResetHost();
        OpenQuietly();
        state.ActiveDialog = row.Open;
        state.HubState = row.Hub;
        for (const int force : {1, 0}) // the second time the lines stand already
            ShowHelpMessage(1, force, 1, 2, 3, 4, 5, 6);
        for (const Window window : {TopWindow, ListWindow, HostWindow, HubWindow, DialogWindow})
            EXPECT_EQ(painted[window].Texts, window == row.Where ? 6 : 0);
        if (row.Where != NoWindow) {
            const std::vector<StandingText> texts = TextsOn(row.Where);
            EXPECT_EQ(texts.at(0).Box.Top, row.Top);
            EXPECT_LE(texts.at(5).Box.Bottom, 268) << "above the command bar";
        }
    }
    ResetHost();
    state.HelpMode = state.MessageWindowOn = state.ActiveDialog = state.HubState = 0;
    ShowHelpMessage(1, 1, 1, 2, 3, 4, 5, 6);
    EXPECT_EQ(painted[ListWindow].Texts, 0);
}

TEST_F(Messages, ImportReportTellsWhatWentWrongInRed) {
    const Colour WarningInk = InkOn(White, AlertRed);
    EXPECT_TRUE(IsRed(WarningInk));
    const struct {
        int32_t Counts[6];
        uint32_t Succeeded;
        Colour Inks[5];
        const char *Summary;
    } cases[] = {
        {{12, 0, 0, 0, 0, 12}, 1, {Green, Black, Black, Black, Black}, "Imported 12 of 12"},
        {{1, 2, 3, 4, 5, 15}, 0, {MutedGrey, WarningInk, MutedGrey, WarningInk, WarningInk}, "Imported 3 of 15"},
    };
    constexpr const char *words[] = {"entries imported (well formed)", "entries imported (badly formed)",
                                     "entries skipped (as requested)", "entries skipped (unreadable)",
                                     "entries skipped (file too big)"};
    for (const auto &row : cases) {
        OpenQuietly();
        std::copy(std::begin(row.Counts), std::end(row.Counts), state.ImportCount);
        state.ImportSucceeded = row.Succeeded;
        ShowHelpMessage(0, 1, -1, -2, -3, -4, -5, -6);
        for (int n = 0; n < 6; ++n) {
            const Rect line = {0, 150 + n * 13, 240, 163 + n * 13};
            EXPECT_EQ(TextAt(ListWindow, line), n == 5 ? std::string("Summary:      ") + row.Summary
                                                       : std::to_string(row.Counts[n]) + " | " + words[n]);
            for (const StandingText &text : TextsIn(ListWindow, line)) {
                EXPECT_FALSE(text.Cut) << text.Words;
                EXPECT_EQ(text.InkColour, n < 5 ? row.Inks[n] : Black) << text.Words;
                EXPECT_TRUE(text.Ink.Left >= 37 || text.Ink.Right == 35) << text.Words;
            }
        }
    }
    ShowHelpMessage(0, 1, -7, -32768, 0, 0, 0, 0);
    EXPECT_TRUE(TextsOn(ListWindow).empty()) << "no such lines";
}

TEST_F(Messages, EyesOpenHelpOverTheListAndShutItAgain) {
    for (int n = 1; n <= 30; ++n) {
        ARec account;
        InitARec(&account);
        account.ID = static_cast<uint32_t>(n);
        CopyText(account.Name, 32, u"Account");
        state.CurrentScreen = AccountList;
        ASSERT_EQ(AddRecFile(0, n, &account, 1), 1);
    }
    LoadAccFile(1);
    state.SelectedPos[AccountList] = 20;
    calls.clear();
    machine.HasPanel = machine.PanelIsUp = true;

    ToggleEyes();
    EXPECT_TRUE(state.HelpMode && state.MessageWindowOn);
    EXPECT_EQ(calls, (std::vector<Call>{{ListWindow, PaintAll, AccountList, 7, 17}}));
    EXPECT_EQ(state.AccRows[1].ID, 17u) << "the rows shown are those of the new top";
    EXPECT_EQ(machine.Scroll.Box.Bottom, 120);
    EXPECT_EQ(state.RepaintSkip, 1);
    EXPECT_FALSE(machine.PanelIsUp);
    EXPECT_EQ(Lines(), "This is Help mode/Tap an item on the screen/for information on that item//"
                       "To exit Help mode, tap the eyes below/");
    EXPECT_EQ(TextsOn(ListWindow).size(), 4u);
    EXPECT_EQ(machine.Bar[7].Cell, 10);
    EXPECT_EQ(machine.Bar[8].Cell, 10);

    calls.clear();
    ToggleEyes();
    EXPECT_FALSE(state.HelpMode || state.MessageWindowOn);
    EXPECT_EQ(calls, (std::vector<Call>{{ListWindow, PaintRows | PaintTabs, AccountList, 12, 14}}));
    EXPECT_EQ(state.AccRows[12].ID, 25u);
    EXPECT_EQ(machine.Scroll.Box.Bottom, 205);
    EXPECT_EQ(state.RepaintSkip, 1);
    EXPECT_EQ(machine.Bar[7].Cell, 9);
}

TEST_F(Messages, AnEmptyListAndTheGraphAreRepaintedWhole) {
    for (int screen : {static_cast<int>(CategoryList), static_cast<int>(GraphList)}) {
        state.CurrentScreen = screen;
        state.TopPos[screen] = 1;
        calls.clear();
        ToggleEyes();
        ToggleEyes();
        const int closing = screen == GraphList ? PaintAll : PaintRows | PaintTabs;
        EXPECT_EQ(calls,
                  (std::vector<Call>{{ListWindow, PaintAll, screen, 7, 1}, {ListWindow, closing, screen, 12, 1}}));
    }
}

TEST_F(Messages, LeavingTheHubKeepsHelpAndItsLines) {
    ToggleEyes();
    ShowHelpMessage(1, 0, 466, 467, 470, 471, 0, 0);
    state.HubState = 1;
    ShowWindow(HubWindow, 1);
    LeaveHelpOrHub(CommandHub);
    EXPECT_EQ(state.HubState, 0);
    EXPECT_FALSE(machine.Shown[HubWindow]);
    EXPECT_TRUE(state.HelpMode && state.MessageWindowOn);
    EXPECT_EQ(Line(0), "HUB is the Zent focus for data control");
    EXPECT_EQ(TextsOn(ListWindow).size(), 4u);
}

TEST_F(Messages, AReportOpensTheWindowWithoutHelpMode) {
    ToggleHelpMode(1, 0);
    EXPECT_TRUE(state.MessageWindowOn);
    EXPECT_FALSE(state.HelpMode);
    EXPECT_EQ(TextsOn(ListWindow).size(), 4u) << "painted, although help mode is off";
    ToggleEyes();
    EXPECT_TRUE(state.MessageWindowOn && state.HelpMode) << "the eyes turn it into help mode and do not close it";
    EXPECT_EQ(state.RowCount, 7);
}

} // namespace
