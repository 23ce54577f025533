// Screen 7: the categories, each in its colour.
#include "frame/header.h"
#include "resources/geometry.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/rows.h"
#include "screens/screens.h"

namespace {

constexpr int NameLeft = 50; // however narrow the colour column is

// --- Rows

void Explain(int) {
    ShowHelp(Help::Category);
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(u"Categories");
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {{u" Colour", u" Colour"}, {u"Name", u"Ref"}};
    PaintTitles(Titles, 2, TitleBrush, TitleBrush);
}

// --- Strokes and drops

// Deliberately says "Deletion complete" although nothing is deleted.
void Stroke(int position) {
    if (InList(position))
        ShowHelp(Help::Deleted);
}

constexpr TitleSpot Spots[] = {{1, 6, 0, ScreenWidth - 1, 16, ToggleRefColumn}};
constexpr TabDrop Drops[] = {{BinList, AcceptInBin, BinRow}};

} // namespace

void UpdateCatRec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, AquaBrush))
        return;
    const CatRec &row = state.CatRows[strip.Index];
    const int edge = state.ColumnEdge[CategoryList][1];
    TurningCell(strip, 1, 225, AquaBrush, PressedAqua);
    if (strip.Past)
        return;
    SetCategoryBrush(Rgb(row.Red & 0xFF, row.Green & 0xFF, row.Blue & 0xFF));
    KeepingCell(strip, 1, edge, CategoryBrush);
    RowText(strip, edge + 5 > NameLeft ? edge + 5 : NameLeft, 224, state.RefColumn ? row.Description : row.Name);
}

void doCats(Window window, int mask) {
    PaintListScreen(CategoryScreen, window, mask);
}

// clang-format off
const ListScreen CategoryScreen = {
    .List = CategoryList,
    .Paint = doCats,
    .TabHelp = {Help::CategoryTab},
    .Arrives = Arrival::ShowEnd,
    .Selection = RowChosen::LastWhenNone,
    .NeedsAccount = false,
    .PostsDues = false,
    .ChecksTotals = false,
    .PaintRow = UpdateCatRec,
    .Marked = NeverMarked,
    .BlankHelp = {Help::BlankEntry},
    .ExplainRow = Explain,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = 1,
    .Grabs = 1,
    .GrabFloor = 40,
    .ColumnsExplained = true,
    .PressPlot = nullptr,
    .Stroke = Stroke,
    .CanReorder = AlwaysReorders,
    .Changed = nullptr,
    .Drops = Drops,
    .DropCount = 1,
};
// clang-format on
