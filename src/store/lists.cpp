#include "store/lists.h"
#include "state/state.h"
#include "store/configuration.h"
#include <iterator>

namespace {

template <typename Rec, void (*Init)(Rec *)> constexpr auto InitAs = [](void *row) { Init(static_cast<Rec *>(row)); };

constexpr int16_t DayNumberAt(size_t date) {
    return static_cast<int16_t>(date + offsetof(RecDate, DayNumber));
}

// clang-format off
constexpr ListFacts Lists[] = { // ORDER LIST; GraphList has no row of its own
    {AccountList,     FileKind::Accounts,     sizeof(ARec),   offsetof(ARec, Name),       -1,
     state.AccRows + 1, InitAs<ARec, InitARec>,     In::LoadAccFile,
     offsetof(ConfRec, AccountColumns),       3, {0, 150, 226}},
    {TransactionList, FileKind::Transactions, sizeof(TRec),   offsetof(TRec, Name),       DayNumberAt(offsetof(TRec, Date)),
     nullptr,           InitAs<TRec, InitTRec>,     In::LoadTranFile,
     0,                                       5, {0, 45, 135, 180, 226}},
    {RecurringList,   FileKind::Recurring,    sizeof(DDRec),  offsetof(DDRec, Name),      DayNumberAt(offsetof(DDRec, NextDate)),
     state.DDRows + 1,  InitAs<DDRec, InitDDRec>,   In::LoadDDFile,
     offsetof(ConfRec, RecurringColumns),     5, {0, 38, 120, 175, 226}},
    {TemplateList,    FileKind::Templates,    sizeof(FRec),   offsetof(FRec, Name),       -1,
     state.FavRows + 1, InitAs<FRec, InitFRec>,     In::LoadFavFile,
     offsetof(ConfRec, TemplateColumns),      3, {0, 150, 226}},
    {BinList,         FileKind::Bin,          sizeof(BinRec), offsetof(BinRec, Name),     DayNumberAt(offsetof(BinRec, Date)),
     state.BinRows + 1, InitAs<BinRec, InitBinRec>, In::LoadBinFile,
     offsetof(ConfRec, BinColumns),           5, {0, 38, 120, 175, 226}},
    {CategoryList,    FileKind::Categories,   sizeof(CatRec), offsetof(CatRec, Name),     -1,
     state.CatRows + 1, InitAs<CatRec, InitCatRec>, In::LoadCatFile,
     offsetof(ConfRec, CategoryColumns),      3, {0, 45, 226}},
    {ConversionList,  FileKind::Conversions,  sizeof(CurRec), offsetof(CurRec, FromName), -1,
     state.CurRows + 1, InitAs<CurRec, InitCurRec>, In::LoadCatFile,
     offsetof(ConfRec, ConversionColumns),    4, {0, 95, 130, 226}},
};
// clang-format on

constexpr bool EachIsItsList() {
    int list = AccountList;
    for (const ListFacts &row : Lists) {
        list += list == GraphList;
        if (row.List != list || row.Kind != KindOfList(list) || row.RowBytes != PayloadSize(row.Kind))
            return false;
        ++list;
    }
    return list == ListCount;
}
static_assert(EachIsItsList());

} // namespace

const ListFacts *FactsOfList(int list) {
    if (list <= NoList || list >= ListCount)
        return nullptr;
    if (list == GraphList)
        list = TransactionList;
    return &Lists[list < GraphList ? list - 1 : list - 2];
}

void InitRow(int list, RecordBuffer *row) {
    *row = {};
    if (const ListFacts *about = FactsOfList(list))
        about->Init(row->Bytes);
}

void InitARec(ARec *row) {
    *row = {};
    row->Version = RecordVersion;
    for (int i = 0; i < MostDividers; ++i)
        row->ColumnPos[i] = normalise(FactsOfList(TransactionList)->DividerPixels[i]);
}

void InitTRec(TRec *row) {
    *row = {};
    row->Version = RecordVersion;
    LoadTodaysDate(&row->Date);
    row->Rank = EntryRank;
    row->Units = 1;
}

void InitDDRec(DDRec *row) {
    *row = {};
    row->Version = RecordVersion;
    LoadTodaysDate(&row->NextDate);
    row->Rank = EntryRank;
    row->DayWanted = static_cast<uint8_t>(row->NextDate.Day);
}

void InitFRec(FRec *row) {
    *row = {};
    row->Version = RecordVersion;
}

void InitBinRec(BinRec *row) {
    *row = {};
    row->Version = RecordVersion;
}

void InitCatRec(CatRec *row) {
    *row = {};
    row->Version = RecordVersion;
    row->Red = row->Blue = 255;
}

void InitCurRec(CurRec *row) {
    *row = {};
    row->Version = RecordVersion;
}
