// Screen 3: the frame of the graph: header, the row of mode icons, the two titles that choose what is plotted.
#include "drawing/saying.h"
#include "frame/header.h"
#include "frame/scroll.h"
#include "frame/shown.h"
#include "frame/tabs.h"
#include "platform/shell.h"
#include "resources/geometry.h"
#include "screens/list_screen.h"
#include "screens/measure.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "state/greys.h"
#include <iterator>

namespace {

// ORDER GRAPHMODE, counted from 1; state.GraphMode 0 is none yet
enum GraphModes : int { PlainGraph = 1, Regression, Extrapolation, BarChart, PieChart };

constexpr int IconLeft = 3, IconPitch = 20, ModeIconSize = 19, ModeIcons = 5, CountIcon = 6;
constexpr int ValueLeft = 124, BalanceLeft = 173;

bool ChartShown() {
    return state.GraphMode == BarChart || state.GraphMode == PieChart;
}

// --- Help

struct ModeHelp {
    Help Lines, InListAccount;
};
constexpr ModeHelp Modes[] = {
    // ORDER GRAPHMODE
    {Help::PlainGraph, Help::PlainGraph},
    {Help::Regression, Help::RegressionOfList},
    {Help::Extrapolation, Help::ExtrapolationOfList},
    {Help::BarChart, Help::BarChart},
    {Help::PieChart, Help::PieChart},
};

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(state.CurAccount.Name);
}

// Small drawings in a field of 13 by 13, one polyline each; the pie has its own.
struct Glyph {
    Point Points[7];
    int Count;
};
constexpr Glyph Glyphs[] = {
    // by icon, from the left
    {{{0, 10}, {3, 5}, {6, 8}, {9, 2}, {12, 4}}, 5},
    {{{0, 11}, {12, 1}}, 2},
    {{{0, 11}, {7, 5}, {7, 1}, {7, 5}, {12, 5}}, 5},
    {{{0, 12}, {0, 6}, {3, 6}, {3, 12}, {0, 12}}, 5},
    {{{6, 0}, {6, 6}, {12, 6}}, 3},
    {{{1, 6}, {11, 6}}, 2},
};

void DrawGlyph(int icon, int left, int top) {
    const Glyph &glyph = Glyphs[icon - 1];
    Point line[std::size(glyph.Points)];
    for (int i = 0; i < glyph.Count; ++i)
        line[i] = {left + glyph.Points[i].X, top + glyph.Points[i].Y};
    if (icon == PieChart)
        FillEllipse(TopWindow, {left, top, left + 13, top + 13}, PaleBlue, Black);
    if (icon == BarChart) {
        FillRect(TopWindow, {left + 5, top + 1, left + 8, top + 13}, Black);
        FillRect(TopWindow, {left + 10, top + 4, left + 13, top + 13}, Black);
    }
    DrawPolyline(TopWindow, line, glyph.Count, Black);
    if (icon == CountIcon && !state.GraphDecrement) {
        const Point upright[] = {{left + 6, top + 1}, {left + 6, top + 11}};
        DrawPolyline(TopWindow, upright, 2, Black);
    }
}

void DrawIcons() {
    constexpr Bevel Pens = {White, DarkGold};
    FillRect(TopWindow, {0, HeaderBottom, ValueLeft, TitlesBottom}, BrushColour(TitleBrush));
    for (int icon = 1; icon <= CountIcon; ++icon) {
        const int left = IconLeft + (icon - 1) * IconPitch;
        const bool active = icon == state.GraphMode || (icon == CountIcon && state.GraphMode == Extrapolation);
        DrawCell(TopWindow, HeaderBottom, TitlesBottom - 2, left, left + ModeIconSize, Pens,
                 active ? PressedGold : TitleBrush, icon == state.GraphMode ? PressedCell : RaisedCell);
        DrawGlyph(icon, left + 3, HeaderBottom + 4);
    }
}

void DrawColumns() {
    DrawIcons();
    NoteTitle(0, ValueLeft, u""); // the icons have no words
    DrawColumnTitle(ValueLeft, BalanceLeft, u"", TitleBrush);
    DrawMeasureTitle(ValueLeft, BalanceLeft, state.BalanceView ? MutedGrey : Black);
    DrawColumnTitle(BalanceLeft, ScreenWidth, u"", state.ReconciledView ? ReconciledBrush : TitleBrush);
    NoteMoreOfTitle(BalanceLeft, u"Balance");
    PaintText(TopWindow, u"Balance", {BalanceLeft + 2, HeaderBottom + 1, ScreenWidth - 2, TitlesBottom - 1},
              Align::Centre, Font::Bold, state.BalanceView ? Black : MutedGrey);
}

// --- Taps

void ShowBarForMode() {
    const bool on = ChartShown();
    if (!on && state.ScrollBarShown)
        PassOverRepaint();
    ShowListScrollBar(on);
}

void ChooseMode(int x) {
    const int mode = (x - IconLeft - 1) / IconPitch + 1;
    const bool list = state.AccountKind == ListAccount;
    ShowHelp(list ? Modes[mode - 1].InListAccount : Modes[mode - 1].Lines);
    if (mode == Extrapolation && list) {
        Beep();
        return;
    }
    if (mode == state.GraphMode)
        return;
    state.GraphMode = mode;
    SetGreys(GraphList);
    doGraph(ListWindow, PaintAll);
}

void TurnCounting(int) {
    if (state.GraphMode != Extrapolation) {
        Beep();
        ShowHelp(Help::CountingElsewhere);
        return;
    }
    state.GraphDecrement = !state.GraphDecrement;
    ShowHelp(state.GraphDecrement ? Help::CountingDown : Help::CountingUp);
    doGraph(ListWindow, PaintColumns);
}

void TapValueTitle(int x) {
    const bool wasBalance = state.BalanceView == 1;
    if (ChartShown()) {
        ShowHelp(Help::UnusedInMode);
        return;
    }
    state.BalanceView = 0;
    if (IsShare(state.AccountKind) && !wasBalance)
        StepMeasure(x);
    else if (!IsShare(state.AccountKind))
        ShowHelp(state.ReconciledView ? Help::ReconciledValueColumn : Help::ValueColumn);
    doGraph(ListWindow, PaintColumns | PaintRows);
}

// Which balance the plot is of: the first tap after the value column only comes back to it.
void TapBalanceTitle(int) {
    if (!state.BalanceView && state.ReconciledView) {
        state.ReconciledView = 0;
    } else {
        state.ReconciledView = state.BalanceView && !state.ReconciledView;
        state.BalanceView = 1;
        ShowHelp(state.ReconciledView ? Help::BalanceOfReconciled : Help::BalanceOfAll,
                 state.GraphMode == Extrapolation ? AddedLine::RegressionBasis : AddedLine::None);
    }
    doGraph(ListWindow, PaintColumns | PaintRows);
}

void PressPlot(int, int y) {
    if (y < state.RowCount * RowHeight && (state.GraphMode == PlainGraph || state.GraphMode == Regression))
        ShowHelp(Help::TapAnItem);
}

// clang-format off
constexpr TitleSpot Spots[] = {
    {0, IconLeft + 1,                         0, IconLeft + ModeIcons * IconPitch, 16, ChooseMode},
    {0, IconLeft + ModeIcons * IconPitch + 1, 0, ValueLeft - 1,                    16, TurnCounting},
    {0, ValueLeft,                            0, BalanceLeft - 1,                  16, TapValueTitle},
    {0, BalanceLeft,                          0, ScreenWidth - 1,                  16, TapBalanceTitle},
};
// clang-format on

} // namespace

void doGraph(Window window, int mask) {
    ShowBarForMode();
    if (mask & PaintTitle)
        DrawTitle();
    if (mask & PaintArrows)
        DrawHeaderArrows();
    if (mask & PaintColumns)
        DrawColumns();
    if (mask & PaintRows)
        FillRect(window, {0, 0, ScreenWidth, state.RowCount * RowHeight + 1}, White);
    if (mask & PaintCounts)
        UpdateCounts();
    if (mask & PaintTabs)
        DrawTabs();
}

// clang-format off
const ListScreen GraphScreen = {
    .List = GraphList,
    .Paint = doGraph,
    .TabHelp = {Help::GraphTab, Help::ArchivedGraphTab, InArchiveView},
    .Arrives = Arrival::Own,
    .Selection = RowChosen::Keep,
    .NeedsAccount = true,
    .PostsDues = false,
    .ChecksTotals = false,
    .PaintRow = nullptr,
    .Marked = nullptr,
    .BlankHelp = {},
    .ExplainRow = nullptr,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = static_cast<int>(std::size(Spots)),
    .Grabs = 0,
    .GrabFloor = 0,
    .ColumnsExplained = false,
    .PressPlot = PressPlot,
    .Stroke = nullptr,
    .CanReorder = nullptr,
    .Changed = nullptr,
    .Drops = nullptr,
    .DropCount = 0,
};
// clang-format on
