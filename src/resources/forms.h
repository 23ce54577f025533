// The forms' real controls: id, kind, box in DialogWindow, how many units of text they take, and the name that stands
// beside them. Everything else on a form is painted by hand (frame/form.h). Controls end above y 189, where the
// message window begins.
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
    FileField = 1006,
    FormatField = 1007,
    SecurityField = 1008,
    DirectoryField = 1030,
    ProgressField = 1032,
};
inline constexpr int FirstField = TextField, LastField = ProgressField;

// Most units of text.
inline constexpr int16_t TitleLimit = 24, MemoLimit = 31, AccountNameLimit = 23, NumberLimit = 8, FractionLimit = 3,
                         CountLimit = 15, LookAheadLimit = 2, NoteLimit = 999, TextLimit = 31, FileNameLimit = 31;

// clang-format off
inline constexpr FormControl AccountControls[] = {
    // id              kind                     x    y    w    h   limit             name for a screen reader
    {TextField,        ControlKind::Edit,       40,  41, 186,  20, AccountNameLimit,  u"Name"},
    {MaxCheck,         ControlKind::Check,      60,  81,  18,  18, 0,                 u"Max enabled"},
    {MaxField,         ControlKind::Number,    145,  80,  81,  20, NumberLimit,       u"Max"},
    {MinCheck,         ControlKind::Check,      60, 104,  18,  18, 0,                 u"Min enabled"},
    {MinField,         ControlKind::Number,    145, 103,  81,  20, NumberLimit,       u"Min"},
    {TypeField,        ControlKind::List,       95, 142, 131,  20, 0,                 u"Account type"},
};

inline constexpr FormControl BasicControls[] = {
    {DateField,        ControlKind::Date,       40,  21, 175,  20, 0,                 u"Date"},
    {TitleField,       ControlKind::Combo,      40,  43, 186,  20, TitleLimit,        u"Name"},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
};
inline constexpr FormControl AdvancedControls[] = {
    {DateField,        ControlKind::Date,       40,  21, 175,  20, 0,                 u"Date"},
    {TitleField,       ControlKind::Combo,      40,  43, 186,  20, TitleLimit,        u"Name"},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
    {TextField,        ControlKind::Edit,       40,  93, 186,  20, MemoLimit,         u"Ref"},
    {MultiplierField,  ControlKind::Combo,      40, 115, 140,  20, NumberLimit,       u"Number",     Holds::Count},
    {CategoryField,    ControlKind::List,       40, 137, 186,  20, 0,                 u"Category"},
    {TransferField,    ControlKind::Combo,      40, 162, 160,  20, TextLimit,         u"Transfer"},
};
inline constexpr FormControl ExistingControls[] = {
    {DateField,        ControlKind::Date,       40,  21, 175,  20, 0,                 u"Date"},
    {TitleField,       ControlKind::Combo,      40,  43, 186,  20, TitleLimit,        u"Name"},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
    {TextField,        ControlKind::Edit,       40,  93, 186,  20, MemoLimit,         u"Ref"},
    {MultiplierField,  ControlKind::Combo,      40, 115, 140,  20, NumberLimit,       u"Number",     Holds::Count},
    {CategoryField,    ControlKind::List,       40, 137, 186,  20, 0,                 u"Category"},
};
inline constexpr FormControl ReconcileControls[] = {
    {DateField,        ControlKind::Date,       40,  35, 175,  20, 0,                 u"Date"},
    {WholeField,       ControlKind::Combo,      40,  65,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     130,  65,  64,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
};

inline constexpr FormControl TemplateControls[] = {
    {TitleField,       ControlKind::Combo,      40,  24, 186,  20, TitleLimit,        u"Name"},
    {WholeField,       ControlKind::Combo,      40,  50,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     130,  50,  54,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
    {TextField,        ControlKind::Edit,       40,  80, 186,  20, MemoLimit,         u"Ref"},
    {MultiplierField,  ControlKind::Combo,      40, 110, 140,  20, NumberLimit,       u"Number",     Holds::Count},
    {TransferField,    ControlKind::Combo,      40, 134, 186,  20, TextLimit,         u"Transfer"},
    {CategoryField,    ControlKind::List,       40, 158, 186,  20, 0,                 u"Category"},
};

inline constexpr FormControl RecurringControls[] = {
    {DateField,        ControlKind::Date,       40,   6, 170,  20, 0,                 u"Date"},
    {TitleField,       ControlKind::Combo,      40,  30, 186,  20, TitleLimit,        u"Name"},
    {WholeField,       ControlKind::Combo,      40,  51,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     130,  51,  60,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
    {TextField,        ControlKind::Edit,       40,  73, 186,  20, MemoLimit,         u"Ref"},
    {MultiplierField,  ControlKind::Combo,      40,  95, 140,  20, NumberLimit,       u"Number",     Holds::Count},
    {AccountField,     ControlKind::Combo,      15, 131, 104,  19, TextLimit,         u"Account"},
    {TransferField,    ControlKind::Combo,     134, 131, 104,  19, TextLimit,         u"Transfer"},
    {CategoryField,    ControlKind::List,       40, 150, 186,  19, 0,                 u"Category"},
    {CountField,       ControlKind::Combo,      39, 169,  40,  19, CountLimit,        u"Every",      Holds::Count},
    {UnitField,        ControlKind::List,       80, 169,  68,  19, 0,                 u"Unit"},
    {RemainingField,   ControlKind::Combo,     170, 169,  66,  19, CountLimit,        u"For",        Holds::Count},
};

inline constexpr FormControl ConversionControls[] = {
    {FromField,        ControlKind::Combo,       5,  40, 230,  20, TextLimit,         u"From"},
    {WholeField,       ControlKind::Combo,      50,  84,  80,  20, NumberLimit,       u"Amount",     Holds::Whole},
    {FractionField,    ControlKind::Combo,     140,  84,  54,  20, FractionLimit,     u"Fraction",   Holds::Fraction},
    {ToField,          ControlKind::Combo,       5, 127, 230,  20, TextLimit,         u"To"},
    {TextField,        ControlKind::Edit,       40, 152, 186,  20, TextLimit,         u"Ref"},
};

inline constexpr FormControl CategoryControls[] = {
    {TextField,        ControlKind::Edit,      130, 126, 105,  20, TextLimit,         u"Name"},
    {DescriptionField, ControlKind::Edit,       40, 154, 195,  20, TextLimit,         u"Ref"},
};

inline constexpr FormControl NotepadControls[] = {
    {TextField,        ControlKind::MultiLine,   5,   5, 230, 180, NoteLimit,         u"Notepad"},
};

inline constexpr FormControl ConfigurationControls[] = {
    {FrontPageCheck,   ControlKind::Check,     180,  47,  18,  18, 0,                 u"Display startup screen"},
    {LookAheadField,   ControlKind::Combo,     124,  77,  50,  20, LookAheadLimit,    u"Look ahead", Holds::Count},
    {AdvancedCheck,    ControlKind::Check,     180, 109,  18,  18, 0,                 u"I'm an advanced user"},
};

inline constexpr FormControl ImportControls[] = {
    {FileField,        ControlKind::List,       75,   3, 161,  20, 0,                 u"File name"},
    {FormatField,      ControlKind::List,       75,  25,  75,  20, 0,                 u"Format"},
    {SecurityField,    ControlKind::List,       75,  47, 161,  20, 0,                 u"Security"},
    {ProgressField,    ControlKind::Progress,  140,  70,  96,  18, 0,                 u"Progress"},
    {DateField,        ControlKind::Date,       40, 161, 175,  20, 0,                 u"Date"},
};

inline constexpr FormControl ExportControls[] = {
    {TextField,        ControlKind::Edit,       75,   8, 161,  20, FileNameLimit,     u"File name"},
    {FormatField,      ControlKind::List,       75,  34,  75,  20, 0,                 u"Format"},
    {ProgressField,    ControlKind::Progress,  140,  66,  96,  18, 0,                 u"Progress"},
    {DateField,        ControlKind::Date,       40, 138, 175,  20, 0,                 u"Date"},
};

inline constexpr FormControl ProgressControls[] = {
    {ProgressField,    ControlKind::Progress,   20,  70, 200,  20, 0,                 u"Progress"},
};

inline constexpr FormControl DirectoryControls[] = {
    {DirectoryField,   ControlKind::ListBox,    30,  27, 180, 158, 0,                 u"Directories"},
    {ProgressField,    ControlKind::Progress,  216,  27,  18, 158, 0,                 u"Progress"},
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
                              ImportTemplate = TemplateOf(136, ImportControls),
                              ExportTemplate = TemplateOf(137, ExportControls),
                              ProgressTemplate = TemplateOf(141, ProgressControls),
                              DirectoryTemplate = TemplateOf(138, DirectoryControls);
