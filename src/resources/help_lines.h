// Every set of help lines: its name, and six ids of resources/messages.h from top to bottom, 0 a blank line. A set that
// is shown in several places stands once; which of two is shown is the caller's choice of two names.
#pragma once

#include "resources/messages.h"
#include <algorithm>
#include <cstddef>
#include <iterator>

// Stands in a set for the line that the caller adds, where there is one to add.
inline constexpr int16_t AddedHere = -100;

// clang-format off
// The lines that are added: what is wrong with the row explained, or what else is worth knowing.
enum class AddedLine : int16_t {
    None             = 0,
    CannotBeModified = 86,  // of a row in the bin
    ValueTooBig      = 112,
    CashAddsNoShares = 127, // of the column with the numbers of shares
    BalanceTooBig    = 203,
    ManyEntries      = 204, // that a recurring item generates
    TotalsOfToday    = 209,
    AccountMissing   = 226, // of a recurring item
    BalanceMayChange = 234, // when archived entries are deleted
    RegressionBasis  = 285, // of the column plotted
    InJeopardy       = 291,
    PercentOfPie     = 398,
    SegmentValue     = 399,
    SegmentTitle     = 400,
    SegmentEntries   = 401,
    FirstGroup       = 412, // of what segments are formed from; the others follow
    FirstOrder       = 420, // likewise
    PercentOfBars    = 432,
    Filtered         = 462,
    BrokenInAccount  = 561, // where the record is that can't be read
    BrokenInNotepad  = 564,
    BrokenInAccounts = 565,
    BrokenInItems    = 566,
    BrokenInTemplates = 567,
    BrokenInBin      = 568,
    BrokenInCategories = 569,
    BrokenInRates    = 570,
};

// ORDER HELP
#define HELP_SETS(SET)                                                                           \
    SET(None,                         0,         0,         0,         0,         0,         0)  \
    /* The message window */                                                                     \
    SET(HelpMode,                     1,         2,         3,         0,         4,         0)  \
    SET(HelpModeInNewAccount,         1,       115,       117,         4,         0,         0)  \
    SET(TapAnItem,                    0,         2,         3,         0,         0,         0)  \
    SET(NotWritable,                128,         0,       133,         0,         0,         0)  \
    SET(NotWritten,                   0,       128,       133,         0,         0,         0)  \
    SET(WrongVersion,               128,         0,       129,       133,         0,         4)  \
    SET(DataInUse,                    128,         0,       490,       491,         0,         0)  \
    SET(DataUnrecovered,              128,         0,       492,       493,       494,         0)  \
    SET(DataUnreadable,               128,         0,       489,         0,         0,         0)  \
    SET(AccountsLost,                 128,         0,       544,       545,       133,         0)  \
    SET(CipherMissing,              128,         0,       486,       525,       526,         0)  \
    SET(ConfigurationLost,          128,         0,       486,       529,       530,         0)  \
    SET(NotRead,                        0,       128,       489,         0,         0,         0)  \
    /* Header, tab strip, titles, scroll bar, keys */                                            \
    SET(Hub,                        466,       467,       468,       469,       470,       471)  \
    SET(HubOverForm,                466,       467,       470,       471,         0,         0)  \
    SET(SelectedNumber,               0,       207,         0,         0,         0,         0)  \
    SET(EntryCount,                   0,       208,         0,         0,         0,         0)  \
    SET(AccountArrows,               71,        72,        73,         0,        75,        76)  \
    SET(ArchiveArrows,               71,        72,        74,         0,        75,        76)  \
    SET(AccountKeys,                125,        72,        73,         0,       126,        76)  \
    SET(ArchiveKeys,                125,        72,        74,         0,       126,        76)  \
    SET(UpAndDownKeys,               75,        58,        59,         0,        57,        61)  \
    SET(ScrollBar,                   57,        58,        59,         0,        75,        61)  \
    SET(AccountView,                  0,         0,        81,        80,         0,         0)  \
    SET(ArchiveView,                 77,        78,        79,        89,         0,        80)  \
    SET(MainTabs,                     0,         0,       390,         0,       392,         0)  \
    SET(SecondaryTabs,                0,         0,       391,         0,       392,         0)  \
    SET(Columns,                      0,         0,        90,        91,         0,         0)  \
    SET(ColumnsOfEntries,             0,        90,        91,         0, AddedHere,         0)  \
    SET(TitlesShown,                  0,       465,         0,        80,         0, AddedHere)  \
    SET(ReferencesShown,              0,       464,         0,        80,         0, AddedHere)  \
    SET(BalanceOfAll,                68,        69,        70,        56,         0, AddedHere)  \
    SET(BalanceOfReconciled,         64,        65,        66,        67,        56, AddedHere)  \
    SET(BalanceOfAllEntries,          0,        68,        69,        70,        56,         0)  \
    SET(BalanceOfShares,              0,       105,       106,         0,         0,         0)  \
    /* The tab of each screen, and what its form says at the end */                              \
    SET(AccountTab,                   6,         7,         0,        42,       239,         0)  \
    SET(ArchivedAccountTab,           6,        82,         0,        42,       239,         0)  \
    SET(TransactionTab,               0,         8,         9,        10,         0,         0)  \
    SET(ArchivedTransactionTab,       0,         8,         9,        84,         0,         0)  \
    SET(GraphTab,                    11,        12,         0,       250,       252,         0)  \
    SET(ArchivedGraphTab,            11,        12,         0,       251,       252,         0)  \
    SET(RecurringTab,                13,        14,        15,         0,        16,        17)  \
    SET(UntidyRecurringTab,          13,        14,        15,        16,        17,       205)  \
    SET(TemplateTab,                 18,        19,        20,        21,        22,        23)  \
    SET(BinTab,                       0,        24,        25,        26,        27,         0)  \
    SET(FullBinTab,                  24,        25,        26,        27,         0,       206)  \
    SET(CategoryTab,                351,       352,         0,       353,       354,       355)  \
    SET(ConversionTab,              343,       344,         0,       345,       346,       347)  \
    SET(BackToAccounts,               0,       122,         7,         0,         0,         0)  \
    SET(BackToArchivedAccounts,       0,       122,        82,         0,         0,         0)  \
    SET(BackToTransactions,           0,       122,         9,        10,         0,         0)  \
    SET(BackToArchivedTransactions, 122,         9,        84,         0,         0,         0)  \
    SET(EnteredArchive,               0,       122,         9,        84,         0,         0)  \
    SET(BackToGraph,                122,        12,         0,       250,       252,         0)  \
    SET(BackToArchivedGraph,        122,        12,         0,       251,       252,         0)  \
    SET(BackToRecurring,              0,       122,        14,        15,         0,         0)  \
    SET(BackToTemplates,              0,       122,        19,        20,        21,         0)  \
    SET(BackToBin,                    0,       122,        25,        26,        27,         0)  \
    SET(BackToCategories,             0,       122,       352,         0,         0,         0)  \
    SET(BackToConversions,            0,       122,       344,         0,         0,         0)  \
    /* Rows */                                                                                   \
    SET(BlankAccount,                34,         0,        35,        36,        37,         0)  \
    SET(BlankArchive,                 0,         0,        34,         0,         0,         0)  \
    SET(BlankEntry,                  34,         0,        35,        47,        37,         0)  \
    SET(BlankArchivedEntry,          34,         0,        35,        47,         0,         0)  \
    SET(BlankBinEntry,               34,         0,        86,         0,         0,         0)  \
    SET(Account,                     29, AddedHere,        40,        32,        33,         5)  \
    SET(ArchivedAccount,             85, AddedHere,        40,        32,        87,         5)  \
    SET(TotalMarker,                  0,       246,       241,         0,       242,         0)  \
    SET(Transaction,                 38, AddedHere,        40,        41,        42,        43)  \
    SET(ReconciledTransaction,       38, AddedHere,        40,        41,        42,        44)  \
    SET(DayMarker,                    0,        39,         0,        46, AddedHere,         0)  \
    SET(ArchiveMarker,                0,       109, AddedHere,       111,         0,         0)  \
    SET(DeletedMarker,                0,       220,       221, AddedHere,         0,         0)  \
    SET(ReconcileEntry,             428,         0,       431,       442,       443,         0)  \
    SET(ReconcileImpossible,        428,         0,       444,       445,         0,       446)  \
    SET(ReconcileSolved,            428,         0,        42,       429,       430,         0)  \
    SET(RecurringItem,              110,       120, AddedHere,        40,        41,         0)  \
    SET(ExpiredItem,                110,       121, AddedHere,        40,        41,         0)  \
    SET(Template,                   113, AddedHere,        40,        41,        42,        43)  \
    SET(ReconciledTemplate,         113, AddedHere,        40,        41,        42,        44)  \
    SET(BinEntry,                    31, AddedHere,       119,       118,       123,       124)  \
    SET(BinEntryOfLostAccount,       31,       112,       119,       118,         0,       226)  \
    SET(Category,                   356,         0,        40,        41,         0,       357)  \
    SET(Conversion,                 341,         0,        40,        41,        42,       342)  \
    /* The third column of the transactions */                                                   \
    SET(ValueColumn,                  0,       227,         0, AddedHere,         0,         0)  \
    SET(ReconciledValueColumn,        0,       228,         0,         0,         0,         0)  \
    SET(NumberColumn,                 0,       102,       101,         0,       107, AddedHere)  \
    SET(PriceColumn,                  0,       210,         0, AddedHere,         0,         0)  \
    SET(ShareTotalColumn,             0,       103,       104,         0, AddedHere,         0)  \
    SET(ShareValueColumn,             0,       100,         0, AddedHere,         0,         0)  \
    SET(CashTotalColumn,              0,       224,       225,         0, AddedHere,         0)  \
    /* The graph */                                                                              \
    SET(PlainGraph,                   0,       255,         0,       256,       257,         0)  \
    SET(Regression,                 258,         0,       259,       260,       261,       262)  \
    SET(RegressionOfList,           258,         0,       259,       260,         0,         0)  \
    SET(Extrapolation,              263,         0,       264,       265,         0,       271)  \
    SET(ExtrapolationOfList,          0,       263,         0,       287,         0,         0)  \
    SET(BarChart,                   253,         0,       326,       331,         0,         0)  \
    SET(PieChart,                   324,         0,       326,       330,         0,         0)  \
    SET(CountingUp,                   0,       267,         0,       268,         0,         0)  \
    SET(CountingDown,                 0,       269,         0,       270,         0,         0)  \
    SET(CountingElsewhere,            0,       266,         0,         0,         0,         0)  \
    SET(UnusedInMode,                 0,       286,         0,         0,         0,         0)  \
    SET(PointSelected,               38,         0,       272,        41,         0,         0)  \
    SET(PointMissed,                  2,         3,         0,         0,         0,         0)  \
    SET(LineSelected,               273,         0,       264,       265,         0,         0)  \
    SET(ExtrapolatedValue,            0,       274,         0,       275,         0,         0)  \
    SET(ExtrapolatedDate,             0,       276,         0,       277,         0,         0)  \
    SET(PercentOnDate,              278,         0,       279,       280,         0,         0)  \
    SET(PercentOnValue,             278,         0,       279,       281,         0,         0)  \
    SET(ZeroButton,                   0,       283,         0,       284,         0,         0)  \
    SET(LinkedToValue,              279,       281,         0,       282,         0,         0)  \
    SET(NothingInChart,               0,       463,         0,         0,         0,         0)  \
    SET(PieTapping,                   0,       404,       405,         0,       406,         0)  \
    SET(BarTapping,                   0,       435,       436,         0,       437,         0)  \
    SET(PieSegment,                 403,         0,       404,       405,         0,       406)  \
    SET(BarSelected,                434,         0,       435,       436,         0,       437)  \
    SET(PieGroups,                  407,       408,         0,       411, AddedHere,         0)  \
    SET(BarGroups,                  438,       408,         0,       440, AddedHere,         0)  \
    SET(PieOrders,                  409,       410,         0,       419, AddedHere,         0)  \
    SET(BarOrders,                  439,       410,         0,       441, AddedHere,         0)  \
    SET(PieFormed,                    0,       411, AddedHere,         0,         0,         0)  \
    SET(BarFormed,                    0,       440, AddedHere,         0,         0,         0)  \
    SET(PieOrdered,                   0,       419, AddedHere,         0,         0,         0)  \
    SET(BarOrdered,                   0,       441, AddedHere,         0,         0,         0)  \
    SET(PieHeading,                   0, AddedHere,       402,         0,         0,         0)  \
    SET(BarHeading,                   0, AddedHere,       433,         0,         0,         0)  \
    SET(LinkedToDate,               279,       280,         0,       282,         0,         0)  \
    /* What was done, and what could not be */                                                   \
    SET(MarkedReconciled,            48,        49,        50,        53,        54,        56)  \
    SET(MarkedUnreconciled,          48,        51,        52,        53,        54,        56)  \
    SET(MarkerCannotBeSet,          108,        49,         0,         0,         0,         0)  \
    SET(TotalMarkerMade,            240,       241,         0,       242,         0,       243)  \
    SET(TotalMarkerDeleted,           0,       244,         0,       245,         0,         0)  \
    SET(Deleted,                      0,         0,       233,         0,         0,         0)  \
    SET(AskDeleteOne,                 0,       500,       502,         0,       503,       504)  \
    SET(AskDeleteSeveral,             0,       501,       502,         0,       503,       504)  \
    SET(AskEmptyBin,                  0,       505,       502,         0,       503,       504)  \
    SET(TakenBack,                    0,       580, AddedHere,         0,         0,         0)  \
    SET(DoneAgain,                    0,       581, AddedHere,         0,         0,         0)  \
    SET(NothingToTakeBack,            0,       582,         0,         0,         0,         0)  \
    SET(NothingToDoAgain,             0,       583,         0,         0,         0,         0)  \
    SET(SelectStart,                  0,       229,         0,       231,         0, AddedHere)  \
    SET(SelectFinish,                 0,       230,         0,       231,         0, AddedHere)  \
    SET(SelectAgain,                  0,       231,         0,       232,         0,         0)  \
    SET(SelectEntryFirst,             0,       308,         0,         0,         0,         0)  \
    SET(Filtered,                   462,       458,       459,       460,       461,       485)  \
    SET(FilterOff,                    0,       456,       457,         0,         0,         0)  \
    SET(AlignedLists,                 0,       288,       290,         0,         0,         0)  \
    SET(AlignedColumns,               0,       289,       290,         0,         0,         0)  \
    SET(MinWatched,                 293,        10,         0,       295,       296,        10)  \
    SET(AllWatched,                   0,       294,        10,         0,       297,       298)  \
    SET(NoneWatched,                  0,       292,        10,         0,         0,         0)  \
    SET(NoFilesFound,                 0,       316,         0,         0,         0,         0)  \
    SET(ImportUnreadable,             0,        88,         0,         0,         0,         0)  \
    SET(ExportUnwritten,              0,       546,         0,         0,         0,         0)  \
    SET(SharesIntoMoney,            214,       215,       218,       216,       217,       307)  \
    SET(MoneyIntoShares,            214,       215,       217,       216,       218,       307)  \
    SET(UnsupportedIntoMoney,       214,       215,       218,       216,       219,       307)  \
    SET(UnsupportedIntoShares,      214,       215,       217,       216,       219,       307)  \
    /* Pass code, backup, restore */                                                             \
    SET(WeakCode,                   472,       473,       475,       476,       479,       480)  \
    SET(StrongCode,                 472,       474,       477,       478,       479,       480)  \
    SET(NewStrongCode,                0,       483,       484,         0,         0,         0)  \
    SET(CodeReset,                    0,       481,       482,         0,         0,         0)  \
    SET(WrongCode,                    0,       520,         0,         0,         0,         0)  \
    SET(TooManyCodes,                 0,       520,         0,       521,       522,         0)  \
    SET(RecordUndeciphered,           0,       523,       524,         0,         0,         0)  \
    SET(RecordBroken,                 0,       560, AddedHere,         0,       562,       563)  \
    SET(RecordBrokenHere,           560, AddedHere,       524,         0,       562,       563)  \
    SET(NoKeyMade,                    0,       527,       524,         0,         0,         0)  \
    SET(Backup,                     175,       176,       177,       178,         0,         0)  \
    SET(Restore,                    179,       180,         0,       184,       185,         0)  \
    SET(DirectoryField,               0,       181,       182,       183,         0,         0)  \
    SET(DirectoryUp,                  0,       183,         0,         0,         0,         0)  \
    SET(BackingUp,                    0,         0,       395,         0,         0,         0)  \
    SET(Restoring,                    0,         0,       396,         0,         0,         0)  \
    SET(CopyInterrupted,              0,       531,       532,         0,         0,         0)  \
    SET(BackupWithinData,             0,       533,         0,         0,         0,         0)  \
    SET(CopyRefused,                  0,       534,       524,         0,         0,         0)  \
    SET(NoBackupThere,                0,        80,        88,         0,         0,         0)  \
    /* Forms as they open */                                                                     \
    SET(NewAccount,                   0,       115,         0,       117,         0,         0)  \
    SET(ChangeAccount,                0,         2,         3,         0,       117,         0)  \
    SET(EnterTransaction,           132,       130,         2,         3,       117,         0)  \
    SET(ReconcileTarget,            431,       442,         0,       447,       448,         0)  \
    SET(NewTemplate,                132,       131,         2,         3,       117,         0)  \
    SET(ChangeTemplate,             136,       131,         2,         3,       117,         0)  \
    SET(NewRecurring,               132,       152,         2,         3,       117,         0)  \
    SET(ChangeColoured,             136,       358,         2,         3,       117,         0)  \
    SET(ChangeRecurring,            136,       152,         2,         3,       117,         0)  \
    SET(CategoryOrConversion,       122,        41,         0,         2,         3,         0)  \
    SET(Configuration,                0,       122,       167,         0,         2,         3)  \
    SET(Notepad,                      0,       160,       161,         0,       162,         0)  \
    SET(Import,                       0,       193,       194,       195,         0,         0)  \
    SET(Export,                       0,       197,       198,         0,         0,         0)  \
    /* Fields and parts of forms */                                                              \
    SET(DateField,                    0,       137,       138,         0,         0,         0)  \
    SET(NoDate,                       0,       506,         0,       507,       508,         0)  \
    SET(TitleField,                   0,       139,       144,       140,         0,         0)  \
    SET(CategoryNameField,            0,       139,         0,       162,         0,         0)  \
    SET(DescriptionField,             0,       147,         0,       162,         0,         0)  \
    SET(WholeField,                   0,       141,       143,       144,       145,         0)  \
    SET(FractionField,              142,       143,       144,       150,       145,         0)  \
    SET(TextField,                    0,       147,       162,         0,         0,         0)  \
    SET(MultiplierField,            148,       149,       143,       144,       213,         0)  \
    SET(CashMultiplier,               0,       222,       223,         0,         0,         0)  \
    SET(CategoryField,                0,       393,         0,         0,         0,         0)  \
    SET(TransferField,                0,       151,       144,       156,         0,         0)  \
    SET(AccountField,                 0,       159,       144,       156,         0,         0)  \
    SET(CountField,                   0,       157,       143,       144,         0,         0)  \
    SET(UnitField,                    0,       157,       144,         0,         0,         0)  \
    SET(RemainingField,               0,       158,       143,       144,         0,         0)  \
    SET(NextBlock,                    0,       153,         0,         0,         0,         0)  \
    SET(FurtherBlock,                 0,       154,       155,         0,         0,         0)  \
    SET(LimitField,                   0,       306,         0,       145,         0,         0)  \
    SET(LimitSign,                    0,       145,         0,       299,         0,         0)  \
    SET(MinAboveMax,                  0,       299,         0,         0,         0,         0)  \
    SET(ItemNeedsAccount,             0,       540,       541,         0,         0,         0)  \
    SET(NothingToArchive,             0,       542,       543,         0,         0,         0)  \
    SET(MinEnabled,                   0,       300,         0,       301,         0,         0)  \
    SET(MinDisabled,                  0,       302,         0,         0,         0,         0)  \
    SET(MaxEnabled,                   0,       303,         0,       304,         0,         0)  \
    SET(MaxDisabled,                  0,       305,         0,         0,         0,         0)  \
    SET(AccountTypeField,            92,         0,        93,        96,       318,         0)  \
    SET(NoAccountType,                0,        92,        97,         0,         0,         0)  \
    SET(Jeopardy,                     0,       394,       296,        10,         0,         0)  \
    SET(FrontPageCheck,               0,       168,       169,         0,         0,         0)  \
    SET(AdvancedCheck,                0,       311,       312,         0,         0,         0)  \
    SET(LookAheadField,               0,       170,       171,         0,         0,         0)  \
    SET(ConversionLabel,              0,       345,       346,       347,         0,         0)  \
    SET(FromField,                    0,       348,       144,         0,         0,         0)  \
    SET(ToField,                      0,       349,       144,         0,         0,         0)  \
    SET(Direction,                    0,       350,       342,         0,         0,         0)  \
    SET(ImportFile,                   0,       144,       186,         0,       191,       192)  \
    SET(ImportFormat,                 0,       172,       449,       173,       174,         0)  \
    SET(ExportFormat,                 0,       172,       173,       199,       174,         0)  \
    SET(SecurityField,                0,       313,         0,       314,       315,         0)  \
    SET(ImportAll,                    0,       187,         0,         0,         0,         0)  \
    SET(ImportNewer,                  0,       188,       189,         0,         0,         0)  \
    SET(ImportFrom,                   0,       188,       190,         0,         0,         0)  \
    SET(ExportAll,                    0,       200,         0,         0,         0,         0)  \
    SET(ExportFrom,                   0,       201,       190,         0,         0,         0)  \
    SET(ExportUpTo,                   0,       201,       202,         0,         0,         0)  \
    SET(CategoryArrow,                0,        71,        72,       359,         0,         0)  \
    SET(CategoryBeside,               0,       360,       361,         0,         0,         0)  \
    SET(CentralCategory,              0,       356,         0,       357,         0,         0)  \
    SET(Palette,                    366,         0,       367,       368,       369,         0)  \
    SET(PaletteSquare,                0,       389,       368,       369,         0,         0)  \
    SET(ColourKept,                   0,       365,         0,         0,         0,         0)  \
    SET(ColourForCategory,            0,       362,       363,         0,       364,         0)  \
    SET(MixColour,                  385,       386,         0,       387,       388,         0)  \
    SET(RedParameter,                 0,       370,       373,       374,         0,         0)  \
    SET(GreenParameter,               0,       371,       373,       374,         0,         0)  \
    SET(BlueParameter,                0,       372,       373,       374,         0,         0)  \
    SET(ContrastParameter,            0,       375,       376,         0,         0,         0)  \
    SET(HueParameter,                 0,       377,       378,         0,         0,         0)  \
    SET(LuminosityParameter,          0,       379,       380,       381,         0,         0)  \
    SET(SaturationParameter,          0,       382,       383,       384,         0,         0)  \
    SET(EntryArrow,                   0,        71,        72,       397,         0,         0)  \
    SET(Flag,                         0,        45,         0,        46,         0,         0)  \
    SET(Sign,                         0,       145,         0,         0,         0,         0)  \
    SET(MultiplierSign,               0,       213,         0,       212,         0,         0)  \
    SET(Gratis,                       0,       247,       248,         0,         0,         0)  \
    SET(Cleared,                      0,       146,         0,         0,         0,         0)  \
    SET(DuplicateDropped,             0,       237,         0,       238,         0,         0)  \
    SET(DuplicateMade,                0,       235,         0,       236,         0,         0)  \
    SET(BasicView,                    0,       309,         0,         0,         0,         0)  \
    SET(AdvancedView,                 0,       310,         0,         0,         0,         0)
// clang-format on

#define NAME_OF_HELP_SET(Name, ...) Name,
enum class Help : uint16_t { HELP_SETS(NAME_OF_HELP_SET) };
#undef NAME_OF_HELP_SET

struct HelpSet {
    const char *Name; // as in Help
    int16_t Line[MessageLines];
};

#define ROW_OF_HELP_SET(Name, ...) {#Name, {__VA_ARGS__}},
inline constexpr HelpSet HelpSets[] = {HELP_SETS(ROW_OF_HELP_SET)};
#undef ROW_OF_HELP_SET
#undef HELP_SETS
inline constexpr int HelpCount = static_cast<int>(std::size(HelpSets));

// No set stands twice, and every id but AddedHere is one that a message can have.
constexpr bool HelpSetsHold() {
    for (int i = 0; i < HelpCount; ++i) {
        for (const int16_t id : HelpSets[i].Line)
            if ((id < 0 && id != AddedHere) || id > LastMessage)
                return false;
        for (int other = 0; other < i; ++other)
            if (std::equal(HelpSets[i].Line, HelpSets[i].Line + MessageLines, HelpSets[other].Line))
                return false;
    }
    return true;
}
static_assert(HelpSetsHold());

// The lines of a name.
constexpr const int16_t (&LinesOf(Help help))[MessageLines] {
    return HelpSets[static_cast<size_t>(help)].Line;
}
