// The form that brings a bank's file into the current account.
#include "exchange/import.h"
#include "exchange/file_list.h"
#include "forms/exchange_parts.h"
#include "forms/forms.h"
#include "frame/message_window.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "platform/action.h"
#include "platform/text.h"
#include "resources/deeds.h"
#include "state/messages.h"
#include <iterator>

namespace {

// ORDER FILEFORMAT: the rows of the format list
enum FileFormat : int { QifFile, OfxFile, CsvFile };
struct FormatRow {
    const char16_t *Shown;
    const char *Extension;
};
constexpr FormatRow Formats[] = {{u" qif", "qif"}, {u" ofx", "ofx"}, {u" csv", "csv"}};

// ORDER DATEOPTION: the three choices
enum DateOption : int { AllEntries = 1, NewerEntries = 2, FromDate = 3 };

// clang-format off
constexpr FormPart Parts[] = {
    // item              box                     hit                     text                          side          field
    {LabelItem,          {0, 3, 70, 23},         {0, 3, 72, 23},         u"File name",                 Align::Right, FileField},
    {LabelItem,          {0, 25, 70, 45},        {0, 25, 72, 45},        u"Format",                    Align::Right, FormatField},
    {LabelItem,          {156, 25, 236, 45},     {152, 25, 240, 45},     u"My Device",                 Align::Left,  FileField},
    {LabelItem,          {0, 47, 70, 67},        {0, 47, 72, 67},        u"Security",                  Align::Right, SecurityField},
    {LabelItem,          {17, 72, 135, 88},      {},                     u"Import entries:",           Align::Left},
    {LabelItem,          {38, 91, 236, 107},     {},                     u"all",                       Align::Left},
    {LabelItem,          {38, 116, 236, 132},    {},                     u"newer than in the account", Align::Left},
    {LabelItem,          {38, 141, 236, 157},    {},                     u"after (& inc)",             Align::Left},
    {FirstChoiceItem,    {},                     {17, 91, 168, 107},     u"all entries"},
    {SecondChoiceItem,   {},                     {17, 116, 168, 132},    u"entries newer than in the account"},
    {ThirdChoiceItem,    {},                     {17, 141, 168, 157},    u"entries from the date on"},
};
constexpr FieldHelp FieldHelps[] = {
    {FileField,        Help::ImportFile},
    {FormatField,      Help::ImportFormat},
    {SecurityField,    Help::SecurityField},
    {DateField,        Help::DateField},
    {FirstChoiceItem,  Help::ImportAll},
    {SecondChoiceItem, Help::ImportNewer},
    {ThirdChoiceItem,  Help::ImportFrom},
};
// clang-format on

// What stands in the lists.
FileList Files;
SecurityList Securities;
bool RootUnread; // the machine refused to read what is listed

void ListFormats(int field) {
    for (const FormatRow &row : Formats)
        AddControlItem(field, row.Shown);
}
constexpr FieldList Lists[] = {{FormatField, ListFormats}};

// The path of the file chosen. 0 for none.
int ChosenPath(char *path) {
    const int index = SelectedControlItem(FileField);
    if (index < 0 || index >= Files.Count)
        return 0;
    RootPath(path, Files.Names[index]);
    return 1;
}

// The account's own security is the one proposed.
void ShowSecurities() {
    ClearControlList(SecurityField);
    char path[PathRoom];
    Securities.Count = 0;
    if (state.ExchangeKind != QifFile || !ChosenPath(path) || !ListSecurities(path, &Securities)) {
        Securities.Count = 0;
        AddControlItem(SecurityField, u"<not applicable>");
        SelectControlItem(SecurityField, 0);
        return;
    }
    int own = 0;
    for (int i = 0; i < Securities.Count; ++i) {
        AddControlItem(SecurityField, Securities.Names[i]);
        if (SameText(Securities.Names[i], state.CurAccount.Name))
            own = i;
    }
    SelectControlItem(SecurityField, own);
}

void ShowFiles() {
    ListFiles(&Files, Formats[state.ExchangeKind].Extension);
    ClearControlList(FileField);
    char16_t name[FileNameRoom];
    for (int i = 0; i < Files.Count; ++i) {
        ShownName(Files, i, name);
        AddControlItem(FileField, name);
    }
    if (Files.Count == 0)
        AddControlItem(FileField, u"<no files>");
    SelectControlItem(FileField, 0);
    ShowSecurities();
}

// Reads the owner's own files into the lists.
void ReadRoot(void (*show)()) {
    const bool well = ActionRefused() == NotRefused;
    show();
    RootUnread = well && ActionRefused() != NotRefused;
}

// What can't be read of them is no trouble of the records. 1 when there was any.
int TellUnread() {
    if (!RootUnread)
        return 0;
    RootUnread = false;
    GiveActionUp(Help::ImportUnreadable);
    return 1;
}

void Fill(int) {
    state.DateOption = NewerEntries;
    state.ExchangeKind = QifFile;
    SelectControlItem(FormatField, QifFile);
    SetFieldDate(DateField, DateProposed(1));
    ReadRoot(ShowFiles);
}

void Changed(const Event &event) {
    if (event.Change != ControlChange::Choice)
        return;
    if (event.Control == FormatField) {
        const int chosen = SelectedControlItem(FormatField);
        state.ExchangeKind = chosen < 0 ? QifFile : chosen;
        ReadRoot(ShowFiles);
    } else if (event.Control == FileField) {
        ReadRoot(ShowSecurities);
    }
    TellUnread();
}

uint32_t FirstDay() {
    if (state.DateOption == AllEntries)
        return 0;
    if (state.DateOption == NewerEntries)
        return DayAfterLastEntry(EntriesShown());
    RecDate date = DateProposed(1); // what stands there unless the owner changed it
    GetFieldDate(DateField, &date);
    return date.DayNumber;
}

int ImportChosen(const char *path) {
    const Place place = EntriesShown();
    const uint32_t firstDay = FirstDay();
    if (state.ExchangeKind == OfxFile)
        return ImportOFXFile(place, path, firstDay, ShowProgress);
    if (state.ExchangeKind == CsvFile)
        return ImportCSVFile(place, path, firstDay, ShowProgress);
    const int security = SelectedControlItem(SecurityField);
    const bool chosen = security >= 0 && security < Securities.Count;
    return ImportQIFFile(place, path, firstDay, chosen ? Securities.Names[security] : u"", ShowProgress);
}

// What is told stands where the list is. A window that is shut opens when it must.
void OpenMessages(bool must) {
    if (must && !state.MessageWindowOn)
        ToggleHelpMode(1, 0);
}

void PaintOnList() {
    if (state.MessageWindowOn && !state.HelpMode)
        PaintMessages(ListWindow, EveryBand);
}

// What became of every entry; a window that is shut opens for trouble alone.
void TellSummary() {
    const int32_t *count = state.ImportCount;
    OpenMessages(count[3] > 0 || count[0] + count[1] + count[2] < count[5]);
    ShowHelpMessage(0, 1, -1, -2, -3, -4, -5, -6);
    PaintOnList();
}

void TellRefusal(int result) {
    OpenMessages(true);
    const bool share = IsShare(state.CurAccount.AccType);
    if (result == ImportMoney || result == ImportShares)
        ForceHelp(share ? Help::MoneyIntoShares : Help::SharesIntoMoney);
    else
        ForceHelp(share ? Help::UnsupportedIntoShares : Help::UnsupportedIntoMoney);
    PaintOnList();
}

int RefuseFile() {
    ShowProgress(0);
    ShowFiles(); // it may have gone since it was listed
    GiveActionUp(Help::ImportUnreadable);
    return TickRefused;
}

// The end lines of a form would cover the summary: so the form makes the entries durable and ends before it is told,
// and the frame has nothing left to do.
int DiaImport() {
    char path[PathRoom];
    if (!ChosenPath(path)) {
        RefuseTick(Help::NoFilesFound);
        return TickRefused;
    }
    const int result = ImportChosen(path);
    if (result == ImportUnwritten)
        return TickUnwritten;
    if (result == ImportFailed)
        return RefuseFile();
    NameDeed(Deed::Imported);
    RefreshAccounts();
    if (result == ImportDone)
        state.SelectedPos[TransactionList] = state.EntryCount[TransactionList];
    if (!FinishAction())
        return TickRefused;
    Dialog_End();
    if (result == ImportDone)
        TellSummary();
    else
        TellRefusal(result);
    return TickRefused;
}

constexpr Form ImportForm = {.Dialog = ImportDialog,
                             .WithPanel = 0,
                             .Controls = &ImportTemplate,
                             .Parts = Parts,
                             .FieldHelps = FieldHelps,
                             .Lists = Lists,
                             .Fill = Fill,
                             .Tick = DiaImport,
                             .Cross = nullptr,
                             .Changed = Changed,
                             .Tapped = TapChoice,
                             .Decor = PaintChoices,
                             .Title = [] { return u"Import"; }};

} // namespace

int OpenImportForm() {
    if (state.FilterShown || !OpenExchangeForm(&ImportForm))
        return 0;
    if (!TellUnread())
        ShowHelp(Help::Import);
    return 1;
}
