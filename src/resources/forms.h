// The forms' real controls: id, kind, box in DialogWindow, and how many units of text they take. Everything else on a
// form is painted by hand (screens/frame/form.h). Controls end above y 189, where the message window begins.
#pragma once

#include "platform/controls.h"

// ORDER FORMFIELD: control ids mean the same on every form, as far as they can.
enum FormField : int16_t {
    TextField = 1002, // name, memo, note
    MinField = 1003,
    MaxField = 1004,
    TitleField = 1005,
    MultiplierField = 1006,
    WholeField = 1007,
    FractionField = 1008,
    CategoryField = 1010,
    TransferField = 1011,
    AccountField = 1012,
    CountField = 1013, // every so many
    UnitField = 1014,  // days, weeks, months, years
    RemainingField = 1015,
    DateField = 1018,
    // The same ids in other forms.
    MinCheck = 1005,
    MaxCheck = 1006,
    TypeField = 1007,
    FrontPageCheck = 1005,
    AdvancedCheck = 1006,
    LookAheadField = 1007,
    FromField = 1005,
    ToField = 1006,
    DescriptionField = 1003,
    ProgressField = 1032,
};
inline constexpr int FirstField = TextField, LastField = ProgressField;

// Most units of text.
inline constexpr int16_t TitleLimit = 24, MemoLimit = 31, AccountNameLimit = 23, NumberLimit = 8, FractionLimit = 3,
                         CountLimit = 15, LookAheadLimit = 2, NoteLimit = 999, TextLimit = 31;

// clang-format off
inline constexpr FormControl AccountControls[] = {
    // id              kind                     x    y    w    h   limit
    {TextField,        ControlKind::Edit,       40,  41, 186,  20, AccountNameLimit},
    {MaxCheck,         ControlKind::Check,      60,  81,  18,  18, 0},
    {MaxField,         ControlKind::Number,    145,  80,  81,  20, NumberLimit},
    {MinCheck,         ControlKind::Check,      60, 104,  18,  18, 0},
    {MinField,         ControlKind::Number,    145, 103,  81,  20, NumberLimit},
    {TypeField,        ControlKind::List,       95, 142, 131,  20, 0},
};

inline constexpr FormControl BasicControls[] = {
    {DateField,        ControlKind::Date,       40,  21, 175,  20, 0},
    {TitleField,       ControlKind::Combo,      40,  43, 186,  20, TitleLimit},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit},
};
inline constexpr FormControl AdvancedControls[] = {
    {DateField,        ControlKind::Date,       40,  21, 175,  20, 0},
    {TitleField,       ControlKind::Combo,      40,  43, 186,  20, TitleLimit},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit},
    {TextField,        ControlKind::Edit,       40,  93, 186,  20, MemoLimit},
    {MultiplierField,  ControlKind::Combo,      40, 115, 140,  20, NumberLimit},
    {CategoryField,    ControlKind::List,       40, 137, 186,  20, 0},
    {TransferField,    ControlKind::Combo,      40, 162, 160,  20, TextLimit},
};
inline constexpr FormControl ExistingControls[] = {
    {DateField,        ControlKind::Date,       40,  21, 175,  20, 0},
    {TitleField,       ControlKind::Combo,      40,  43, 186,  20, TitleLimit},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit},
    {TextField,        ControlKind::Edit,       40,  93, 186,  20, MemoLimit},
    {MultiplierField,  ControlKind::Combo,      40, 115, 140,  20, NumberLimit},
    {CategoryField,    ControlKind::List,       40, 137, 186,  20, 0},
};
inline constexpr FormControl ReconcileControls[] = {
    {DateField,        ControlKind::Date,       40,  35, 175,  20, 0},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit},
};

inline constexpr FormControl TemplateControls[] = {
    {TitleField,       ControlKind::Combo,      40,  24, 186,  20, TitleLimit},
    {WholeField,       ControlKind::Combo,      40,  50,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     130,  50,  54,  20, FractionLimit},
    {TextField,        ControlKind::Edit,       40,  80, 186,  20, MemoLimit},
    {MultiplierField,  ControlKind::Combo,      40, 110, 140,  20, NumberLimit},
    {TransferField,    ControlKind::Combo,      40, 134, 186,  20, TextLimit},
    {CategoryField,    ControlKind::List,       40, 158, 186,  20, 0},
};

inline constexpr FormControl RecurringControls[] = {
    {DateField,        ControlKind::Date,       40,   6, 170,  20, 0},
    {TitleField,       ControlKind::Combo,      40,  30, 186,  20, TitleLimit},
    {WholeField,       ControlKind::Combo,      40,  51,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     130,  51,  60,  20, FractionLimit},
    {TextField,        ControlKind::Edit,       40,  73, 186,  20, MemoLimit},
    {MultiplierField,  ControlKind::Combo,      40,  95, 140,  20, NumberLimit},
    {AccountField,     ControlKind::Combo,      24, 131,  96,  19, TextLimit},
    {TransferField,    ControlKind::Combo,     140, 131,  96,  19, TextLimit},
    {CategoryField,    ControlKind::List,       40, 150, 186,  19, 0},
    {CountField,       ControlKind::Combo,      39, 169,  40,  19, CountLimit},
    {UnitField,        ControlKind::List,       80, 169,  68,  19, 0},
    {RemainingField,   ControlKind::Combo,     170, 169,  66,  19, CountLimit},
};

inline constexpr FormControl ConversionControls[] = {
    {FromField,        ControlKind::Combo,       5,  40, 230,  20, TextLimit},
    {WholeField,       ControlKind::Combo,      50,  84,  80,  20, NumberLimit},
    {FractionField,    ControlKind::Combo,     140,  84,  54,  20, FractionLimit},
    {ToField,          ControlKind::Combo,       5, 127, 230,  20, TextLimit},
    {TextField,        ControlKind::Edit,       40, 152, 186,  20, TextLimit},
};

inline constexpr FormControl CategoryControls[] = {
    {TextField,        ControlKind::Edit,      130, 126, 105,  20, TextLimit},
    {DescriptionField, ControlKind::Edit,       40, 154, 195,  20, TextLimit},
};

inline constexpr FormControl NotepadControls[] = {
    {TextField,        ControlKind::MultiLine,   5,   5, 230, 180, NoteLimit},
};

inline constexpr FormControl ConfigurationControls[] = {
    {FrontPageCheck,   ControlKind::Check,     180,  47,  18,  18, 0},
    {LookAheadField,   ControlKind::Combo,     124,  77,  50,  20, LookAheadLimit},
    {AdvancedCheck,    ControlKind::Check,     180, 109,  18,  18, 0},
};

inline constexpr FormControl ProgressControls[] = {
    {ProgressField,    ControlKind::Progress,   20,  70, 200,  20, 0},
};
// clang-format on

template <int Count> constexpr FormTemplate TemplateOf(int16_t resource, const FormControl (&controls)[Count]) {
    return {resource, controls, Count};
}
inline constexpr FormTemplate AccountTemplate = TemplateOf(106, AccountControls),
                              BasicTemplate = TemplateOf(111, BasicControls),
                              AdvancedTemplate = TemplateOf(144, AdvancedControls),
                              ExistingTemplate = TemplateOf(133, ExistingControls),
                              ReconcileTemplate = TemplateOf(149, ReconcileControls),
                              RecurringTemplate = TemplateOf(112, RecurringControls),
                              TemplateTemplate = TemplateOf(116, TemplateControls),
                              ConversionTemplate = TemplateOf(150, ConversionControls),
                              CategoryTemplate = TemplateOf(151, CategoryControls),
                              NotepadTemplate = TemplateOf(134, NotepadControls),
                              ConfigurationTemplate = TemplateOf(135, ConfigurationControls),
                              ProgressTemplate = TemplateOf(141, ProgressControls);
