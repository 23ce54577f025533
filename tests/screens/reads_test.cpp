// What is read when: a repaint opens no file, wherever the owner is; what the owner does opens each file once or twice.
#include "device.h"
#include "frame/shown.h"
#include "program/invariants.h"
#include "resources/menus.h"

namespace {

constexpr int IconY = 50, GraphIcon = 10, RegressionIcon = 30, ExtrapolationIcon = 50, BarIcon = 73, PieIcon = 93;

void ShowGraph(int icon) {
    ShowScreen(GraphList);
    Tap(icon, IconY);
}
void Open(int screen, int command = CommandModify) {
    ShowScreen(screen);
    ASSERT_TRUE(SendCommand(command));
    ASSERT_TRUE(state.ActiveDialog != NoDialog || state.PageShown != Page::None);
}
void EnlargeHub() {
    SendCommand(CommandHub);
    SendCommand(CommandHub);
}

constexpr Event Repaint = {.Kind = EventKind::Paint};

class Reads : public Device {
protected:
    Reads() {
        ShowScreen(ConversionList);
        machine.Rests = false; // the rest opens files to sync them
    }
    // The files opened in an event, and how often: "E1_01IND 1, E1_02A1 2".
    static std::string Opened(void (*work)()) {
        ResetDisk();
        work();
        std::string all;
        for (const auto &[name, opens] : disk.OpensOf)
            all += (all.empty() ? "" : ", ") + name + " " + std::to_string(opens);
        return all;
    }
};

TEST_F(Reads, ARepaintOpensNoFile) {
    static const struct {
        const char *Where;
        void (*Go)();
    } places[] = {
        {"accounts", [] { ShowScreen(AccountList); }},
        {"transactions", [] { ShowScreen(TransactionList); }},
        {"graph", [] { ShowGraph(GraphIcon); }},
        {"its pointer", [] { Tap(96, 114); }},
        {"regression", [] { ShowGraph(RegressionIcon); }},
        {"extrapolation", [] { ShowGraph(ExtrapolationIcon); }},
        {"bars", [] { ShowGraph(BarIcon); }},
        {"pie", [] { ShowGraph(PieIcon); }},
        {"recurring", [] { ShowScreen(RecurringList); }},
        {"templates", [] { ShowScreen(TemplateList); }},
        {"bin", [] { ShowScreen(BinList); }},
        {"categories", [] { ShowScreen(CategoryList); }},
        {"conversions", [] { ShowScreen(ConversionList); }},
        {"notepad", [] { Open(AccountList, CommandNotepad); }},
        {"configuration", [] { Open(AccountList, CommandGeneral); }},
        {"pass code", [] { Open(AccountList, CommandPasswordOn); }},
        {"backup", [] { Open(AccountList, CommandBackup); }},
        {"restore", [] { Open(AccountList, CommandRestore); }},
        {"about", [] { Open(AccountList, CommandAbout); }},
        {"import", [] { Open(TransactionList, CommandImport); }},
        {"export", [] { Open(TransactionList, CommandExport); }},
        {"account form", [] { Open(AccountList); }},
        {"transaction form", [] { Open(TransactionList); }},
        {"recurring form", [] { Open(RecurringList); }},
        {"template form", [] { Open(TemplateList); }},
        {"category form", [] { Open(CategoryList); }},
        {"palette",
         [] {
             Open(CategoryList);
             SendKey(Key::FlagPart);
         }},
        {"conversion form", [] { Open(ConversionList); }},
    };
    for (void (*cover)() : {+[] {}, +[] { SendCommand(CommandHub); }, EnlargeHub, +[] { SendKey(Key::Help); }})
        for (const auto &place : places) {
            SCOPED_TRACE(place.Where);
            place.Go();
            cover();
            for (testhost::PaintCounts &counts : painted)
                counts = {};
            EXPECT_EQ(Opened([] { SendEvent(Repaint); }), "");
            int texts = 0;
            for (const testhost::PaintCounts &counts : painted)
                texts += counts.Texts + counts.Images;
            EXPECT_GT(texts, 0);
            while (state.HubState != HubClosed || state.ActiveDialog != NoDialog || state.PageShown != Page::None)
                SendKey(Key::Escape);
            if (state.HelpMode)
                SendKey(Key::Help);
        }
}

TEST_F(Reads, WhatAnOwnerDoesOpensEachFileOnceOrTwice) {
    static const struct {
        const char *What;
        void (*Do)();
    } deeds[] = {
        {"the tab", [] { ShowScreen(TransactionList); }},
        {"a form", [] { SendCommand(CommandNew); }},
        {"its tick", [] { SetText(TitleField, "Bus"), SetText(WholeField, "3"), SendCommand(CommandTick); }},
        {"a stroke", [] { StrokeRow(2); }},
        {"a deletion", [] { SendCommand(CommandDeleteOne); }},
        {"the bin", [] { TapSlot(6); }},
        {"its row back", [] { DragToSlot(1, 2); }},
        {"watched limits", [] { ShowScreen(AccountList), SendCommand(CommandJeopardyOn); }},
        {"a filter", [] { ShowScreen(TransactionList), SendCommand(ShowName); }},
        {"its end", [] { SendCommand(CommandFilterOff); }},
        {"an archived row", [] { SendCommand(CommandArchive); }},
        {"the graph", [] { ShowGraph(GraphIcon); }},
        {"a chart", [] { Tap(PieIcon, IconY); }},
        {"the account beside", [] { SendKey(Key::Right); }},
    };
    for (const auto &deed : deeds) {
        EXPECT_NE(Opened(deed.Do), "") << deed.What;
        for (const auto &[name, opens] : disk.OpensOf)
            EXPECT_TRUE(opens <= 2 || name == "CHART") << deed.What << " opens " << name << ' ' << opens << " times";
    }
    ShowScreen(AccountList);
    EXPECT_EQ(Opened([] { TapRow(2); }), "E1_01IND 1");
    ShowScreen(TransactionList);
    EXPECT_EQ(Opened([] { SendKey(Key::Up), Tap(220, IconY); }), "") << "the row and the column beside";
}

TEST_F(Reads, WhatIsAlwaysTrueIsAskedAfterEveryEvent) {
    static const struct {
        const char *Broken;
        void (*Break)();
    } cases[] = {
        {"no action runs", BeginAction},
        {"one of the screens is shown", [] { state.CurrentScreen = NoList; }},
        {"positions count from 1, and counts from 0", [] { state.TopPos[BinList] = 0; }},
        {"columns stand from left to right", [] { state.ColumnEdge[TransactionList][2] = 230; }},
        {"an open form is the active dialog", [] { state.ActiveDialog = ClosingDialog; }},
        {"the list leaves room for the messages", [] { state.RowCount = RowsAboveMessages; }},
        {"rates are picked from the panel", [] { state.HubPicking = 1; }},
        {"the sample table is within its room", [] { state.SampleCount = MostSamples + 1; }},
        {"the selected sample is the selected entry", [] { ++state.SelectedEntry; }},
        {"charts have a group and an order", [] { state.AnalysisGroup = 0; }},
        {"the table of a chart is within it", [] { state.GraphMode = 4, state.ChartRowCount = MostRows; }},
        {"no entry waits to be placed", [] { state.WaitingCount = 1; }},
        {"no new pass code lies about", [] { state.FirstEntry[0] = u'1'; }},
    };
    ShowGraph(GraphIcon);
    static const State before = state;
    for (const auto &row : cases) {
        ASSERT_EQ(BrokenInvariant(), nullptr);
        row.Break();
        EXPECT_STREQ(BrokenInvariant(), row.Broken);
        AbortAction();
        state = before;
    }
#ifndef NDEBUG
    EXPECT_DEATH((state.WaitingCount = 1, SendKey(Key::Up)), "Not always true: no entry waits to be placed");
    // Nor is a file opened by a painter.
    EXPECT_DEATH((
                     state.Paint[GraphList] = [](Window, int) { ReloadList(BinList, 1); }, SendEvent(Repaint)),
                 "Painting");
#endif
}

} // namespace
