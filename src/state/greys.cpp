#include "state/greys.h"
#include "platform/shell.h"
#include "state/state.h"

namespace {

// ORDER CONDITION: Holds
enum class When : uint8_t { NoData, GraphOfRows, Archive, Filter, ListAccount, SharesByNumber, Extrapolation, Charts };

bool Holds(When condition) {
    switch (condition) {
    case When::NoData:
        return !state.DataUsable;
    case When::GraphOfRows:
        return state.GraphMode == 1 || state.GraphMode == 2;
    case When::Archive:
        return state.ArchiveView == 1;
    case When::Filter:
        return state.FilterView == 1;
    case When::ListAccount:
        return state.AccountKind == ListAccount;
    case When::SharesByNumber:
        return state.AccountKind == ShareNumber;
    case When::Extrapolation:
        return state.GraphMode == 3;
    case When::Charts:
        return state.GraphMode == 4 || state.GraphMode == 5;
    }
    return false;
}

// What departs from the menu table: the last row that holds for an item decides.
struct Exception {
    When Condition;
    int Id;
    char Greys[10]; // as in the menu table; a blank leaves what stood before
};

// clang-format off
constexpr Exception Exceptions[] = {
    //                                                012345678
    {When::NoData,         CommandEmptyBin,          "-        "},
    {When::GraphOfRows,    CommandModify,            "   E     "},
    {When::GraphOfRows,    DeletePopup,              "   E     "},
    {When::GraphOfRows,    CommandExport,            "   E     "},
    {When::GraphOfRows,    CommandImport,            "   E     "},
    {When::GraphOfRows,    ArchivePopup,             "   E     "},
    {When::Archive,        InsertPopup,              "  -      "},
    {When::Archive,        CommandImport,            "  --     "},
    {When::Archive,        ArchivePopup,             "  --     "},
    {When::Archive,        UnarchivePopup,           "  E      "},
    {When::Archive,        CommandInsertDay,         "  .      "},
    {When::Archive,        CommandInsertReconcile,   "  .      "},
    {When::Archive,        CommandInsertTotal,       "  .      "},
    {When::Filter,         InsertPopup,              "  -      "},
    {When::Filter,         DeletePopup,              "  --     "},
    {When::Filter,         CommandImport,            "  --     "},
    {When::Filter,         ArchivePopup,             "  --     "},
    {When::Filter,         FilterPopup,              " .  ....."},
    {When::Filter,         ShowOnlyPopup,            " -  -----"},
    {When::Filter,         ExcludePopup,             " -  -----"},
    {When::ListAccount,    ShowDate,                 "  --     "},
    {When::ListAccount,    ShowMonth,                "  --     "},
    {When::ListAccount,    ShowYear,                 "  --     "},
    {When::ListAccount,    ExcludeDate,              "  --     "},
    {When::ListAccount,    ExcludeMonth,             "  --     "},
    {When::ListAccount,    ExcludeYear,              "  --     "},
    {When::ListAccount,    CommandInsertReconcile,   "  -      "},
    {When::SharesByNumber, CommandInsertReconcile,   "  -      "},
    {When::Extrapolation,  ShowOnlyPopup,            "   -     "},
    {When::Extrapolation,  ExcludePopup,             "   -     "},
    {When::Charts,         ShowName,                 "   -     "},
    {When::Charts,         ShowCategory,             "   -     "},
    {When::Charts,         ShowFlag,                 "   -     "},
    {When::Charts,         ShowRef,                  "   -     "},
    {When::Charts,         ShowDate,                 "   -     "},
    {When::Charts,         ShowMonth,                "   -     "},
    {When::Charts,         ShowYear,                 "   -     "},
    {When::Charts,         ExcludeName,              "   -     "},
    {When::Charts,         ExcludeCategory,          "   -     "},
    {When::Charts,         ExcludeFlag,              "   -     "},
    {When::Charts,         ExcludeRef,               "   -     "},
    {When::Charts,         ExcludeDate,              "   -     "},
    {When::Charts,         ExcludeMonth,             "   -     "},
    {When::Charts,         ExcludeYear,              "   -     "},
    {When::Charts,         ExcludePreceding,         "   -     "},
    {When::Charts,         ExcludeFollowing,         "   -     "},
};
// clang-format on

char GreyOf(const MenuRow &row, int screen) {
    char grey = row.Greys[screen];
    for (const Exception &exception : Exceptions)
        if (exception.Id == row.Id && exception.Greys[screen] != ' ' && Holds(exception.Condition))
            grey = exception.Greys[screen];
    return grey;
}

} // namespace

void SetGreys(int screen) {
    const bool busy = !state.DataUsable || state.HubState || state.ActiveDialog != NoDialog;
    if (busy || screen < 0 || screen > ScreenCount)
        screen = 0;
    for (int i = 0; i < MenuRows; ++i) {
        const MenuRow &row = Menu[i];
        const char grey = GreyOf(row, screen);
        if (row.Id == CommandPasswordOff)
            state.ItemEnabled[i] = state.PasswordOn == 1;
        else if (grey != '.')
            state.ItemEnabled[i] = grey == 'E';
        EnableMenuItem(row.Id, state.ItemEnabled[i]);
    }
}

void GreyMenuItem(int id) {
    for (int i = 0; i < MenuRows; ++i)
        if (Menu[i].Id == id)
            state.ItemEnabled[i] = 0;
    EnableMenuItem(id, 0);
}

bool MenuItemEnabled(int id) {
    for (int i = 0; i < MenuRows; ++i)
        if (Menu[i].Id == id)
            return state.ItemEnabled[i];
    return false;
}
