#include "core/startup/start_up.h"
#include "core/greys.h"
#include "core/messages.h"
#include "core/startup/sample_data.h"
#include "core/state.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/filter.h"
#include "ledger/recurring.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "screens/drawing/cells.h"
#include "screens/drawing/colour_model.h"
#include "screens/frame/command_bar.h"
#include "screens/frame/header.h"
#include "screens/frame/message_window.h"
#include "screens/frame/scroll.h"
#include "screens/screens.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/windows.h"

namespace {

// --- Before the windows

void MakeDirectories() {
    static constexpr const char *Paths[] = {"\\Program Files", "\\Program Files\\Zentrik", DataDirectory};
    for (const char *path : Paths)
        if (!DirectoryThere(path) && !MakeDirectory(path))
            return; // whatever needs it reports for itself
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

// Enciphered data can't be read before a pass code is asked for, and they may not be touched.
void RefuseEncipheredData() {
    state.DataUsable = 0;
    OpenMessageWindow();
}

int Missing(FileKind kind) {
    char path[PathRoom];
    DataPath(path, kind);
    return !FileExists(path);
}

// A list that has a sample, and whether its file was missing before a loader made it.
struct SampleList {
    FileKind Kind;
    int List;
    int (*Load)(int32_t top);
    int32_t Top;
    int WasMissing;
};

// Reads every list. Nothing is written before all of them have shown that they can be read.
int LoadLists(SampleList *samples, int count) {
    for (int i = 0; i < count; ++i)
        samples[i].WasMissing = Missing(samples[i].Kind);
    LoadAccFile(1);
    for (int i = 0; i < count; ++i)
        samples[i].Load(samples[i].Top);
    LoadBinFile(1);
    LoadCatFile(0);
    LoadPalette();
    return state.DataUsable == 1 && AcceptTranFile(state.SelectedPos[AccountList]);
}

void FillWithSamples(const SampleList *samples, int count, int firstRun) {
    if (firstRun)
        CreateSampleData(FileKind::Accounts);
    for (int i = 0; i < count; ++i) {
        const bool empty = state.EntryCount[samples[i].List] == 0;
        if (!empty || !(firstRun || samples[i].WasMissing))
            continue;
        CreateSampleData(samples[i].Kind);
        samples[i].Load(samples[i].Top);
    }
    if (Missing(FileKind::Check))
        CreateSampleData(FileKind::Check);
}

void SetPositions() {
    state.SelectedPos[AccountList] = state.SelectedPos[RecurringList] = state.SelectedPos[BinList] = 1;
    state.SelectedPos[TransactionList] = state.SelectedPos[TemplateList] = 0;
    state.SelectedPos[CategoryList] = state.SelectedPos[ConversionList] = 0;
}

void FirstLoad() {
    SampleList samples[] = {
        {FileKind::Recurring, RecurringList, LoadDDFile, 1, 0},
        {FileKind::Templates, TemplateList, LoadFavFile, 0, 0},
        {FileKind::Conversions, ConversionList, LoadCurFile, 0, 0},
    };
    SetPositions();
    const int usable = LoadLists(samples, 3);
    state.FileAccessReady = 1;
    const int firstRun = usable && state.EntryCount[AccountList] == 0;
    if (usable) {
        FillWithSamples(samples, 3, firstRun);
        CheckT1totals(0);
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
}

// --- The first screen

void ShowFirstScreen() {
    state.FrontPageDone = 1;
    // A disk that refuses says so before anything is entered.
    const bool writable = !state.DataUsable || StampLastChecked();
    if (!writable)
        OpenMessageWindow();
    SetMenuBar();
    if (state.DataUsable) {
        CheckDDs();
        DDFileCheck();
    }
    state.CurrentScreen = AccountList;
    LoadAccFile(1);
    SetGreys(AccountList);
    PlaceListScrollBar();
    doAccounts(ListWindow, PaintAll);
    if (writable)
        ShowHelpMessage(1, 1, 0, 2, 3, 0, 0, 0);
    else
        ShowHelpMessage(1, 1, 128, 0, 133, 0, 0, 0);
}

} // namespace

// Nothing below may be reordered: later steps read what earlier ones set.
int StartUp() {
    if (!TakeInstanceLock())
        return -1;
    ResetState();
    SetPaintProcedures();
    MakeDirectories();
    DefaultPalette();
    AskForNames();
    if (!CreateWindows())
        return 0;
    LoadHelp();
    LoadConfFile();
    UpdateBmap();
    if (state.PasswordOn == 1)
        RefuseEncipheredData();
    FirstLoad();
    ShowFirstScreen();
    return 1;
}

void ShutDown(int keepFilters) {
    if (state.DataUsable) {
        if (!keepFilters)
            ClearFilters();
        StoreConfFile();
    }
    SyncFiles();
    LeaveLoop();
}
