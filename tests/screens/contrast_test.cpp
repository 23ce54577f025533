// Whatever ink the painters put on whatever fill can be read: at least 4.5 to 1 of light between the two.
#include "drawing/cells.h"
#include "drawing/colours.h"
#include "frame/header.h"
#include "host/device.h"
#include "screens/list_screen.h"
#include "state/messages.h"
#include <algorithm>
#include <cmath>
#include <set>

using namespace testhost;

namespace {

double Light(Colour colour) {
    double sum = 0;
    constexpr double Weights[] = {0.0722, 0.7152, 0.2126}; // blue, green, red
    for (int part = 0; part < 3; ++part) {
        const double level = (colour >> (8 * part) & 0xFF) / 255.0;
        sum += Weights[part] * (level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4));
    }
    return sum;
}

double Contrast(Colour a, Colour b) {
    const double lighter = std::max(Light(a), Light(b)), darker = std::min(Light(a), Light(b));
    return (lighter + 0.05) / (darker + 0.05);
}

struct Pairs {
    std::set<std::pair<Colour, Colour>> Seen;
    int Red = 0;

    // What stands on the screen now. What is grey because it can't be used is not meant to be read first.
    void Look() {
        for (const Window window : {TopWindow, ListWindow, DialogWindow})
            for (const StandingText &text : TextsOn(window)) {
                const int x = (text.Ink.Left + text.Ink.Right) / 2, y = (text.Ink.Top + text.Ink.Bottom) / 2;
                const Colour fill = ColourAt(window, x, y);
                if (fill == NothingPainted || ImageAt(window, x, y) || text.InkColour == MutedGrey)
                    continue;
                if (Seen.insert({text.InkColour, fill}).second)
                    Red += IsRed(text.InkColour);
                EXPECT_GE(Contrast(text.InkColour, fill), 4.5)
                    << text.Words << ": " << std::hex << text.InkColour << " on " << fill;
            }
    }
};

// The first row of the screen shown, with its amounts below 0 and everything about it wrong.
void MakeAlarming(int kind, uint32_t cleared) {
    ARec &account = state.AccRows[1];
    account.Balance = account.ClearedBalance = account.ArcBalance = account.ArcClearedBalance = -1234560;
    account.BalanceInJeopardy = account.ClearedInJeopardy = cleared;
    TRec &entry = state.TranRows[1].Rec;
    entry.RowKind = static_cast<uint8_t>(kind);
    entry.Value = entry.RunTotal = entry.RunCleared = -1234560;
    entry.Units = 1;
    entry.Cleared = cleared;
    DDRec &item = state.DDRows[1];
    item.ItemStatus = 3;
    item.Remaining = cleared ? 0 : 5;
    item.Block[0].Value = item.Block[1].Value = -1234560;
    FRec &model = state.FavRows[1];
    model.Value = -1234560;
    model.Units = 1;
    model.Cleared = cleared;
    CurRec &rate = state.CurRows[1];
    rate.Rate = rate.InverseRate = -1234560;
}

TEST_F(Device, EveryInkIsReadOnItsFill) {
    Pairs pairs;
    for (int list = AccountList; list <= ConversionList; ++list)
        for (const uint32_t archive : {0U, 1U})
            for (const uint32_t reconciled : {0U, 1U}) {
                state.ArchiveView = 0;
                ShowScreen(list);
                state.ArchiveView = archive;
                state.ReconciledView = reconciled;
                state.Paint[list](ListWindow, PaintAll);
                pairs.Look();
                if (list == GraphList || list == BinList)
                    continue;
                for (const int kind : {EntryRow, DayMarker, ArchiveMarker, DeletedMarker, ReconcileEntry})
                    for (const uint32_t cleared : {0U, 1U})
                        for (const int mode : {PlainRow, MarkedRow, SelectedRow, SelectedMarkedRow})
                            for (const int step : {0, 1, 2}) {
                                state.ReconcileState = static_cast<ReconcileStep>(step);
                                MakeAlarming(kind, cleared);
                                ScreenOf(list)->PaintRow(ListWindow, state.TopPos[list], mode);
                                pairs.Look();
                            }
                state.ReconcileState = ReconcileStep::Idle;
            }
    // The bin, where a row looks as it did where it came from.
    state.ArchiveView = 0;
    ShowScreen(AccountList);
    SendKey(Key::Delete);
    ShowScreen(BinList);
    for (int from = AccountList; from <= ConversionList; ++from)
        for (const uint32_t cleared : {0U, 1U})
            for (const int mode : {PlainRow, SelectedRow}) {
                BinRec &row = state.BinRows[1];
                row.SourceList = static_cast<uint32_t>(from);
                row.Value = row.Value2 = row.Totals[0] = row.Totals[1] = -1234560;
                row.Units = row.Units2 = 1;
                row.Cleared = cleared;
                row.Remaining = cleared ? 0 : 5;
                if (from == GraphList)
                    continue;
                ScreenOf(BinList)->PaintRow(ListWindow, state.TopPos[BinList], mode);
                pairs.Look();
            }
    SendKey(Key::Help);
    for (const int line : {211, 128, 500}) {
        ShowHelpMessage(1, 1, line, 0, 0, 0, 0, 0);
        pairs.Look();
    }
    EXPECT_GE(pairs.Seen.size(), 25U); // the walk has been everywhere
    EXPECT_GE(pairs.Red, 10);
}

TEST(Ink, IsLeftAloneWhereItCanBeReadAndMovesAsLittleAsItMust) {
    EXPECT_EQ(InkOn(Rgb(255, 255, 255), Rgb(0, 0, 0)), Rgb(0, 0, 0));
    EXPECT_EQ(InkOn(Rgb(0, 39, 159), Rgb(255, 255, 255)), Rgb(255, 255, 255));
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 15)
            for (int blue = 0; blue < 256; blue += 51)
                EXPECT_GE(Contrast(InkOn(Rgb(red, green, blue), Rgb(255, 0, 0)), Rgb(red, green, blue)), 4.5)
                    << red << ' ' << green << ' ' << blue;
    EXPECT_TRUE(IsRed(InkOn(Rgb(255, 255, 255), Rgb(255, 0, 0))));
    EXPECT_TRUE(IsRed(InkOn(Rgb(0, 39, 159), Rgb(255, 0, 0))));
}

} // namespace
