// The general settings.
#include "store/configuration.h"
#include "forms/entry_fields.h"
#include "forms/forms.h"
#include "frame/form.h"
#include "platform/text.h"
#include "state/messages.h"

namespace {

constexpr int32_t UsualLookAhead = 7, LongestListed = 31;

// clang-format off
constexpr FormPart Parts[] = {
    // item       box                     hit                     text                       side         field
    {LabelItem,   {10, 46, 178, 66},      {0, 46, 180, 66},       u"Display startup screen", Align::Left, FrontPageCheck},
    {LabelItem,   {10, 77, 122, 97},      {0, 77, 124, 97},       u"Look ahead",             Align::Left, LookAheadField},
    {LabelItem,   {180, 77, 230, 97},     {175, 77, 240, 97},     u"day(s)",                 Align::Left, LookAheadField},
    {LabelItem,   {10, 108, 178, 128},    {0, 108, 180, 128},     u"I'm an advanced user",   Align::Left, AdvancedCheck},
};
constexpr FieldHelp FieldHelps[] = {
    {FrontPageCheck, Help::FrontPageCheck},
    {AdvancedCheck,  Help::AdvancedCheck},
    {LookAheadField, Help::LookAheadField},
};
// clang-format on

void ListDays(int field) {
    for (int32_t days = 0; days <= LongestListed; ++days) {
        char16_t text[NumberRoom] = {};
        AppendNumber(text, NumberRoom, days);
        AddControlItem(field, text);
    }
}
constexpr FieldList Lists[] = {{LookAheadField, ListDays}};

void Fill(int) {
    ConfRec record;
    (void)ReadConfiguration(&record, In::DiaProcConfig); // its defaults on a short read
    SetControlCheck(FrontPageCheck, record.ShowFrontPage != 0);
    SetControlCheck(AdvancedCheck, record.NewUserFields != 0);
    char16_t days[NumberRoom] = {};
    AppendNumber(days, NumberRoom, record.CheckAheadDays);
    SetFieldText(LookAheadField, days);
}

int32_t ReadDays(int32_t shown) {
    if (!FieldTouched(LookAheadField))
        return shown;
    char16_t text[ShownRoom];
    GetControlText(LookAheadField, text, ShownRoom);
    int64_t days;
    return ReadNumber(text, LookAheadLimit, &days) && days >= 0 ? static_cast<int32_t>(days) : UsualLookAhead;
}

int DiaProcConfig() {
    ConfRec record;
    (void)ReadConfiguration(&record, In::DiaProcConfig);
    record.ShowFrontPage = ControlChecked(FrontPageCheck) != 0;
    record.NewUserFields = ControlChecked(AdvancedCheck) != 0;
    record.CheckAheadDays = ReadDays(record.CheckAheadDays);
    if (!WriteConfiguration(&record, In::DiaProcConfig))
        return 0;
    state.ShowFrontPage = record.ShowFrontPage;
    state.NewUserFields = record.NewUserFields;
    state.CheckAheadDays = record.CheckAheadDays;
    return 1;
}

constexpr Form ConfigurationForm = {.Dialog = ConfigurationDialog,
                                    .WithPanel = 1,
                                    .Controls = &ConfigurationTemplate,
                                    .Parts = Parts,
                                    .FieldHelps = FieldHelps,
                                    .Lists = Lists,
                                    .Fill = Fill,
                                    .Tick = DiaProcConfig,
                                    .Cross = nullptr,
                                    .Changed = nullptr,
                                    .Tapped = nullptr,
                                    .Decor = nullptr,
                                    .Title = [] { return u"Settings"; }};

} // namespace

int OpenConfigurationForm() {
    if (!Dialog_Init(&ConfigurationForm))
        return 0;
    ShowHelp(Help::Configuration);
    return 1;
}
