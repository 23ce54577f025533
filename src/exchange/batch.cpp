#include "exchange/batch.h"
#include "platform/text.h"

namespace {

constexpr int ToldEvery = 5; // per cent

} // namespace

void StartBatch(ImportBatch *batch, const ImportTask &task) {
    static_cast<ImportCounts &>(*batch) = {};
    batch->AccountKind = task.AccountKind;
}

TRec NewRow() {
    TRec row = {};
    row.Version = RecordVersion;
    row.Rank = EntryRank;
    row.Units = 1;
    return row;
}

void AddEntry(ImportBatch *batch, const TRec &row, Outcome outcome) {
    ++batch->Outcomes[static_cast<int>(outcome)];
    if (outcome <= Outcome::BadlyFormed && batch->Count < ImportLimit)
        batch->Entries[batch->Count++] = {row, outcome};
}

void TellReading(ImportBatch *batch, const ImportTask &task, int percent) {
    if (!task.Tell || percent < batch->Told + ToldEvery)
        return;
    batch->Told = percent;
    task.Tell(percent);
}

int DateOf(int32_t year, int32_t month, int32_t day, RecDate *date) {
    if (year < 1601 || year > 9999 || month < 1 || month > 12 || day < 1 ||
        day > DaysInMonth(static_cast<uint32_t>(year), month))
        return 0;
    *date = {};
    date->Year = static_cast<uint32_t>(year);
    date->Month = static_cast<int8_t>(month);
    date->Day = static_cast<int8_t>(day);
    InsertAbs(date);
    return 1;
}

void TakeText(char16_t (&to)[TextRoom], const char *from, int units) {
    char16_t wide[TextRoom * 2];
    WidenText(wide, TextRoom * 2, from);
    CopyText(to, units < TextRoom ? units + 1 : TextRoom, wide);
}
