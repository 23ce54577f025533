// What makes a screen: one row of data for each of the eight, read by the one code for painting, switching, tapping and
// dragging. Each screen's file defines its own, in this running order: rows and what they say, titles and their taps,
// strokes and drops, the row's painter, the screen's, and its row of data.
#pragma once

#include "platform/event.h"
#include "state/messages.h"
#include "state/state.h"
#include <cstdint>

// Which help lines of two: the other ones while `OtherHolds`; null: always the usual ones.
struct HelpChoice {
    Help Usual = Help::None, Other = Help::None;
    bool (*OtherHolds)() = nullptr;
};
void ShowChoice(const HelpChoice &choice);
// Conditions that choices ask for.
bool InArchiveView();

// A column title: its text, and the one shown with state.RefColumn.
struct ColumnTitle {
    const char16_t *Text, *RefText;
};

// A part of the title row that answers a tap: from ColumnEdge[FromEdge] + From to ColumnEdge[ToEdge] + To, both
// included, from y Top on.
struct TitleSpot {
    int8_t FromEdge;
    int16_t From;
    int8_t ToEdge;
    int16_t To;
    int16_t Top;
    void (*Tap)(int x);
};

// A tab that takes a row dragged to it.
struct TabDrop {
    int Tab;
    bool (*Accepts)(int position);
    void (*Drop)(int position);
};

// How a tap on the tab brings a screen up.
enum class Arrival : uint8_t { Own, KeepTop, CentreSelection, ShowEnd };
enum class RowChosen : uint8_t { Keep, FirstWhenNone, LastWhenNone, Last };

struct ListScreen {
    int List;
    PaintProcedure Paint;
    HelpChoice TabHelp;

    // Switching
    Arrival Arrives;
    RowChosen Selection;
    bool NeedsAccount; // the account position is made valid first
    bool PostsDues;    // CheckDDs runs first
    bool ChecksTotals; // CheckT1totals runs first

    // Rows
    void (*PaintRow)(Window window, int position, int mode);
    bool (*Marked)(int position); // asked for positions within the list
    HelpChoice BlankHelp;
    void (*ExplainRow)(int position);

    // Titles
    void (*DrawTitle)();
    void (*DrawColumns)();
    const TitleSpot *Spots;
    int SpotCount;
    int Grabs;             // edges 1 to this one can be dragged
    int GrabFloor;         // least width of the column left of the edge
    bool ColumnsExplained; // a tap that meets neither spot nor edge tells about columns

    // Gestures
    void (*PressPlot)(int x, int y); // where another screen has rows; null: nothing
    void (*Stroke)(int position);    // null: none; also asked for a position past the end
    bool (*CanReorder)();            // null: never
    void (*Changed)();               // what is stale once a row has gone or moved; null: nothing
    const TabDrop *Drops;
    int DropCount;
};

// The screen of a number 1 to 8; null for any other.
const ListScreen *ScreenOf(int screen);

extern const ListScreen AccountScreen, TransactionScreen, GraphScreen, RecurringScreen, TemplateScreen, BinScreen,
    CategoryScreen, ConversionScreen;

inline bool InList(int position) {
    return position >= 1 && position <= state.EntryCount[state.CurrentScreen];
}

// For a list that knows no marks, and for one whose rows can always be moved.
inline bool NeverMarked(int) {
    return false;
}
inline bool AlwaysReorders() {
    return true;
}

// Fills state.Paint.
void SetPaintProcedures();

// The common order of a paint procedure: scroll bar, masked bands of the header, rows, selection, separators, tabs,
// thumb.
void PaintListScreen(const ListScreen &screen, Window window, int mask);
// Loads the window of the current screen from `top` and keeps the screen.
void LoadShownRows(int32_t top);
// Loads the window again from its top, counts refreshed, then paints the bands.
void ReloadAndPaint(int mask);
// Moves the selection mark to a position, or away.
void RecHLon(int position, int refreshCounts);
void RecHLoff();
// Paints the row of a position as it is: selected or not, marked or not.
void PaintRowAsItIs(int position);
// Changes the row under a tap or a key: selection, and on the account list the current account.
void SelectRow(int position);

// The title of every screen but those that paint their own, and its column titles side by side up to the right edge of
// the screen. The last one has a brush of its own.
void PaintTitles(const ColumnTitle *titles, int count, int brush, int lastBrush);
// A title spot that most screens share.
void ToggleRefColumn(int x);
