// The windows of rows: what each list shows, loaded from its file. (An account's transactions are loaded in
// ledger/account_window.h.) `top` 1 or more is taken as it is; below 1 it counts from the end: the top becomes
// count - RowCount - top + 1, at least 1.
//
// A first record whose version is not 1 ends all use of the data: state.DataUsable becomes 0, the message window opens,
// and nothing is written any more. All loaders return 0 then, LoadAccFile also without an account, and 1 otherwise.
#pragma once

#include "store/operations.h"

// The window of any list but the transactions'.
int LoadListWindow(int list, int32_t top);

int LoadAccFile(int32_t top); // heading rows are summed first
int LoadBinFile(int32_t top); // also trims a bin above BinTrimAbove to the newest BinKeep records
inline int LoadFavFile(int32_t top) {
    return LoadListWindow(TemplateList, top);
}
inline int LoadCatFile(int32_t top) {
    return LoadListWindow(CategoryList, top);
}
inline int LoadCurFile(int32_t top) {
    return LoadListWindow(ConversionList, top);
}
int LoadDDFile(int32_t top); // a top below 1 means 1

inline constexpr int32_t BinKeep = 5000, BinTrimAbove = 5250; // the gap makes the costly trim rare

// One record into the caller's row. 1, or 0 and the row's defaults when there is no such position.
int FetchAccount(int32_t position, ARec *row);
int FetchDD(int32_t position, DDRec *row); // the defaults refer to an account that is not there
int FetchFav(int32_t position, FRec *row);
int FetchBin(int32_t position, BinRec *row);
int FetchCat(int32_t position, CatRec *row);
int FetchCur(int32_t position, CurRec *row);

// The top of a window for a loader's `top` argument.
int32_t TopFor(int32_t top, int32_t count);
// The top that brings a selection to the middle of a list's window. Lists may scroll two rows past the last record,
// where a new entry's empty row shows.
int32_t TopAround(int list, int32_t selection, int32_t count);

// Position of a category's CatID, -1 for none; and back, 0 for none.
int32_t CatIDToPosition(int64_t catID);
int64_t CatPositionToID(int32_t position);
// A new CatID, drawn from the clock; two of one instant differ.
int64_t NewCatID();

// Takes the data-refused path when a file's first record has another version than 1: reports WrongVersion under
// `function`. 1 when the record may be used.
enum class In : uint8_t;
[[nodiscard]] int AcceptVersion(uint8_t version, In function);
