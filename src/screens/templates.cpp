// Screen 5: the templates.
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/refusal.h"
#include "resources/deeds.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "store/windows.h"

namespace {

// --- Rows

const FRec &RowAt(int position) {
    return state.FavRows[RowOfPosition(position)];
}

FixedAmount ShownValue(const FRec &row) {
    return row.Cash == 1 ? row.Value : TimesUnits(row.Units, row.Value);
}

bool Marked(int position) {
    return RowShows(RowOfPosition(position)) && RowAt(position).Cleared == 1;
}

void ExplainTemplate(const FRec &row) {
    ShowHelp(row.Cleared == 1 ? Help::ReconciledTemplate : Help::Template,
             WholeMagnitude(ShownValue(row)) > LargestShown ? AddedLine::ValueTooBig : AddedLine::None);
}

void Explain(int position) {
    ExplainTemplate(RowAt(position));
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(u"Templates");
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {{u"Name", u"Ref"}, {u"Value", u"Value"}};
    PaintTitles(Titles, 2, TitleBrush, TitleBrush);
}

// --- Strokes and drops

// The entry that the template makes will be reconciled, or not.
void Stroke(int position) {
    FRec row;
    if (!InList(position) || !FetchFav(position, &row))
        return;
    NameDeed(Deed::Stroked);
    row.Cleared = row.Cleared == 1 ? 0 : 1;
    if (!ModRecFile(0, position, &row))
        return;
    state.SelectedPos[TemplateList] = position;
    ReloadAndPaint(PaintCounts | PaintRows);
    ExplainTemplate(row);
}

constexpr TitleSpot Spots[] = {{0, 1, 1, -6, 16, ToggleRefColumn}};
constexpr TabDrop Drops[] = {{BinList, AcceptInBin, BinRow}};

} // namespace

void UpdateFRec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, GreenBrush))
        return;
    const FRec &row = state.FavRows[strip.Index];
    const int edge = state.ColumnEdge[TemplateList][1];
    KeepingCell(strip, 1, edge - 3, IsMarked(mode) ? FlaggedBrush : NoFill);
    TurningCell(strip, edge + 1, 225, NoFill, PressedGreen);
    if (strip.Past)
        return;
    PaintFlag(window, row.Flag, edge, strip.Place.Top);
    RowText(strip, 3, edge - 4, state.RefColumn ? row.Memo : row.Name);
    RowAmount(strip, edge + 2, 224, ShownValue(row));
}

void doFavs(Window window, int mask) {
    PaintListScreen(TemplateScreen, window, mask);
}

// clang-format off
const ListScreen TemplateScreen = {
    .List = TemplateList,
    .Paint = doFavs,
    .TabHelp = {Help::TemplateTab},
    .Arrives = Arrival::ShowEnd,
    .Selection = RowChosen::LastWhenNone,
    .NeedsAccount = true,
    .PostsDues = true,
    .ChecksTotals = false,
    .PaintRow = UpdateFRec,
    .Marked = Marked,
    .BlankHelp = {Help::BlankEntry},
    .ExplainRow = Explain,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = 1,
    .Grabs = 1,
    .GrabFloor = 30,
    .ColumnsExplained = true,
    .PressPlot = nullptr,
    .Stroke = Stroke,
    .CanReorder = AlwaysReorders,
    .Changed = nullptr,
    .Drops = Drops,
    .DropCount = 1,
};
// clang-format on
