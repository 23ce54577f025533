#include "program/start_up.h"
#include "analysis/charts.h"
#include "care/backup.h"
#include "care/migration.h"
#include "care/pass_code.h"
#include "cipher/keys.h"
#include "drawing/cells.h"
#include "drawing/palette.h"
#include "forms/pass_code.h"
#include "frame/changes.h"
#include "frame/command_bar.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "frame/scroll.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/recurring.h"
#include "platform/action.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "program/sample_data.h"
#include "screens/front_page.h"
#include "screens/list_screen.h"
#include "screens/screens.h"
#include "state/greys.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/windows.h"
#include <span>

namespace {

// --- Before the windows

// Takes over the data of the generation before into the directory just made: all of it or nothing of it, as long as all
// of it can be read.
void TakeOverOldData() {
    const int whole = OldDataReadable();
    if (whole)
        BeginAction();
    int made = MakeDirectory(DataDirectory);
    if (made) {
        MigrateDataDirectory();
        CreateSampleData(FileKind::Check);
        char accounts[PathRoom];
        DataPath(accounts, FileKind::Accounts);
        if (FileThere(accounts) == 1) // without accounts this is a first run, whose sample brings its categories
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

void AskForNames() {
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

// Data that can't be read, or of which a part is lost, may not be touched.
void RefuseData(DataRefusal reason) {
    state.DataUsable = 0;
    state.Refusal = reason;
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

// Ends one step of the start and begins the next. 0 when the step was refused; what can't be read is not used at all.
int NextAction() {
    const int done = CommitAction();
    if (!done && ActionRefused() == ReadRefused && state.DataUsable)
        RefuseData(DataRefusal::Unreadable);
    BeginAction();
    return done;
}

bool Missing(FileKind kind) {
    char path[PathRoom];
    DataPath(path, kind);
    return FileThere(path) == 0;
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
    return state.DataUsable == 1 && AcceptRows(LiveRows(RectoID(state.SelectedPos[AccountList])));
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

// The transaction files beside a list of accounts that is empty. One that belongs to no account of the bin is that of
// an account whose row was lost.
enum class AccountFiles : uint8_t { None, OfBin, Lost };
AccountFiles FindAccountFiles() {
    AccountFiles found = AccountFiles::None;
    FileWalk walk;
    char name[PathRoom];
    FindNames(&walk, DataDirectory, "E1_02");
    while (found != AccountFiles::Lost && FindNextName(&walk, name, PathRoom)) {
        uint32_t accountID;
        found = AccountOfFile(name, &accountID) && AccountInBin(accountID) ? AccountFiles::OfBin : AccountFiles::Lost;
    }
    EndFind(&walk);
    return found;
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
    int usable = LoadLists(lists);
    state.FileAccessReady = 1;
    const bool noAccounts = usable && state.EntryCount[AccountList] == 0;
    const AccountFiles files = noAccounts ? FindAccountFiles() : AccountFiles::None;
    if (files == AccountFiles::Lost) {
        RefuseData(DataRefusal::AccountsLost);
        usable = 0;
    }
    const bool firstRun = noAccounts && files == AccountFiles::None;
    int done = 1;
    if (usable) {
        if (!ActionRefused())
            FillWithSamples(lists, firstRun);
        done = NextAction();
        CheckT1totals();
        done = NextAction() && done;
    }
    if (firstRun || !usable)
        OpenMessageWindow();
    return done;
}

void ShowFirstAccount() {
    SetPositions();
    state.CurrentScreen = AccountList;
    ReloadList(AccountList, 1);
    LoadCurrentAccount();
    if (state.CurAccount.RowKind != HeadingRow)
        LoadTranFile(state.SelectedPos[AccountList], 0);
    ReloadList(AccountList, 1);
    state.SelectedPos[TransactionList] = 0;
    MeasureYearColumn();
}

// --- The first screen

void ShowFirstScreen(int loaded) {
    state.FrontPageDone = 1;
    // A disk that refuses says so before anything is entered.
    const bool writable = !state.DataUsable || loaded;
    if (!writable)
        OpenMessageWindow();
    SetMenuBar();
    if (state.DataUsable) {
        CheckDDs();
        DDFileCheck();
        static_cast<void>(NextAction());
    }
    state.CurrentScreen = AccountList;
    ReloadList(AccountList, 1);
    LoadCurrentAccount();
    SetGreys(AccountList);
    PlaceListScrollBar();
    doAccounts(ListWindow, PaintAll);
    ForceHelp(writable ? Help::TapAnItem : Help::NotWritable);
}

void ShowData() {
    const int loaded = FirstLoad();
    ShowFirstAccount();
    ShowFirstScreen(loaded);
}

// The settings, which say whether there is a pass code: without them nothing is read.
void ReadSettings() {
    if (ConfigurationLost() && ActionRefused() == NotRefused) {
        RefuseData(DataRefusal::ConfigurationLost);
        return;
    }
    if (!LoadConfFile())
        RefuseActionFor(ReadRefused);
    if (ActionRefused() == ReadRefused)
        RefuseData(DataRefusal::Unreadable);
    else
        UpdateBmap();
}

// The pass code where the data are under one, and otherwise the data.
void OpenGate() {
    if (!state.DataUsable)
        OpenMessageWindow();
    if (!WaitForPassCode())
        ShowData();
}

} // namespace

// Nothing below may be reordered: later steps read what earlier ones set.
int StartUp() {
    if (!TakeInstanceLock())
        return -1;
    ResetState();
    SetPaintProcedures();
    TakeData();
    MakeDataDirectory();
    BeginAction();
    DefaultPalette();
    AskForNames();
    if (!CreateWindows()) {
        AbortAction();
        return 0;
    }
    LoadHelp();
    if (state.DataUsable)
        ReadSettings();
    static_cast<void>(NextAction());
    if (state.ShowFrontPage == 1 && state.DataUsable) {
        AbortAction(); // nothing was done since
        OpenFrontPage();
    } else {
        GoOnFromPage();
    }
    return 1;
}

void GoOnFromPage() {
    state.Next = NextStep::None;
    if (!ActionRuns())
        BeginAction();
    OpenGate();
    static_cast<void>(CommitAction()); // what showing wrote is written again when it is needed
    static_cast<void>(LockFiles());    // with the data directory, which may be this start's
}

void StartAgain() {
    const uint32_t helped = state.HelpMode;
    ResetState();
    SetPaintProcedures();
    DefaultPalette();
    AskForNames();
    if (helped)
        OpenMessageWindow();
    BeginAction();
    ReadSettings();
    static_cast<void>(NextAction());
    OpenGate();
    static_cast<void>(CommitAction());
}

void LoadData() {
    state.Next = NextStep::None;
    BeginAction();
    ShowData();
    static_cast<void>(CommitAction());
}

void ShutDown(int keepFilters) {
    BeginAction();
    if (state.DataUsable) {
        if (!keepFilters && state.FileAccessReady) // behind the gate of the pass code no records are touched
            ClearFilters();
        StoreConfFile();
        EndCharts();
    }
    static_cast<void>(CommitAction()); // refused or not, the program leaves
    static_cast<void>(SyncFiles());    // what it can't bring to the disk, the next start finds in the journal
    ForgetCurrentKey();
    LeaveLoop();
}
