// The numbers and names of the error log. They reach a file, so they are never renumbered, gaps and all.
#pragma once

#include <cstdint>

// clang-format off
// Who reports: the function the writer thought of; a small function reports under its caller. It is logged by this name.
#define ERROR_FUNCTIONS(FUNCTION)     \
    FUNCTION(DrawTracker,          1) \
    FUNCTION(AccountNameToId,      2) \
    FUNCTION(Rnd,                  3) \
    FUNCTION(AccountIdToName,      4) \
    FUNCTION(ValidateStr,          5) \
    FUNCTION(Dialog_Init,          6) \
    FUNCTION(LoadHelp,             7) \
    FUNCTION(Dialog_End,           8) \
    FUNCTION(InsertAbs,            9) \
    FUNCTION(RectoID,             10) \
    FUNCTION(IDtoRec,             11) \
    FUNCTION(SetRecPosition,      12) \
    FUNCTION(CopyRecFile,         13) \
    FUNCTION(ModRecFile,          14) \
    FUNCTION(UpdateShareMode,     16) \
    FUNCTION(UpdateT2FILtot,      17) \
    FUNCTION(LoadTodaysDate,      18) \
    FUNCTION(CalcBalance,         19) \
    FUNCTION(ReGraphFILsiz,       20) \
    FUNCTION(AddRecFile,          21) \
    FUNCTION(AddTranMem,          22) \
    FUNCTION(DeleteRecFile,       23) \
    FUNCTION(DeleteRecMem,        24) \
    FUNCTION(MoveRecFile,         25) \
    FUNCTION(CpDates,             26) \
    FUNCTION(deallocResources,    27) \
    FUNCTION(LoadTBMs,            28) \
    FUNCTION(UpdateTBMs,          29) \
    FUNCTION(DrawTabText,         30) \
    FUNCTION(DrawTabs,            31) \
    FUNCTION(normalise,           32) \
    FUNCTION(denormalise,         33) \
    FUNCTION(GetNextID,           36) \
    FUNCTION(CurrentPos,          37) \
    FUNCTION(TargetPos,           38) \
    FUNCTION(ObjectAtPos,         39) \
    FUNCTION(ClearMovieItems,     40) \
    FUNCTION(SwirlCharsItem,      41) \
    FUNCTION(ClearOccupied,       42) \
    FUNCTION(AnLoad,              43) \
    FUNCTION(RefreshMovie,        44) \
    FUNCTION(InitMovie,           45) \
    FUNCTION(SwirlChars,          46) \
    FUNCTION(Mosaic,              47) \
    FUNCTION(DrawAbout,           48) \
    FUNCTION(UpdateBmap,          49) \
    FUNCTION(DrawLine,            50) \
    FUNCTION(CheckT1totals,       51) \
    FUNCTION(SetMenuBar,          52) \
    FUNCTION(IInitInstance,       53) \
    FUNCTION(WinMain,             54) \
    FUNCTION(MyRegisterClass,     55) \
    FUNCTION(SetGreys,            56) \
    FUNCTION(LoadConfFile,        57) \
    FUNCTION(StoreConfFile,       58) \
    FUNCTION(UKSysDateFormatSet,  59) \
    FUNCTION(ExportTXTFile,       60) \
    FUNCTION(replaceComas,        61) \
    FUNCTION(Str_int64,           62) \
    FUNCTION(Str_int,             63) \
    FUNCTION(ExportCSVFile,       64) \
    FUNCTION(ExportQIFFile,       65) \
    FUNCTION(ImportQIFFile,       66) \
    FUNCTION(ImportCSVFile,       67) \
    FUNCTION(LoadAccFile,         68) \
    FUNCTION(LoadTranFile,        69) \
    FUNCTION(LoadFavFile,         70) \
    FUNCTION(ConvertAccFile,      71) \
    FUNCTION(ConvertTranFile,     72) \
    FUNCTION(ConvertFavFile,      73) \
    FUNCTION(Unarchive,           74) \
    FUNCTION(Archive,             75) \
    FUNCTION(DeleteN,             76) \
    FUNCTION(ConvertDDFile,       77) \
    FUNCTION(LoadDDFile,          78) \
    FUNCTION(DDFileCheck,         79) \
    FUNCTION(LoadBinFile,         80) \
    FUNCTION(DiaProcAbout,        81) \
    FUNCTION(DiaProcSlider,       82) \
    FUNCTION(DiaProcNote,         84) \
    FUNCTION(DiaProcRename,       86) \
    FUNCTION(DiaProcTran,         87) \
    FUNCTION(DiaProcFav,          88) \
    FUNCTION(DiaProcDD,           89) \
    FUNCTION(DiaProcConfig,       90) \
    FUNCTION(DiaProcArchive,      91) \
    FUNCTION(DiaImport,           92) \
    FUNCTION(DiaExport,           93) \
    FUNCTION(DiaGetFile,          94) \
    FUNCTION(SheetFn,             95) \
    FUNCTION(PolylineA,           97) \
    FUNCTION(PolylineT,           98) \
    FUNCTION(PolylineD,           99) \
    FUNCTION(PolylineF,          100) \
    FUNCTION(PolylineB,          101) \
    FUNCTION(SetScrollBarThumb,  102) \
    FUNCTION(UpdateARec,         103) \
    FUNCTION(UpdateTRec,         104) \
    FUNCTION(UpdateFRec,         105) \
    FUNCTION(UpdateDDRec,        106) \
    FUNCTION(UpdateBinRec,       107) \
    FUNCTION(RecHLon,            108) \
    FUNCTION(RecHLoff,           109) \
    FUNCTION(AddDDEntry,         110) \
    FUNCTION(InsertDate,         111) \
    FUNCTION(CheckDDs,           112) \
    FUNCTION(Ystr,               113) \
    FUNCTION(DrawGraphOutline,   114) \
    FUNCTION(DrawGraph,          115) \
    FUNCTION(doAccounts,         116) \
    FUNCTION(doGraph,            117) \
    FUNCTION(UpdateCounts,       118) \
    FUNCTION(doTransactions,     119) \
    FUNCTION(doFavs,             120) \
    FUNCTION(doDDs,              121) \
    FUNCTION(doBin,              122) \
    FUNCTION(DeleteRecRange,     123) \
    FUNCTION(DoRightArrow,       124) \
    FUNCTION(DoLeftArrow,        125) \
    FUNCTION(LinePos,            126) \
    FUNCTION(ShowHelpMessage,    127) \
    FUNCTION(DoButtonDown,       128) \
    FUNCTION(DoButtonDblclk,     129) \
    FUNCTION(MoveBin,            130) \
    FUNCTION(DoButtonUp,         131) \
    FUNCTION(DoMouseMove,        132) \
    FUNCTION(DoKeyDown,          133) \
    FUNCTION(ToggleHelpMode,     134) \
    FUNCTION(DrawTextLine,       135) \
    FUNCTION(WndProc,            136) \
    FUNCTION(CloseHandle,        138) \
    FUNCTION(CalcRatios,         139) \
    FUNCTION(ConvertRecToGRec,   140) \
    FUNCTION(ShowGraphPtr,       141) \
    FUNCTION(LoadGraphData,      142) \
    FUNCTION(LoadTrec,           143) \
    FUNCTION(LoadCatFile,        144) \
    FUNCTION(doCats,             145)

// What went wrong, and how the log calls it.
#define ERROR_TROUBLES(TROUBLE)                \
    TROUBLE(AcreateFail,   1, "AcreateFail"  ) \
    TROUBLE(BcreateFail,   2, "BcreateFail"  ) \
    TROUBLE(CcreateFail,   3, "CcreateFail"  ) \
    TROUBLE(DcreateFail,   4, "DcreateFail"  ) \
    TROUBLE(FcreateFail,   5, "FcreateFail"  ) \
    TROUBLE(NcreateFail,   6, "NcreateFail"  ) \
    TROUBLE(RcreateFail,   7, "RcreateFail"  ) \
    TROUBLE(TcreateFail,   8, "TcreateFail"  ) \
    TROUBLE(CaseError,     9, "caseError"    ) \
    TROUBLE(AwriteFail,   10, "AwriteFail"   ) \
    TROUBLE(BwriteFail,   11, "BwriteFail"   ) \
    TROUBLE(CwriteFail,   12, "CwriteFail"   ) \
    TROUBLE(DwriteFail,   13, "DwriteFail"   ) \
    TROUBLE(FwriteFail,   14, "FwriteFail"   ) \
    TROUBLE(NwriteFail,   15, "NwriteFail"   ) \
    TROUBLE(RwriteFail,   16, "RwriteFail"   ) \
    TROUBLE(TwriteFail,   17, "TwriteFail"   ) \
    TROUBLE(WrongVersion, 18, "WrongVersion" ) \
    TROUBLE(Closure,      19, "Closure"      ) \
    TROUBLE(LimitReached, 20, "Limit reached") \
    TROUBLE(FileDelete,   21, "File delete"  ) \
    TROUBLE(QcreateFail,  22, "QcreateFail"  )
// clang-format on

#define ERROR_NUMBER(Name, Number, ...) Name = Number,
enum class In : uint8_t { ERROR_FUNCTIONS(ERROR_NUMBER) };
enum class Trouble : uint8_t { ERROR_TROUBLES(ERROR_NUMBER) };
#undef ERROR_NUMBER

struct ErrorName {
    uint8_t Id;
    const char *Name;
};

#define ERROR_ROW(Name, Number) {Number, #Name},
inline constexpr ErrorName FunctionNames[] = {ERROR_FUNCTIONS(ERROR_ROW)};
#undef ERROR_ROW
#define ERROR_ROW(Name, Number, Text) {Number, Text},
inline constexpr ErrorName TroubleNames[] = {ERROR_TROUBLES(ERROR_ROW)};
#undef ERROR_ROW
#undef ERROR_FUNCTIONS
#undef ERROR_TROUBLES

// In the order of their numbers, each once.
template <int Count> constexpr bool NumbersRise(const ErrorName (&names)[Count]) {
    for (int i = 1; i < Count; ++i)
        if (names[i].Id <= names[i - 1].Id)
            return false;
    return names[0].Id > 0;
}
static_assert(NumbersRise(FunctionNames) && NumbersRise(TroubleNames));
