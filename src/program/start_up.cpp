#include "program/start_up.h"
#include "care/backup.h"
#include "care/migration.h"
#include "care/pass_code.h"
#include "cipher/keys.h"
#include "drawing/cells.h"
#include "drawing/colour_model.h"
#include "forms/pass_code.h"
#include "frame/command_bar.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "frame/scroll.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/filter.h"
#include "ledger/recurring.h"
#include "platform/action.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "program/sample_data.h"
#include "screens/screens.h"
#include "state/greys.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/windows.h"
#include <span>

namespace {

// --- Before the windows

// Takes over the data of the generation before into the directory just made: all of it or nothing of it, as long as all
// of it can be read.
void TakeOverOldData() {
    const int whole = OldDataReadable();
    if (whole) {
        BeginAction();
        ActionLeavesNoHistory();
    }
    int made = MakeDirectory(DataDirectory);
    if (made) {
        MigrateDataDirectory();
        CreateSampleData(FileKind::Check);
        char accounts[PathRoom];
        DataPath(accounts, FileKind::Accounts);
        if (FileExists(accounts)) // without accounts this is a first run, whose sample brings its categories
            CreateSampleData(FileKind::Categories);
        CreateSampleData(FileKind::Conversions);
    }
    if (whole)
        made = CommitAction() && made;
    state.Migrated = made == 1;
}

void MakeDirectories() {
    for (const char *path : {"\\Program Files", "\\Program Files\\Zentrik"})
        if (DirectoryThere(path) != 1 && !MakeDirectory(path))
            return; // whatever needs it reports for itself
}

void MakeDataDirectory() {
    if (!state.DataUsable || DirectoryThere(DataDirectory) == 1 || FinishRestore())
        return;
    if (OldDataThere())
        TakeOverOldData();
    else
        static_cast<void>(MakeDirectory(DataDirectory));
}

// Nothing may be read before the data are this process's alone and hold all that was done before.
void TakeData() {
    MakeDirectories();
    const int locked = LockFiles();
    if (locked == 1 && RecoverFiles())
        return;
    state.DataUsable = 0;
    state.Refusal = locked == 0    ? DataRefusal::InUse
                    : locked == -1 ? DataRefusal::Unreachable
                                   : DataRefusal::Unrecovered;
    TellTerminal(locked == 0 ? "zentrik: another program uses the data"
                             : "zentrik: the data can't be taken for this program alone, or the journal not applied");
}

// The start is several actions, none of which an undo takes back.
void BeginStep() {
    BeginAction();
    ActionLeavesNoHistory();
}
ActionRefusal refusal; // of the first step that was refused
int NextAction() {
    const int done = CommitAction();
    if (refusal == NotRefused)
        refusal = static_cast<ActionRefusal>(ActionRefused());
    BeginStep();
    return done;
}

void AskForNames() {
    for (int day = 0; day < 7; ++day)
        state.DayNames[day] = WeekdayName(day);
    for (int month = 1; month <= 12; ++month)
        state.MonthNames[month] = MonthName(month);
    LoadTodaysDate(&state.SharedToday);
}

// --- The data

void OpenMessageWindow() {
    state.MessageWindowOn = state.HelpMode = 1;
    state.RowCount = RowsAboveMessages;
    state.LeftEye = state.RightEye = OpenEye;
}

// Data that can't be read may not be touched.
void RefuseData(DataRefusal why) {
    state.DataUsable = 0;
    state.Refusal = why;
    OpenMessageWindow();
}

// The pass code comes before any data. 1 when the screen waits for it.
int WaitForPassCode() {
    if (!state.DataUsable || state.PasswordOn != 1)
        return 0;
    if (state.CipherSuite > SealedSuite) {
        RefuseData(DataRefusal::WrongVersion);
        return 0;
    }
    if (!SuiteOffered(static_cast<int>(state.CipherSuite))) {
        RefuseData(DataRefusal::CipherMissing);
        return 0;
    }
    state.FrontPageDone = 1;
    SetMenuBar();
    return OpenPassCode(EnterCode);
}

int Missing(FileKind kind) {
    char path[PathRoom];
    DataPath(path, kind);
    return !FileExists(path);
}

// A list behind the accounts, and whether its file was missing before a loader made it.
struct FurtherList {
    FileKind Kind;
    int List;
    int (*Load)(int32_t top);
    int32_t Top;
    bool HasSample;
    int WasMissing;
};

// Reads every list. Nothing is written before all of them have shown that they can be read.
int LoadLists(std::span<FurtherList> lists) {
    for (FurtherList &list : lists)
        list.WasMissing = Missing(list.Kind);
    LoadAccFile(1);
    for (const FurtherList &list : lists)
        list.Load(list.Top);
    LoadPalette();
    return state.DataUsable == 1 && AcceptTranFile(state.SelectedPos[AccountList]);
}

void FillWithSamples(std::span<const FurtherList> lists, int firstRun) {
    if (firstRun)
        CreateSampleData(FileKind::Accounts);
    for (const FurtherList &list : lists) {
        if (!list.HasSample || state.EntryCount[list.List] > 0 || !(firstRun || list.WasMissing))
            continue;
        CreateSampleData(list.Kind);
        list.Load(list.Top);
    }
    if (Missing(FileKind::Check))
        CreateSampleData(FileKind::Check);
}

void SetPositions() {
    state.SelectedPos[AccountList] = state.SelectedPos[RecurringList] = state.SelectedPos[BinList] = 1;
    state.SelectedPos[TransactionList] = state.SelectedPos[TemplateList] = 0;
    state.SelectedPos[CategoryList] = state.SelectedPos[ConversionList] = 0;
}

// 1 when all of it was done and is durable.
int FirstLoad() {
    FurtherList lists[] = {
        {FileKind::Recurring, RecurringList, LoadDDFile, 1, true, 0},
        {FileKind::Templates, TemplateList, LoadFavFile, 0, true, 0},
        {FileKind::Bin, BinList, LoadBinFile, 1, false, 0},
        {FileKind::Categories, CategoryList, LoadCatFile, 0, false, 0},
        {FileKind::Conversions, ConversionList, LoadCurFile, 0, true, 0},
    };
    SetPositions();
    const int usable = LoadLists(lists);
    state.FileAccessReady = 1;
    int done = 1;
    const int firstRun = usable && state.EntryCount[AccountList] == 0;
    if (usable) {
        FillWithSamples(lists, firstRun);
        done = NextAction();
        CheckT1totals(0);
        done = NextAction() && done;
    }
    if (firstRun || !usable)
        OpenMessageWindow();
    SetPositions();
    state.CurrentScreen = AccountList;
    LoadAccFile(1);
    LoadCurrentAccount();
    if (state.CurAccount.RowKind != HeadingRow)
        LoadTranFile(state.SelectedPos[AccountList], 0);
    LoadAccFile(1);
    state.SelectedPos[TransactionList] = 0;
    MeasureYearColumn();
    return done;
}

// --- The first screen

void ShowFirstScreen(int loaded) {
    state.FrontPageDone = 1;
    // A disk that refuses says so before anything is entered.
    const bool writable = !state.DataUsable || (StampLastChecked() && NextAction() && loaded);
    if (!writable) {
        AbortAction();
        BeginStep();
        OpenMessageWindow();
    }
    SetMenuBar();
    if (state.DataUsable) {
        CheckDDs();
        DDFileCheck();
        static_cast<void>(NextAction());
    }
    state.CurrentScreen = AccountList;
    LoadAccFile(1);
    SetGreys(AccountList);
    PlaceListScrollBar();
    doAccounts(ListWindow, PaintAll);
    if (writable)
        ShowHelpMessage(1, 1, 0, 2, 3, 0, 0, 0);
    else
        ShowHelpMessage(1, 1, 128, 0, refusal == ReadRefused ? 489 : 133, 0, 0, 0);
}

// The configuration, then the gate of the pass code or the data.
void OpenData() {
    if (state.DataUsable && ConfigurationLost())
        RefuseData(DataRefusal::ConfigurationLost);
    LoadConfFile();
    UpdateBmap();
    if (!state.DataUsable)
        OpenMessageWindow();
    if (!WaitForPassCode())
        ShowFirstScreen(FirstLoad());
}

} // namespace

// Nothing below may be reordered: later steps read what earlier ones set.
int StartUp() {
    if (!TakeInstanceLock())
        return -1;
    ResetState();
    refusal = NotRefused;
    SetPaintProcedures();
    TakeData();
    MakeDataDirectory();
    BeginStep();
    DefaultPalette();
    AskForNames();
    if (!CreateWindows()) {
        AbortAction();
        return 0;
    }
    LoadHelp();
    OpenData();
    static_cast<void>(CommitAction());
    static_cast<void>(LockFiles()); // with the data directory, which may be this start's
    return 1;
}

void StartAgain() {
    const uint32_t helped = state.HelpMode;
    ResetState();
    SetPaintProcedures();
    DefaultPalette();
    AskForNames();
    if (helped)
        OpenMessageWindow();
    BeginStep();
    OpenData();
    static_cast<void>(CommitAction());
}

void LoadData() {
    BeginStep();
    ShowFirstScreen(FirstLoad());
    static_cast<void>(CommitAction());
}

void ShutDown(int keepFilters) {
    BeginStep();
    if (state.DataUsable && state.FileAccessReady) { // behind the gate of the pass code nothing is touched
        if (!keepFilters)
            ClearFilters();
        StoreConfFile();
    }
    static_cast<void>(CommitAction()); // refused or not, the program leaves
    static_cast<void>(SyncFiles());    // what it can't bring to the disk, the next start finds in the journal
    ForgetCurrentKey();
    LeaveLoop();
}
