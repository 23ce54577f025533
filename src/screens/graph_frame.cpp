// Screen 3: the frame of the graph: header, the row of mode icons, the two titles that choose what is plotted, and the
// table of modes: what each paints and how it answers stylus and keys.
#include "screens/graph_frame.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/regression.h"
#include "drawing/saying.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/scroll.h"
#include "frame/tabs.h"
#include "platform/painting.h"
#include "platform/shell.h"
#include "resources/art.h"
#include "resources/geometry.h"
#include "screens/chart_view.h"
#include "screens/graph_boxes.h"
#include "screens/graph_gestures.h"
#include "screens/graph_outline.h"
#include "screens/graph_plot.h"
#include "screens/hub_face.h"
#include "screens/list_screen.h"
#include "screens/measure.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "state/error_log.h"
#include "state/greys.h"
#include <iterator>

namespace {

constexpr int ValueLeft = 124, BalanceLeft = 173;

// --- The modes

void PaintEntryPlot(int mask);
void PaintExtrapolation(int mask);

struct Mode {
    Help Lines, InListAccount;
    int Mask;                    // what a tap on the icon paints
    void (*Paint)(int mask);     // on ListWindow, whose ground is cleared with PaintRows
    void (*Press)(int x, int y); // on ListWindow above the tabs
    void (*Move)(int x, int y);  // after such a press; null: nothing
    void (*Release)(int x, int y);
    int (*PressKey)(Key key); // 0: not taken
};

void LookAfterRelease(int, int) {
    LookAtPoint();
}

constexpr int IconsAndPlot = PaintColumns | PaintRows;
// clang-format off
constexpr Mode Modes[] = { // ORDER GRAPHMODE
    {Help::PlainGraph, Help::PlainGraph, IconsAndPlot,
     PaintEntryPlot, SelectGraphPoint, SelectGraphPoint, LookAfterRelease, PlotKeyPressed},
    {Help::Regression, Help::RegressionOfList, IconsAndPlot,
     PaintEntryPlot, SelectGraphPoint, SelectGraphPoint, LookAfterRelease, PlotKeyPressed},
    {Help::Extrapolation, Help::ExtrapolationOfList, IconsAndPlot | PaintCounts,
     PaintExtrapolation, PressExtrapolation, MoveOverExtrapolation, LookAfterRelease, BoxKeyPressed},
    {Help::BarChart, Help::BarChart, PaintAll,
     PaintCharts, PressCharts, nullptr, StrokeCharts, KeyCharts},
    {Help::PieChart, Help::PieChart, PaintAll,
     PaintCharts, PressCharts, nullptr, StrokeCharts, KeyCharts},
};
// clang-format on

const Mode &CurrentMode() {
    const int known = state.GraphMode >= PlainGraph && state.GraphMode <= PieChart ? state.GraphMode : +PlainGraph;
    return Modes[known - 1];
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(state.CurAccount.Name);
}

// The picture on an icon: the modes in their order, then how a tap on a box counts.
int PictureOf(int icon) {
    if (icon != CountIcon)
        return icon - 1;
    return state.GraphMode != Extrapolation ? 7 : state.IncrementMode ? 5 : 6;
}

void DrawIcons() {
    constexpr Bevel Pens = {White, DarkGold};
    FillRect(TopWindow, {0, HeaderBottom, ValueLeft, TitlesBottom}, BrushColour(TitleBrush));
    for (int icon = 1; icon <= CountIcon; ++icon) {
        const int left = IconLeft + (icon - 1) * IconPitch, cell = PictureOf(icon) * IconSize;
        const bool active = icon == state.GraphMode || (icon == CountIcon && state.GraphMode == Extrapolation);
        DrawCell(TopWindow, HeaderBottom, TitlesBottom - 2, left, left + IconSize, Pens,
                 active ? PressedGold : TitleBrush, icon == state.GraphMode ? PressedCell : RaisedCell);
        CopyImage(TopWindow, {left, HeaderBottom + 1}, GraphIcons, {cell, 0, cell + IconSize, IconSize}, Blit::And);
    }
}

// The strip left of the icons has the flag of the selected entry.
void DrawFlagStrip() {
    const bool selected = (state.GraphMode == PlainGraph || state.GraphMode == Regression) && state.SelectedSample > 0;
    const int flag = selected ? state.SampleRow[state.SelectedSample].Flag : 0;
    FillRect(TopWindow, {1, HeaderBottom, IconLeft, TitlesBottom},
             flag >= 1 && flag <= 3 ? FlagColour(flag) : BrushColour(TitleBrush));
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
    const bool on = ChartsScroll();
    if (!on && state.ScrollBarShown)
        PassOverRepaint();
    ShowListScrollBar(on);
}

void ChooseMode(int x) {
    const int mode = (x - IconLeft - 1) / IconPitch + 1;
    const bool list = state.AccountKind == ListAccount;
    const Mode &chosen = Modes[mode - 1];
    ShowHelp(list ? chosen.InListAccount : chosen.Lines);
    if (mode == Extrapolation && list) {
        Beep();
        return;
    }
    if (mode == state.GraphMode)
        return;
    state.GraphMode = mode;
    state.PointerOn = 0;
    if (ChartShown())
        state.SelectedPos[GraphList] = 1;
    LoadShownRows(1);
    SetGreys(GraphList);
    doGraph(ListWindow, chosen.Mask);
}

void TurnCounting(int) {
    if (state.GraphMode != Extrapolation) {
        Beep();
        ShowHelp(Help::CountingElsewhere);
        return;
    }
    state.IncrementMode = !state.IncrementMode;
    ShowHelp(state.IncrementMode ? Help::CountingUp : Help::CountingDown);
    doGraph(ListWindow, PaintColumns);
}

// Another measure is plotted: what was foretold from the last one is void.
void PaintOtherMeasure() {
    state.ExtrapReload = 1;
    ReloadAndPaint(PaintColumns | PaintRows | PaintCounts);
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
    PaintOtherMeasure();
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
    PaintOtherMeasure();
}

// --- The plot: what happens on ListWindow is the mode's

void PressPlot(int x, int y) {
    CurrentMode().Press(x, y);
}

void MovePlot(int x, int y) {
    if (CurrentMode().Move && y >= 0 && y < state.RowCount * RowHeight)
        CurrentMode().Move(x, y);
}

void ReleasePlot(int x, int y) {
    CurrentMode().Release(x, y);
}

int PlotKey(Key key) {
    return CurrentMode().PressKey(key);
}

void PaintEntryPlot(int mask) {
    if (!(mask & PaintRows))
        return;
    PlotSamples();
    state.SelectedPos[GraphList] = state.SelectedEntry;
    RecHLon(state.SelectedEntry, 0);
    DrawFlagStrip();
    DrawGraphOutline(state.SampleMin, state.SampleMax);
    DrawGraph();
}

void PaintExtrapolation(int mask) {
    if (mask & PaintRows) {
        PlotSamples();
        state.SelectedPos[GraphList] = state.SelectedEntry;
        DrawFlagStrip();
        if (state.ExtrapReload) {
            RebuildExtrapolation();
            mask |= PaintCounts;
        }
        ScaleExtrapolation();
        SetLineEnds();
        DrawGraphOutline(state.SampleMin, state.SampleMax);
        DrawExtrapolation();
    }
    if (mask & PaintCounts)
        DrawBoxRow();
}

// The mode that this account can have.
void SettleMode() {
    const int mode = state.GraphMode == 0                                                          ? +PlainGraph
                     : state.GraphMode == Extrapolation && state.CurAccount.AccType == ListAccount ? +Regression
                                                                                                   : state.GraphMode;
    if (mode == state.GraphMode)
        return;
    state.GraphMode = mode;
    SetGreys(GraphList);
}

void ClearPlot(Window window, int mask) {
    const bool keepsBoxes = state.GraphMode == Extrapolation && !(mask & PaintCounts) && !state.ExtrapReload;
    FillRect(window, {0, keepsBoxes ? BoxRowBand().Bottom : 0, ScreenWidth, state.RowCount * RowHeight + 1}, White);
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

int TitleKeyX(int title) {
    if (title != 1) {
        const TitleSpot &spot = Spots[title - 1];
        return (spot.From + spot.To) / 2;
    }
    const int next = state.GraphMode % ModeIcons + 1;
    const int mode = next == Extrapolation && state.AccountKind == ListAccount ? +BarChart : next;
    return IconLeft + (mode - 1) * IconPitch + IconSize / 2;
}

void doGraph(Window window, int mask) {
    const Painting painting;
    SettleMode();
    state.AccountKind = static_cast<int32_t>(state.CurAccount.AccType);
    if (!MeasureIsKnown())
        ReportError(In::doGraph, Trouble::CaseError);
    ShowBarForMode();
    if (mask & PaintTitle)
        DrawTitle();
    if (mask & PaintArrows)
        DrawHeaderArrows();
    if (mask & PaintColumns) {
        DrawColumns();
        DrawFlagStrip();
    }
    if (mask & PaintRows)
        ClearPlot(window, mask);
    CurrentMode().Paint(mask);
    if (mask & (PaintCounts | PaintRows))
        UpdateCounts();
    if (mask & PaintTabs)
        DrawTabs();
    DrawHubArrows();
}

// clang-format off
const ListScreen GraphScreen = {
    .List = GraphList,
    .Paint = doGraph,
    .TabHelp = {Help::GraphTab, Help::ArchivedGraphTab, InArchiveView},
    .Arrives = Arrival::KeepTop,
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
    .MovePlot = MovePlot,
    .ReleasePlot = ReleasePlot,
    .PlotKey = PlotKey,
    .Stroke = nullptr,
    .CanReorder = nullptr,
    .Changed = RecomputeBalances,
    .Drops = nullptr,
    .DropCount = 0,
};
// clang-format on
