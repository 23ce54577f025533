// Screen 8: the conversions, each shown forward or reversed.
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/refusal.h"
#include "resources/deeds.h"
#include "resources/geometry.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "store/windows.h"

namespace {

// --- Rows

void Explain(int) {
    ShowHelp(Help::Conversion);
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(u"Conversions");
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {{u"A =", u"A ="}, {u"Rate", u"Rate"}, {u"X B", u"X B"}};
    PaintTitles(Titles, 3, TitleBrush, TitleBrush);
}

// --- Strokes and drops

void Stroke(int position) {
    CurRec row;
    if (!InList(position) || !FetchCur(position, &row))
        return;
    NameDeed(Deed::Changed);
    row.DirectionState = row.DirectionState == 1 ? 0 : 1;
    ModRecFile(0, position, &row);
    state.SelectedPos[ConversionList] = position;
    ReloadAndPaint(PaintCounts | PaintRows);
    Explain(position);
}

bool CanReorder() {
    return !state.HubPicking; // a form may be open for a row, by its place
}

constexpr TitleSpot Spots[] = {{2, 6, 0, ScreenWidth - 1, 16, ToggleRefColumn}};
constexpr TabDrop Drops[] = {{BinList, AcceptInBin, BinRow}};

} // namespace

void UpdateConRec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, ConversionBrush))
        return;
    const CurRec &row = state.CurRows[strip.Index];
    const int32_t *e = state.ColumnEdge[ConversionList];
    KeepingCell(strip, 1, e[1] - 3, NoFill);
    KeepingCell(strip, e[1] + 1, e[2] - 1, NoFill);
    TurningCell(strip, e[2], 225, ConversionBrush, PressedConversion);
    if (strip.Past)
        return;
    const bool reversed = row.DirectionState == 1;
    PaintFlag(window, row.ColourFlag, e[1], strip.Place.Top);
    RowText(strip, 3, e[1] - 4, reversed ? row.ToName : row.FromName);
    RowAmount(strip, e[1] + 2, e[2] - 2, reversed ? row.InverseRate : row.Rate, 2, Align::Centre);
    RowText(strip, e[2] + 3, 224, state.RefColumn ? row.Note : reversed ? row.FromName : row.ToName);
}

void doCons(Window window, int mask) {
    PaintListScreen(ConversionScreen, window, mask);
}

// clang-format off
const ListScreen ConversionScreen = {
    .List = ConversionList,
    .Paint = doCons,
    .TabHelp = {Help::ConversionTab},
    .Arrives = Arrival::ShowEnd,
    .Selection = RowChosen::LastWhenNone,
    .NeedsAccount = false,
    .PostsDues = false,
    .ChecksTotals = false,
    .PaintRow = UpdateConRec,
    .Marked = NeverMarked,
    .BlankHelp = {Help::BlankEntry},
    .ExplainRow = Explain,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = 1,
    .Grabs = 2,
    .GrabFloor = 30,
    .ColumnsExplained = true,
    .PressPlot = nullptr,
    .Stroke = Stroke,
    .CanReorder = CanReorder,
    .Changed = nullptr,
    .Drops = Drops,
    .DropCount = 1,
};
// clang-format on
