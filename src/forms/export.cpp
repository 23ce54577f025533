// The form that writes the current account, or its archive, as a file for other programs.
#include "exchange/export.h"
#include "exchange/file_list.h"
#include "forms/exchange_parts.h"
#include "forms/forms.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "platform/text.h"
#include "state/messages.h"
#include <cstdio>

namespace {

// The rows of the format list; and what each kind does: deliberately the list shows csv first while the kind is 2,
// which writes CSV, and csv chosen in the list is 1, which writes nothing.
constexpr const char16_t *FormatNames[] = {u" qif", u" csv", u" txt"};
constexpr int FirstShown = 1, FirstKind = 2;
struct KindRow {
    const char *Extension; // null: nothing is written
    int (*Export)(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell);
};
constexpr KindRow Kinds[] = {{"qif", ExportQIFFile}, {nullptr, nullptr}, {"csv", ExportCSVFile}};

// clang-format off
constexpr FormPart Parts[] = {
    // item              box                     hit                     text                 side          field
    {LabelItem,          {0, 8, 70, 28},         {0, 8, 72, 28},         u"File name",        Align::Right, TextField},
    {LabelItem,          {0, 34, 70, 54},        {0, 34, 72, 54},        u"Format",           Align::Right, FormatField},
    {LabelItem,          {156, 34, 236, 54},     {152, 34, 240, 54},     u"My Device",        Align::Left,  TextField},
    {LabelItem,          {17, 67, 135, 83},      {},                     u"Export entries:",  Align::Left},
    {LabelItem,          {38, 91, 236, 107},     {},                     u"all",              Align::Left},
    {LabelItem,          {38, 116, 236, 132},    {},                     u"after (& inc)",    Align::Left},
    {LabelItem,          {38, 166, 236, 182},    {},                     u"before (& inc)",   Align::Left},
    {FirstChoiceItem,    {},                     {17, 91, 168, 107},     u"all entries"},
    {SecondChoiceItem,   {},                     {17, 116, 168, 132},    u"entries from the date on"},
    {ThirdChoiceItem,    {},                     {17, 166, 168, 182},    u"entries up to the date"},
};
constexpr FieldHelp FieldHelps[] = {
    {TextField,        Help::Export},
    {FormatField,      Help::ExportFormat},
    {DateField,        Help::DateField},
    {FirstChoiceItem,  Help::ExportAll},
    {SecondChoiceItem, Help::ExportFrom},
    {ThirdChoiceItem,  Help::ExportUpTo},
};
// clang-format on

void ListFormats(int field) {
    for (const char16_t *name : FormatNames)
        AddControlItem(field, name);
}
constexpr FieldList Lists[] = {{FormatField, ListFormats}};

void Fill(int) {
    state.DateOption = ExportAll;
    state.ExchangeKind = FirstKind;
    SelectControlItem(FormatField, FirstShown);
    char16_t name[ExportNameRoom];
    SuggestName(name, state.CurAccount.Name, ViewShown() == View::Archive);
    SetFieldText(TextField, name);
    SetFieldDate(DateField, DateProposed(0));
}

void Changed(const Event &event) {
    if (event.Control == FormatField && event.Change == ControlChange::Choice)
        state.ExchangeKind = SelectedControlItem(FormatField);
}

int DiaExport() {
    char16_t name[ExportNameRoom];
    GetControlText(TextField, name, ExportNameRoom);
    CleanName(name);
    if (!*name) {
        RefuseTick(Help::Export);
        return TickRefused;
    }
    const int32_t kind = state.ExchangeKind;
    if (kind < 0 || kind > FirstKind || !Kinds[kind].Export)
        return TickDone;
    RecDate date = DateProposed(0); // what stands there unless the owner changed it
    GetFieldDate(DateField, &date);
    char narrow[ExportNameRoom], path[PathRoom];
    NarrowText(narrow, ExportNameRoom, name);
    std::snprintf(path, PathRoom, "\\%s.%s", narrow, Kinds[kind].Extension);
    const uint32_t day = state.DateOption == ExportAll ? 0 : date.DayNumber;
    const int result = Kinds[kind].Export(EntriesShown(), path, day, state.DateOption, ShowProgress);
    if (result == ExportDone)
        return TickDone;
    ShowProgress(0);
    if (result == ExportUnread)
        return TickUnwritten;
    GiveActionUp(Help::ExportUnwritten);
    return TickRefused;
}

constexpr Form ExportForm = {.Dialog = ExportDialog,
                             .WithPanel = 1,
                             .Controls = &ExportTemplate,
                             .Parts = Parts,
                             .FieldHelps = FieldHelps,
                             .Lists = Lists,
                             .Fill = Fill,
                             .Tick = DiaExport,
                             .Cross = nullptr,
                             .Changed = Changed,
                             .Tapped = TapChoice,
                             .Decor = PaintChoices,
                             .Title = [] { return u"Export"; }};

} // namespace

int OpenExportForm() {
    if (!OpenExchangeForm(&ExportForm))
        return 0;
    ShowHelp(Help::Export);
    return 1;
}
