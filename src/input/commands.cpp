#include "input/commands.h"
#include "analysis/charts.h"
#include "analysis/graph_value.h"
#include "forms/forms.h"
#include "forms/pass_code.h"
#include "forms/progress.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "input/asking.h"
#include "input/ranges.h"
#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/jeopardy.h"
#include "platform/shell.h"
#include "resources/deeds.h"
#include "resources/menus.h"
#include "screens/front_page.h"
#include "screens/graph_gestures.h"
#include "screens/hub.h"
#include "screens/inserting.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/opening.h"
#include "screens/screens.h"
#include "state/greys.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

// --- Forms

void NewEntry(int) {
    const int screen = state.CurrentScreen == GraphList ? TransactionList : state.CurrentScreen;
    if (screen == TransactionList && state.EntryCount[AccountList] < 1)
        return;
    if (state.CurrentScreen == GraphList) {
        if (state.GraphMode != 1 && state.GraphMode != 2)
            return;
        LoadTranFile(state.SelectedPos[AccountList], 0);
    }
    state.SelectedPos[screen] = state.EntryCount[screen] + 1;
    DoButtonDblclk(ListWindow, EntryRow);
}

void ExplainModify() {
    Beep();
    ShowHelp(Help::SelectEntryFirst);
}

void ModifyEntry(int) {
    const int screen = state.CurrentScreen;
    const bool valid = InList(state.SelectedPos[screen]);
    const int opened = !valid ? 0 : screen == AccountList ? OpenAccountForm(0) : DoButtonDblclk(ListWindow, EntryRow);
    if (!opened)
        ExplainModify();
}

void OpenNotepad(int) {
    OpenNotepadForm();
}

void OpenConfiguration(int) {
    OpenConfigurationForm();
}

void ImportEntries(int) {
    if (!OpenImportForm())
        Beep();
}

void ExportEntries(int) {
    if (!OpenExportForm())
        Beep();
}

// --- The pass code

void PassCodeOn(int) {
    if (!state.DataUsable || !OpenPassCode(EnterNewCode))
        Beep();
}

void PassCodeOff(int) {
    if (!state.DataUsable || !TurnPassCodeOff())
        Beep();
}

// --- Backup

void OpenBackup(int) {
    if (!OpenBackupForm())
        Beep();
}

void OpenRestore(int) {
    if (!OpenRestoreForm())
        Beep();
}

// --- The account

// Every account of the current one's kind gets its columns. What is refused refuses all of them.
void AlignColumns(int) {
    const ARec model = state.CurAccount;
    const bool list = model.AccType == ListAccount;
    ARec row;
    for (int32_t position = 1; position <= state.EntryCount[AccountList]; ++position) {
        if (!FetchAccount(position, &row) || row.RowKind == HeadingRow || (row.AccType == ListAccount) != list)
            continue;
        std::memcpy(row.ColumnPos, model.ColumnPos, sizeof row.ColumnPos);
        if (!ModRecFile(0, position, &row))
            return;
    }
    LoadCurrentAccount();
    ShowHelp(list ? Help::AlignedLists : Help::AlignedColumns);
}

void Repaint() {
    ReloadAndPaint(PaintAll);
}

// On first watches the low limit, then both.
void Jeopardy(int id) {
    ARec account;
    if (!FetchAccount(state.SelectedPos[AccountList], &account)) {
        ExplainModify();
        return;
    }
    const Watched limits = id != CommandJeopardyOn ? Watched::None : account.LowWatch ? Watched::Both : Watched::Low;
    static constexpr Help Told[] = {Help::NoneWatched, Help::MinWatched, Help::AllWatched}; // ORDER WATCHED
    if (!WatchLimits(state.SelectedPos[AccountList], limits))
        return;
    ReloadList(AccountList, state.TopPos[AccountList]);
    LoadCurrentAccount();
    ShowHelp(Told[static_cast<int>(limits)]);
    Repaint();
}

// --- Filters

struct FilterCommand {
    int Id, Keep;
    FilterBy Field;
};
// clang-format off
constexpr FilterCommand Filters[] = {
    {ShowName,         1, FilterBy::Name},
    {ShowCategory,     1, FilterBy::Category},
    {ShowFlag,         1, FilterBy::Flag},
    {ShowRef,          1, FilterBy::Ref},
    {ShowDate,         1, FilterBy::Date},
    {ShowMonth,        1, FilterBy::Month},
    {ShowYear,         1, FilterBy::Year},
    {ShowEntry,        1, FilterBy::Entry},
    {ExcludeName,      0, FilterBy::Name},
    {ExcludeCategory,  0, FilterBy::Category},
    {ExcludeFlag,      0, FilterBy::Flag},
    {ExcludeRef,       0, FilterBy::Ref},
    {ExcludeDate,      0, FilterBy::Date},
    {ExcludeMonth,     0, FilterBy::Month},
    {ExcludeYear,      0, FilterBy::Year},
    {ExcludeEntry,     0, FilterBy::Entry},
    {ExcludePreceding, 0, FilterBy::Preceding},
    {ExcludeFollowing, 0, FilterBy::Following},
};
// clang-format on

// What the selected segment or entry has; 0 when there is none. `day` is that of the entry.
int TakeCriteria(const FilterCommand &command, FilterBy *field, FilterCriteria *criteria, uint32_t *day) {
    if (state.CurrentScreen == GraphList && ChartShown()) {
        GRec segment;
        if (!LoadGRec(state.SelectedPos[GraphList], &segment))
            return 0;
        *field = static_cast<FilterBy>(state.AnalysisGroup);
        *day = 0;
        CriteriaFromSegment(segment, criteria);
        return 1;
    }
    const int32_t position = state.SelectedPos[TransactionList];
    TRec row;
    if (!FetchTran(position, &row))
        return 0;
    *field = command.Field;
    *day = row.Date.DayNumber;
    CriteriaFromRow(row, EntriesShown(), position, state.AccountKind, criteria);
    return 1;
}

void Filter(int id) {
    FilterCriteria criteria;
    FilterBy field;
    uint32_t day;
    const FilterCommand *filter = std::find_if(std::begin(Filters), std::end(Filters),
                                               [id](const FilterCommand &command) { return command.Id == id; });
    if (filter == std::end(Filters) || !TakeCriteria(*filter, &field, &criteria, &day) ||
        !FilterAccount(state.CurAccount.ID, filter->Keep, field, criteria, day)) {
        Beep();
        return;
    }
    LoadTranFile(state.SelectedPos[AccountList],
                 TopAround(TransactionList, state.SelectedPos[TransactionList], state.EntryCount[TransactionList]));
    SetGreys(state.CurrentScreen);
    ShowHelp(Help::Filtered);
    state.Paint[state.CurrentScreen](ListWindow, PaintAll);
}

void FilterOff(int) {
    ClearFiltersAndRecompute();
    CheckT1totals();
    SetGreys(state.CurrentScreen);
    Repaint();
    ShowHelp(Help::FilterOff);
}

// --- Insert

// Markers belong into the live account as it is.
bool AsItIs() {
    return !state.ArchiveView && !state.FilterShown && state.EntryCount[AccountList] > 0;
}

void InsertDay(int) {
    if (AsItIs() && InsertDayMarker())
        Repaint();
}

void InsertReconcile(int) {
    if (!AsItIs() || state.AccountKind != BankAccount)
        return;
    state.SelectedPos[TransactionList] = state.EntryCount[TransactionList] + 1;
    DoButtonDblclk(ListWindow, ReconcileEntry);
}

void InsertTotal(int) {
    InsertTotalMarker();
    Repaint();
}

// --- Delete

// The list after a range of rows went: the selection stays on a row, the window on rows.
void ShowRemaining() {
    const int screen = state.CurrentScreen;
    const ListScreen *list = ScreenOf(screen);
    if (list->Changed)
        list->Changed();
    LoadShownRows(state.TopPos[screen]);
    int32_t *selected = &state.SelectedPos[screen];
    const int32_t count = state.EntryCount[screen];
    if (*selected > count)
        *selected = count;
    LoadShownRows(SetRecPosition(*selected, count));
    list->Paint(ListWindow, PaintAll);
}

void DeleteOne(int) {
    if (!AcceptInBin(state.SelectedPos[state.CurrentScreen])) {
        Beep();
        return;
    }
    if (state.CurrentScreen != BinList || Confirmed(CommandDeleteOne))
        BinRow(state.SelectedPos[state.CurrentScreen]);
}

// In the bin the second of the two commands that name a range deletes for good.
int MayDeleteRange(int id) {
    const bool ends = id == CommandDeleteStart ? state.RangeFinish > 0 : state.RangeStart > 0;
    return state.CurrentScreen != BinList || !ends || Confirmed(id);
}

void DeleteRange(int id) {
    if (!MayDeleteRange(id))
        return;
    if (id == CommandDeleteStart ? SelectRangeStart() : SelectRangeFinish())
        ShowRemaining();
}

void DeletePreceding(int id) {
    const int screen = state.CurrentScreen;
    if (screen == BinList && InList(state.SelectedPos[screen]) && !Confirmed(id))
        return;
    if (DeleteRecRange(1, state.SelectedPos[screen]) != 1) {
        Beep();
        return;
    }
    state.SelectedPos[state.CurrentScreen] = 1;
    ShowHelp(Help::Deleted);
    ShowRemaining();
}

void EmptyTheBin(int id) {
    if (!Confirmed(id))
        return;
    ClearFilters();
    if (!EmptyBin())
        return;
    state.EntryCount[BinList] = 0;
    state.TopPos[BinList] = state.SelectedPos[BinList] = 1;
    Repaint();
}

// --- Archive

void ShowAfterArchiving(int screen, int32_t top, int last) {
    RefreshAccounts();
    state.CurrentScreen = screen;
    LoadTranFile(state.SelectedPos[AccountList], top);
    state.SelectedPos[TransactionList] = last ? state.EntryCount[TransactionList] : 1;
    state.Paint[screen](ListWindow, PaintAll);
}

// With the progress form for a long job; what came of it.
ArchiveResult Rearrange(ArchiveResult (*work)(uint32_t, int32_t, ProgressTeller), int dialog, bool told,
                        int32_t position) {
    if (told)
        OpenProgressForm(dialog);
    const ArchiveResult result = work(state.CurAccount.ID, position, told ? TellProgress : nullptr);
    if (told)
        CloseProgressForm();
    return result;
}

void ArchivePreceding(int) {
    const int32_t position = state.SelectedPos[TransactionList];
    if (state.ArchiveView || state.FilterShown || position < 1 || state.EntryCount[TransactionList] < 1) {
        Beep();
        return;
    }
    const int screen = state.CurrentScreen;
    const ArchiveResult result = Rearrange(Archive, ArchiveDialog, position >= ShowProgressFrom, position);
    if (result == ArchiveResult::Refused)
        Beep();
    ShowAfterArchiving(screen, 1, 0);
    if (result == ArchiveResult::NotYet) {
        Beep();
        ForceHelp(Help::NothingToArchive);
    }
}

void UnarchiveFollowing(int) {
    const int32_t position = state.SelectedPos[TransactionList];
    const int32_t returning = state.EntryCount[TransactionList] - position + 1;
    if (!state.ArchiveView || state.FilterShown || position < 1 || returning < 1) {
        Beep();
        return;
    }
    if (Rearrange(Unarchive, UnarchiveDialog, returning > ShowProgressFrom, position) == ArchiveResult::Refused)
        Beep();
    ShowAfterArchiving(TransactionList, 0, 1);
}

// --- The bar

void Cross(int) {
    if (state.HelpMode)
        LeaveHelpOrHub(CommandHub);
    else
        state.Next = NextStep::Leave;
}

void Quit(int) {
    state.Next = NextStep::Leave;
}

void QuitFiltered(int) {
    state.Next = NextStep::LeaveFiltered;
}

void Eyes(int) {
    ToggleEyes();
}

void About(int) {
    OpenAbout();
}

void Hub(int) {
    TurnHub();
}

void Refuse(int) {
    Beep();
}

// What lies in front of the list has its own uses for what the owner does.
bool ListIsCovered() {
    return state.ActiveDialog != NoDialog || state.HubState == LargeHub || state.HubPicking;
}

// What a command does while a form is open.
enum class InForm : uint8_t { Nothing, Beeps, Explains, Works };

constexpr int Everywhere = 0x1FE, Accounts = 1 << AccountList, Entries = 1 << TransactionList,
              EntriesOrGraph = Entries | 1 << GraphList, AccountViews = Accounts | EntriesOrGraph,
              NotBin = Everywhere & ~(1 << BinList);

struct CommandRow {
    int Id;
    int Screens; // bit n: acts on screen n
    InForm Form;
    void (*Do)(int id);
    Deed Named = Deed::Unnamed; // what it writes; a form that it opens names its own
};
// clang-format off
constexpr CommandRow Commands[] = {
    {CommandNew,             NotBin,         InForm::Nothing,  NewEntry},
    {CommandNotepad,         Everywhere,     InForm::Nothing,  OpenNotepad},
    {CommandGeneral,         Everywhere,     InForm::Nothing,  OpenConfiguration},
    {CommandAlign,           Entries,        InForm::Nothing,  AlignColumns, Deed::Aligned},
    {CommandPasswordOn,      Everywhere,     InForm::Nothing,  PassCodeOn},
    {CommandPasswordOff,     Everywhere,     InForm::Nothing,  PassCodeOff},
    {CommandJeopardyOn,      AccountViews,   InForm::Explains, Jeopardy, Deed::Watched},
    {CommandJeopardyOff,     AccountViews,   InForm::Nothing,  Jeopardy, Deed::Watched},
    {ShowName,               EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowCategory,           EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowFlag,               EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowRef,                EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowDate,               EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowMonth,              EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowYear,               EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ShowEntry,              EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeName,            EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeCategory,        EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeFlag,            EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeRef,             EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeDate,            EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeMonth,           EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeYear,            EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeEntry,           EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludePreceding,       EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {ExcludeFollowing,       EntriesOrGraph, InForm::Nothing,  Filter, Deed::Filtered},
    {CommandFilterOff,       Everywhere,     InForm::Nothing,  FilterOff, Deed::Unfiltered},
    {CommandInsertDay,       Entries,        InForm::Nothing,  InsertDay, Deed::Marked},
    {CommandInsertReconcile, Entries,        InForm::Nothing,  InsertReconcile},
    {CommandInsertTotal,     Accounts,       InForm::Nothing,  InsertTotal, Deed::Marked},
    {CommandModify,          NotBin,         InForm::Explains, ModifyEntry},
    {CommandDeleteOne,       Everywhere,     InForm::Nothing,  DeleteOne, Deed::Deleted},
    {CommandDeleteStart,     Everywhere,     InForm::Nothing,  DeleteRange, Deed::Deleted},
    {CommandDeleteFinish,    Everywhere,     InForm::Nothing,  DeleteRange, Deed::Deleted},
    {CommandDeletePreceding, Everywhere,     InForm::Nothing,  DeletePreceding, Deed::Deleted},
    {CommandEmptyBin,        Everywhere,     InForm::Nothing,  EmptyTheBin, Deed::BinEmptied},
    {CommandAbout,           Everywhere,     InForm::Nothing,  About},
    {CommandExport,          EntriesOrGraph, InForm::Beeps,    ExportEntries},
    {CommandImport,          EntriesOrGraph, InForm::Beeps,    ImportEntries},
    {CommandBackup,          Everywhere,     InForm::Nothing,  OpenBackup},
    {CommandRestore,         Everywhere,     InForm::Nothing,  OpenRestore},
    {CommandArchive,         EntriesOrGraph, InForm::Beeps,    ArchivePreceding, Deed::Archived},
    {CommandUnarchive,       Entries,        InForm::Beeps,    UnarchiveFollowing, Deed::Unarchived},
    {CommandExit,            Everywhere,     InForm::Nothing,  Quit},
    {CommandCross,           Everywhere,     InForm::Nothing,  Cross},
    {CommandLeftEye,         Everywhere,     InForm::Works,    Eyes},
    {CommandRightEye,        Everywhere,     InForm::Works,    Eyes},
    {CommandHub,             Everywhere,     InForm::Works,    Hub},
    {CommandClose,           Everywhere,     InForm::Works,    Quit},
    {CommandOk,              Everywhere,     InForm::Works,    QuitFiltered},
    {CommandBeep,            Everywhere,     InForm::Works,    Refuse},
};
// clang-format on

// On the graph these act on the entry of the selected point, which must be brought to the transactions first. Charts
// have no points; there a filter works on what the transactions show as selected.
enum class Works : uint8_t { OnPlainList, Filtered, AlsoInCharts };
struct PointCommand {
    int First, Last; // of the commands' numbers
    Works Where;
};
// clang-format off
constexpr PointCommand OnPoint[] = {
    {CommandModify,          CommandModify,          Works::Filtered},
    {ExcludeFlag,            ExcludeCategory,        Works::AlsoInCharts},
    {ExcludeEntry,           ExcludeFollowing,       Works::AlsoInCharts},
    {ShowEntry,              ShowEntry,              Works::AlsoInCharts},
    {CommandDeleteOne,       CommandDeleteFinish,    Works::OnPlainList},
    {CommandDeletePreceding, CommandDeletePreceding, Works::OnPlainList},
    {CommandArchive,         CommandArchive,         Works::OnPlainList},
};
// clang-format on

// 0 when the command needs a point and there is none that it may work on.
int PointServes(int command) {
    if (state.CurrentScreen != GraphList)
        return 1;
    for (const PointCommand &row : OnPoint) {
        if (command < row.First || command > row.Last)
            continue;
        if (ChartShown())
            return row.Where == Works::AlsoInCharts;
        return BringSelectedPoint() && (row.Where != Works::OnPlainList || !state.FilterShown);
    }
    return 1;
}

} // namespace

void DoCommand(int command) {
    for (const CommandRow &row : Commands) {
        if (row.Id != command)
            continue;
        if (ListIsCovered() && row.Form != InForm::Works) {
            if (row.Form == InForm::Explains)
                ExplainModify();
            else if (row.Form == InForm::Beeps)
                Beep();
        } else if (!PointServes(command)) {
            row.Form == InForm::Explains ? ExplainModify() : Beep();
        } else if (row.Screens >> state.CurrentScreen & 1) {
            row.Do(command);
            if (row.Named != Deed::Unnamed)
                NameDeed(row.Named);
        } else {
            Beep();
        }
        return;
    }
}
