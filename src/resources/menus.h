// The command bar's menus, and which of their items are enabled on which screen.
#pragma once

#include <cstddef>
#include <cstdint>

// ORDER MENUID: popups have ids of their own; the rest are the commands that the menus send.
// clang-format off
enum MenuId : int {
    EditPopup = 40004, ToolsPopup = 113,
    ConfigPopup = 201, PasswordPopup, JeopardyPopup, FilterPopup, ShowOnlyPopup, ExcludePopup, InsertPopup, DeletePopup,
    ArchivePopup, UnarchivePopup,
    CommandOk = 1, // the soft OK of the platform
    CommandBeep = 4,
    CommandClose = 40002,
    CommandNew = 40076, CommandNotepad = 40104, CommandGeneral = 40105, CommandAlign = 40117,
    CommandPasswordOn = 40146, CommandPasswordOff = 40147, CommandJeopardyOn = 40120, CommandJeopardyOff = 40121,
    ShowName = 40136, ShowCategory = 40137, ShowFlag = 40138, ShowRef = 40142, ShowDate = 40139, ShowMonth = 40140,
    ShowYear = 40141, ShowEntry = 40153,
    ExcludeName = 40143, ExcludeCategory = 40144, ExcludeFlag = 40131, ExcludeRef = 40135, ExcludeDate = 40132,
    ExcludeMonth = 40133, ExcludeYear = 40134, ExcludeEntry = 40149, ExcludePreceding = 40150,
    ExcludeFollowing = 40151, CommandFilterOff = 40128,
    CommandInsertDay = 40081, CommandInsertReconcile = 40148, CommandInsertTotal = 40116, CommandModify = 40069,
    CommandDeleteOne = 40098, CommandDeleteStart = 40099, CommandDeleteFinish = 40100, CommandDeletePreceding = 40102,
    CommandEmptyBin = 40080,
    CommandAbout = 40083, CommandExport = 40107, CommandImport = 40110, CommandBackup = 40112, CommandRestore = 40096,
    CommandArchive = 40097, CommandUnarchive = 40109, CommandExit = 40072,
    CommandTick = 40091, CommandCross = 40089, CommandLeftEye = 1433, CommandRightEye = 1434, CommandHub = 1435,
};
// clang-format on

struct MenuRow {
    int Parent; // popup it stands in
    int Id;
    bool Popup;
    const char16_t *Text;
    // Screens 0 to 8: E enabled, - grey, . left as it was; for a Bank account, live, unfiltered, graph mode 0.
    char Greys[10];
};

// In the order in which the menus show them. ShowOnlyPopup and ExcludePopup follow their filters.
// clang-format off
inline constexpr MenuRow Menu[] = {
    // parent        id                      popup  text                             012345678
    {EditPopup,      CommandNotepad,         false, u"Notepad ...",                  "-EEEEEEEE"},
    {EditPopup,      ConfigPopup,            true,  u"Config",                       "-EEEEEEEE"},
    {ConfigPopup,    CommandGeneral,         false, u"General ...",                  ".EEEEEEEE"},
    {ConfigPopup,    CommandAlign,           false, u"Align columns",                ".-E------"},
    {EditPopup,      PasswordPopup,          true,  u"Password",                     "-EEEEEEEE"},
    {PasswordPopup,  CommandPasswordOn,      false, u"On",                           "EEEEEEEEE"},
    {PasswordPopup,  CommandPasswordOff,     false, u"Off",                          "........."},
    {EditPopup,      JeopardyPopup,          true,  u"Jeopardy",                     "-EEE-----"},
    {JeopardyPopup,  CommandJeopardyOn,      false, u"ON",                           "........."},
    {JeopardyPopup,  CommandJeopardyOff,     false, u"OFF",                          "........."},
    {EditPopup,      FilterPopup,            true,  u"Filter",                       "--EE-----"},
    {FilterPopup,    ShowOnlyPopup,          true,  u"Show only this ...",           "..EE....."},
    {ShowOnlyPopup,  ShowName,               false, u"name",                         "..EE....."},
    {ShowOnlyPopup,  ShowCategory,           false, u"category",                     "..EE....."},
    {ShowOnlyPopup,  ShowFlag,               false, u"flag",                         "..EE....."},
    {ShowOnlyPopup,  ShowRef,                false, u"ref",                          "..EE....."},
    {ShowOnlyPopup,  ShowDate,               false, u"date",                         "..EE....."},
    {ShowOnlyPopup,  ShowMonth,              false, u"month",                        "..EE....."},
    {ShowOnlyPopup,  ShowYear,               false, u"year",                         "..EE....."},
    {ShowOnlyPopup,  ShowEntry,              false, u"entry",                        "...E....."},
    {FilterPopup,    ExcludePopup,           true,  u"Exclude this ...",             "..EE....."},
    {ExcludePopup,   ExcludeName,            false, u"name",                         "..EE....."},
    {ExcludePopup,   ExcludeCategory,        false, u"category",                     "..EE....."},
    {ExcludePopup,   ExcludeFlag,            false, u"flag",                         "..EE....."},
    {ExcludePopup,   ExcludeRef,             false, u"ref",                          "..EE....."},
    {ExcludePopup,   ExcludeDate,            false, u"date",                         "..EE....."},
    {ExcludePopup,   ExcludeMonth,           false, u"month",                        "..EE....."},
    {ExcludePopup,   ExcludeYear,            false, u"year",                         "..EE....."},
    {ExcludePopup,   ExcludeEntry,           false, u"entry",                        "..EE....."},
    {ExcludePopup,   ExcludePreceding,       false, u"entry && all preceding",       "..EE....."},
    {ExcludePopup,   ExcludeFollowing,       false, u"entry && all following",       "..EE....."},
    {FilterPopup,    CommandFilterOff,       false, u"OFF",                          "........."},
    {EditPopup,      InsertPopup,            true,  u"Insert",                       "-EE------"},
    {InsertPopup,    CommandInsertDay,       false, u"Day",                          ".-E......"},
    {InsertPopup,    CommandInsertReconcile, false, u"Reconcile",                    ".-E......"},
    {InsertPopup,    CommandInsertTotal,     false, u"Total",                        ".E-......"},
    {EditPopup,      CommandModify,          false, u"Modify ...",                   "-EE-EE-EE"},
    {EditPopup,      DeletePopup,            true,  u"Delete",                       "-EE-EEEEE"},
    {DeletePopup,    CommandDeleteOne,       false, u"this entry only",              "........."},
    {DeletePopup,    CommandDeleteStart,     false, u"starting at this entry ...",   "........."},
    {DeletePopup,    CommandDeleteFinish,    false, u"finishing at this entry ...",  "........."},
    {DeletePopup,    CommandDeletePreceding, false, u"this entry && all preceding",  "........."},
    {EditPopup,      CommandEmptyBin,        false, u"Empty Bin",                    "EEEEEEEEE"},
    {ToolsPopup,     CommandAbout,           false, u"About ...",                    "-EEEEEEEE"},
    {ToolsPopup,     CommandExport,          false, u"Export ...",                   "--E------"},
    {ToolsPopup,     CommandImport,          false, u"Import ...",                   "--E------"},
    {ToolsPopup,     CommandBackup,          false, u"Backup ...",                   "-EEEEEEEE"},
    {ToolsPopup,     CommandRestore,         false, u"Restore ...",                  "-EEEEEEEE"},
    {ToolsPopup,     ArchivePopup,           true,  u"Archive",                      "--E------"},
    {ArchivePopup,   CommandArchive,         false, u"this entry && all preceding",  "........."},
    {ToolsPopup,     UnarchivePopup,         true,  u"Unarchive",                    "---------"},
    {UnarchivePopup, CommandUnarchive,       false, u"this entry && all following",  "........."},
    {ToolsPopup,     CommandExit,            false, u"Exit",                         "-EEEEEEEE"},
};
// clang-format on
inline constexpr int MenuRows = sizeof(Menu) / sizeof(Menu[0]);
