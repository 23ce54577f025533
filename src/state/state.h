// The central state: the only mutable global of the program. One structure that lives for the whole run, grouped by
// the subsystem that owns each word. Positions in files and lists count from 1, and 0 means none.
//
// What is always true between two events stands in program/invariants.cpp. Beyond that, the window of the list shown,
// on the blue tab its plot or chart, is what the files hold.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"
#include "records/chart_record.h"
#include "records/place.h"
#include "records/records.h"
#include "resources/menus.h"
#include "resources/messages.h"
#include <cstdint>

inline constexpr int MostRows = 12;         // rows of a list window without the message window
inline constexpr int RowsAboveMessages = 7; // rows with it
inline constexpr int ScreenCount = 8;
inline constexpr int RunBytes = 256 * 1064; // one run of records, of the widest kind
inline constexpr int MostCandidates = 20;   // of the reconcile search: 2^20 subsets are still instant
inline constexpr int MostSamples = 100;     // of a plot: more would stand on one pixel of x
inline constexpr int AxisRoom = 18;
inline constexpr int32_t NoKey = 2000000;                                // CurrentKey when nothing is enciphered
inline constexpr int MostBrokenTold = 16, DataNameRoom = 24;             // files with a record that can't be read
inline constexpr int PassRoom = 32;                                      // units of a pass code, terminator included
inline constexpr int MostDirectories = 1000, DirectoryNamesRoom = 40000; // of one directory that the browser shows

// What owns input: a form, an overlay, or nothing. The numbers stand in the tables of forms and greys.
enum Dialog : int {
    ClosingDialog = -1,
    NoDialog = 0,
    NewAccountDialog = 1,
    TransactionDialog = 2,
    RecurringDialog = 4,
    TemplateDialog = 5,
    ConversionDialog = 8,
    NotepadDialog = 10,
    ConfigurationDialog = 12,
    AccountDialog = 13,
    ImportDialog = 14,
    ExportDialog = 15,
    BackupDialog = 16,
    RestoreDialog = 17,
    CategoryDialog = 19,
    PaletteDialog = 20,
    PassCodeDialog = 22,
    ArchiveDialog = 23,
    UnarchiveDialog = 24,
    PostingDialog = 25,
};

// What must come after the present event; the start-up floor reads it.
enum class NextStep : uint8_t {
    None,
    LoadData,
    StartAgain,     // the files are others than they were
    LeaveFrontPage, // the start goes on behind it
    Leave,
    LeaveFiltered, // the filters stay
    Left,          // nothing is heard any more
};

enum class PassMarks : uint8_t { Typed, Right, Wrong }; // colour of the four digit circles

enum class Page : uint8_t { None, Front, About }; // what covers the whole screen
enum class MovieStep : uint8_t { NotBegun, Runs, Rests };

struct MovieItem { // a letter in motion
    int32_t Letter;
    int32_t X, Y;  // corner of its cell in HostWindow
    int32_t Shown; // 1 while it stands on the screen
};
inline constexpr int MostMovieItems = 24, MovieScenes = 9;

inline constexpr int32_t PieDegrees = 360;
struct PieSector { // from where the last one ended
    int32_t Row;   // of the work file; 0: what rounding left of the circle
    int32_t End;   // in degrees from the left over the top
    int32_t Colour;
};

struct TitleWords { // a column's title as it was painted; none when Left is Right
    int32_t Left, Right;
    char16_t Text[24];
};
inline constexpr int MostTitles = 6;

enum HubStates : int32_t { HubClosed, SmallHub, LargeHub }; // the large one is the calculator

enum class ReconcileStep : int32_t { Idle, Impossible, Solved, Computing };

// Why DataUsable is 0. ORDER DATAREFUSAL
enum class DataRefusal : uint8_t { // ORDER DATAREFUSAL: the lines that say so
    WrongVersion,
    InUse,       // another process has the data
    Unreachable, // they can't be taken for this process alone
    Unrecovered, // the journal can't be applied
    Unreadable,
    AccountsLost,      // entries are there, and no list of accounts
    CipherMissing,     // the machine does not offer the cipher they are under
    ConfigurationLost, // and with it how the key is made
};

struct Candidate {    // of the reconcile search
    int32_t Position; // row
    FixedAmount Sum;  // what the row would add to the cleared balance
    uint32_t WasCleared, Selected;
    uint32_t Seen; // 1 once its row has been painted as a part of the solution
};

struct WaitingEntry { // that waits to be placed by its date
    uint32_t Account;
    uint32_t Order; // in which it came
    View Of;
    TRec Row;
};
inline constexpr int MostWaitingEntries = 5001; // the most that an import takes, and a balance brought forward

struct KnownAccount {
    uint32_t ID, AccType;
    int32_t Position;
};
inline constexpr int MostKnownAccounts = 4096;

union WorkingRow { // by the form that is open
    ARec Account;
    TRec Tran;
    DDRec Recurring;
    FRec Template;
    CatRec Category;
    CurRec Conversion;
};
inline constexpr int ShownFields = 32, ShownRoom = 40;

// A colour being mixed: seven linked parameters, each 0 to 255. ORDER COLOURLINK: red, green, blue, contrast, hue,
// luminosity, saturation
enum ColourLink : int32_t { LinkRed = 2, LinkGreen, LinkBlue, LinkContrast, LinkHue, LinkLuminosity, LinkSaturation };
struct ColourState {
    int32_t ColR, ColG, ColB, ColH, ColS, ColL, ColC;
    int32_t ColLink;          // the parameter on the slider
    int32_t RefR, RefG, RefB; // what contrast is taken from: the colour when it was linked
    int32_t MarkX, MarkY;     // of the cone's marker, 0 to 255
};
struct CellFill { // x of ListWindow, the right one excluded
    int32_t Left, Right;
    Colour Fill;
};
inline constexpr int MostFills = 12; // of a row
inline constexpr int SearchRoom = 32;

inline constexpr int EveryBand = 1023; // the mask that means everything to a paint procedure
using PaintProcedure = void (*)(Window window, int mask);

struct State {
    // Core
    int32_t CurrentScreen; // a List: the screen shown, and the list that the store works on
    int32_t ActiveDialog;  // a Dialog
    NextStep Next;
    uint32_t DataUsable;                   // 0 after a refusal: nothing is read or written any more
    DataRefusal Refusal;                   // of the data, counts while DataUsable is 0
    uint32_t FrontPageDone;                // 1 once the first screen may be used
    RecDate SharedToday;                   // start-up date, refreshed by CheckDDs; the jeopardy test compares with it
    const char16_t *MonthNames[13];        // [1] January, short
    PaintProcedure Paint[ScreenCount + 1]; // by screen; [0] the message window
    int32_t RepaintSkip;                   // paint requests still to swallow

    // Configuration record
    uint32_t ShowFrontPage;
    uint32_t NewUserFields; // 1: new entries open in the Advanced view
    int32_t CheckAheadDays;
    int32_t MovieSpeed, PercentLink;
    uint32_t ConfSpare;
    uint32_t PasswordOn;
    int32_t CurrentKey;            // number of a key that the machine keeps, or NoKey: nothing is enciphered
    char BrokenFile[DataNameRoom]; // the name of the data file whose record could not be deciphered last, "" for none
    char BrokenTold[MostBrokenTold][DataNameRoom]; // of which the owner has been told in this run
    int32_t BrokenToldCount;
    uint32_t CipherSuite; // of the data, while PasswordOn is 1
    uint8_t KeySalt[16];
    // Pixel positions of the column dividers; [0] is 0 and the last is 226.
    int32_t ColumnEdge[ScreenCount + 1][5];
    // The stored dividers as read, and the pixels they gave: an edge nobody dragged is written back as it was read.
    uint32_t StoredColumn[ScreenCount + 1][5];
    int32_t LoadedEdge[ScreenCount + 1][5];

    // Windows of rows; row arrays count from 1
    int32_t EntryCount[ScreenCount + 1];
    int32_t TopPos[ScreenCount + 1];
    int32_t SelectedPos[ScreenCount + 1];
    int32_t RowCount; // 12, or 7 with the message window open
    ARec AccRows[MostRows + 1];
    TranRow TranRows[MostRows + 1];
    DDRec DDRows[MostRows + 1];
    FRec FavRows[MostRows + 1];
    BinRec BinRows[MostRows + 1];
    CatRec CatRows[MostRows + 1];
    CurRec CurRows[MostRows + 1];
    // The accounts' names beside the rows of the bin and of the recurring items
    char16_t BinOwnerNames[MostRows + 1][TextRoom], DDAccountNames[MostRows + 1][TextRoom];
    uint8_t AccFiltered[MostRows + 1]; // 1 beside an account of which a filter hides rows
    ARec CurAccount;
    int32_t AccountKind;    // AccType of the current account
    uint32_t TranFileShown; // ID of the account whose rows TranRows holds, 0 none

    // Store
    uint32_t ArchiveView; // 1: kind 2 means the archive files
    uint32_t FilterView;  // 1 while a filter file is shown
    uint32_t FilterShown; // last result of LoadTranFile
    uint32_t FormUnread;  // 1: likewise the row that the open form is for
    uint32_t ShownUnread; // 1: after a refusal what is shown could not be read anew
    alignas(8) uint8_t RunBuffer[RunBytes];

    KnownAccount KnownAccounts[MostKnownAccounts]; // of one pass over many entries, by ID; see store/index.h
    int32_t KnownAccountCount;

    // Ledger
    WaitingEntry WaitingEntries[MostWaitingEntries];
    int32_t WaitingCount;
    uint32_t RecurringInOrder; // last result of DDFileCheck
    ReconcileStep ReconcileState;
    int32_t CandidateCount, SelectedCount;
    FixedAmount CurrentCleared, TargetBalance, Discrepancy;
    Candidate Candidates[MostCandidates];
    int32_t RangeStart, RangeFinish;         // of a deletion in two steps, 0 not chosen
    Place RangeStartPlace, RangeFinishPlace; // NoList: not chosen
    int32_t ArchiveProgress;                 // 0 to 100
    uint32_t Restructuring;                  // 1 once the merge of an archive has begun to move rows

    // Screens
    uint32_t MessageWindowOn, HelpMode;
    uint32_t ReconciledView; // balances shown are the cleared ones
    uint32_t RefColumn;      // the title column shows the second text
    int32_t DrawDepth;       // 3: three-dimensional; nothing changes it
    int32_t TabPage;         // 0 main set, 1 secondary set
    int32_t YearColumn;      // x of the year in a date cell, measured at start-up
    int32_t HighlightPos;    // position drawn as selected, 0 none
    int32_t ScrollBarShown;
    CellFill RowFill[MostFills]; // of the row painted last, later ones over earlier ones
    int32_t RowFills;
    int32_t LeftEye, RightEye;         // images of the command bar's eyes, 1 to 10
    int16_t MessageLine[MessageLines]; // the current message: ids, 0 blank, below 0 a line of the import report
    int16_t MessageAlign;              // 1 centred, 0 left
    uint8_t ItemEnabled[MenuRows];     // by row of the menu table

    // Speech: where what is painted is written in words, null while nobody listens
    char16_t *Heard;
    int32_t HeardRoom;
    char16_t HeaderShown[40]; // the title in the header, as painted last
    TitleWords TitlesShown[MostTitles];

    // Front page and About
    Page PageShown;
    uint32_t MovieRunning;
    MovieStep MovieStage;
    int32_t MovieScene;              // of SceneOrder, from 0; -1 the opening
    int32_t MovieFrame;              // of the scene, from 0
    int32_t SceneOrder[MovieScenes]; // rows of the scenes' table, shuffled
    MovieItem MovieItems[MostMovieItems];
    int32_t MovieItemCount;
    uint32_t TrackerHeld; // the stylus went down on the tracker

    // Gestures
    int32_t PressX, PressY; // last press, in the window that got it
    int32_t DragSource;     // position held, 0 none
    int32_t DropTarget;     // position under the release
    int32_t DragOverTab;    // tab drawn hot, 0 none
    int32_t DropLineRow;    // row whose top edge carries the insertion line, 0 none
    uint32_t DropLineShown;
    int32_t ColumnDragScreen; // screen whose column edge is held, 0 none
    int32_t ColumnGrab;       // index of the held edge
    uint32_t ColumnRepaintGate;

    // Questions: a command that is done when it comes a second time
    int32_t AskedCommand; // 0 none
    int32_t AskedScreen, AskedPosition;
    uint32_t AskOpenedHelp; // help mode goes again when the question does

    // Search by what is typed
    uint32_t SearchOn;
    char16_t SearchText[SearchRoom];
    int32_t SearchStart; // position selected when it began
    int32_t SearchTop;   // of the window of rows then

    // Graph
    int32_t GraphMode;    // 0 none yet, 1 graph, 2 regression, 3 extrapolation, 4 bars, 5 pies
    int32_t BarZoom;      // of bars: 1, 3, 9 ... 243
    uint32_t BalanceView; // 1: the Balance column is plotted, 0: the value column
    uint32_t BackToGraph; // a form opened from the graph leads back to it
    // Its sample table: the newest entries of the account, and as pixels of ListWindow. Samples count from 1, oldest
    // first, and point 0 repeats point 1.
    int32_t SamplePos[MostSamples + 1]; // record in the file
    TRec SampleRow[MostSamples + 1];    // as it was read
    Point SamplePt[MostSamples + 1];
    int32_t SampleCount, SampleTotal; // samples; all records of the file
    FixedAmount SampleMin, SampleMax; // they take in zero
    int32_t MinIndex, MaxIndex;       // samples that hold the extremes
    int32_t SelectedSample;           // under the pointer; -1 before the first plot, 0 none
    int32_t SelectedEntry;            // record selected on this tab, 0 none
    uint32_t LastPlottedAccount;      // ID for which SelectedEntry was chosen
    uint32_t LastPlottedView;         // bit 0 the archive, bit 1 a filter
    // Scaling: pixels before PlotYScale
    int32_t PlotBand, PlotBase; // height of a grid row; top of the plot
    int64_t PlotZero;           // of the zero row below PlotBase
    float PlotYScale;           // 7/12 above the message window
    uint32_t PointerOn;
    uint32_t PlotHeld;        // the stylus went down on the plot
    Point AxisLine[AxisRoom]; // as drawn last, to be drawn again over the curve
    int32_t AxisPoints;       // of AxisLine in use
    Point LineEnds[2];        // of the regression line, as drawn
    char16_t AxisText[16];    // the latest answer of Ystr
    // Regression
    float RegSlope, RegIntercept; // rows for a pixel of x; row at x 0
    float UnitsPerRow;            // whole units for a row
    float RowsPerDay;             // despite its name pixels of x for a day
    int32_t FirstValue;           // whole units at the first sample
    uint32_t FirstDay;            // day number of the first sample
    int32_t DaySpan;              // first to last sample, 1 on the same day
    // Extrapolation
    RecDate FirstDate, LastDate;        // of the first and last sample
    RecDate LeftDate, TargetDate;       // of the ends of the plot; TargetDate stands in the boxes
    FixedAmount LeftValue, TargetValue; // predicted for them
    int32_t ExtrapValue, ExtrapPercent; // of the boxes: whole units, -50 to 50
    int32_t BoxSelection, BoxIndex;     // a Box of analysis/extrapolation.h; its part from 1
    uint32_t IncrementMode;             // 1: a tap on a box counts up
    uint32_t ExtrapReload;              // 1: all of this must be built again from the account
    RecDate PointerDate;                // under the pointer
    int32_t PointerX, PointerY;         // on the line, Y before PlotYScale

    // Charts of the graph screen: its EntryCount, TopPos and SelectedPos are segments of the chart work file
    int32_t AnalysisGroup, AnalysisOrder;    // of analysis/charts.h
    uint32_t ShowPercent;                    // bars are labelled with percentages
    int32_t DroppedList;                     // 0 none, 1 the groups, 2 the orders
    FixedAmount LargestCredit, LargestDebit; // magnitudes, of one segment
    GRec ChartRows[MostRows];                // from TopPos on
    int32_t ChartRowCount;
    GRec Segment;             // the selected one
    uint32_t SegmentSelected; // 0: there is none
    PieSector PieSectors[PieDegrees];
    int32_t PieSectorCount;

    // Hub
    int32_t HubState;         // a HubStates
    FixedAmount CalcX, CalcY; // first and second operand
    FixedAmount CalcZ;        // result
    FixedAmount CalcMemory;
    int32_t CalcLine;              // the active line: LineXKey, LineYKey or LineZKey of resources/hub_keys.h
    int32_t CalcOp;                // PlusKey to DivideKey
    int32_t EntryState;            // -1 the next digit begins a number, 0 whole digits, 1 to 3 that decimal, 4 full
    uint32_t CalcError;            // 1: the display shows stars
    int32_t CalcDecimals;          // shown: 2 or 3
    uint32_t HubReads, HubTakes;   // 1: the read arrow finds an amount, the write arrow a place for one
    uint32_t HubPicking;           // 1 while the conversions are shown for a rate to be picked
    int32_t PickScreen;            // to return to then
    int32_t PickSelected, PickTop; // of the conversions before
    int32_t CoveredFocus;          // control that had the focus of the form under the calculator

    // Palette: entries count from 1; entry i + 60 is i moved in hue
    Colour Palette[125];
    ColourState Mixed;                // the colour on the palette screen
    int32_t PaletteSquare;            // entry that a second tap stores the colour into, 0 none
    uint32_t CategoryArmed;           // the next tap on the category gives it the colour
    int32_t PaletteHeld;              // part under the stylus that follows it, 0 none
    int32_t DigitsTyped;              // into the linked parameter since something else was done
    const struct Form *PaletteReturn; // form to go back to
    Colour CategoryColour;            // of CategoryBrush, set for each category row

    // Report of the last import, shown by the message ids -1 to -6. ORDER REPORTLINE: well formed, badly formed,
    // skipped as requested, unreadable, file too big, and the number of entries that the file held
    int32_t ImportCount[MessageLines];
    uint32_t ImportSucceeded;

    // Pass code; what was entered is wiped as soon as it has been used
    int32_t PassMode;              // a PassCodeMode of forms/pass_code.h
    uint32_t StrongMode;           // 1: the long code's box is shown, 0: the digits
    int32_t FailedTries;           // wrong codes of this run
    int32_t DigitCount;            // entered so far, 0 to 4
    int32_t HeldDigit;             // under the stylus, -1 none: it is not taken again before the stylus has left it
    int32_t PassNumber;            // that the digits make
    PassMarks DigitMarks;          // how the four circles are drawn
    char16_t FirstEntry[PassRoom]; // of a new code, until it is confirmed
    int32_t CipherProgress;        // 0 to 100, how much of the circle is filled while files are rewritten; -1 not now

    // Care
    uint32_t FileAccessReady;                // 1 once the data have been read, behind the gate of the pass code
    uint32_t Migrated;                       // 1 when this start took over the data of the older generation
    char BrowsePath[260];                    // directory in view, ends with a backslash
    int32_t DirectoryCount;                  // directories in it
    uint16_t DirectoryName[MostDirectories]; // of each, in the order shown: where in DirectoryNames it starts
    char DirectoryNames[DirectoryNamesRoom];
    int32_t CopyProgress; // 0 to 100, what the bar shows; before a restore 100 when the directory holds a backup

    // Forms: shared by all
    const struct Form *OpenedForm;  // of frame/form.h, null for none
    int32_t FormFlag;               // 0 to 3
    uint32_t FirstSign, SecondSign; // 1 plus
    uint32_t FormCleared, FormNoCash;
    uint32_t DuplicateOn;     // the entry shown will be saved as a new one
    uint32_t ViewIsAdvanced;  // of the transaction form
    uint32_t Reversed;        // of the conversion form: the rate shown is that of the other direction
    WorkingRow FormRow;       // the working copy of the row that the form is for
    RecDate DuplicateDate;    // to return to when the duplicate is dropped
    uint32_t FormTransfer;    // ID of the partner account picked for a new entry; every filling of the form clears it
    int32_t DateOption;       // of import and export: 1 all entries, 2 and 3 as the form's buttons say
    int32_t ExchangeKind;     // of import and export: kind of file, in the order of the form's list
    int32_t BlockIndex;       // of a recurring item: 0 first, 1 subsequent
    uint32_t BlockFollows;    // 1: the second block is still what the first one is
    int32_t ListedCategories; // rows of the category list that stand for their positions
    char16_t ShownText[ShownFields][ShownRoom]; // by control id: what a field held when it was filled
    uint8_t FieldEdited[ShownFields];           // by control id: 1 once the owner has changed it
    RecDate ShownDate;                          // the same of the date field
    CatRec CategoriesBeside[2];                 // of the category shown: before and behind it, where there are others
};

extern State state;

// Zeroes the block and sets the defaults of a fresh start.
void ResetState();
