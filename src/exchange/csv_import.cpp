#include "exchange/csv_import.h"
#include "exchange/amount_form.h"
#include "exchange/csv_form.h"
#include "exchange/scan.h"
#include "ledger/order.h"
#include "resources/error_names.h"
#include <cstring>
#include <initializer_list>

namespace {

constexpr int LinesOfDatePass = 1000;
constexpr int LastYearOfOldCentury = 70; // 71 to 99 are of the last century
constexpr int NameUnits = 24, MemoUnits = 30;
constexpr int WholeLine = 13, ShortestLine = 10;

struct Reader {
    const ImportTask *Task;
    ImportBatch *Batch;
    DateOrder Order;
    bool ArchiveSeen, DeletedSeen;
};

DateOrder FindOrder(TextFile *text, int dayFirst) {
    CsvForm form;
    StartCsv(&form, text, DateOrder::Unknown);
    for (int lines = 0; lines < LinesOfDatePass; ++lines) {
        const char *line = NextCsvLine(&form);
        if (!line)
            break;
        Scan scan = {line};
        if (const DateOrder told = OrderToldBy(&scan); told != DateOrder::Unknown)
            return told;
    }
    return dayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

int32_t CountLines(TextFile *text, DateOrder order) {
    CsvForm form;
    StartCsv(&form, text, order);
    int32_t count = 0;
    while (NextCsvLine(&form))
        ++count;
    return count;
}

// The columns behind the texts: fields read, 0 to 6.
int ScanNumbers(Scan *scan, CsvRecord *record) {
    char *const columns[] = {record->Value, record->Total, record->Cleared, record->Type, record->Balance};
    if (!ScanNumber(scan, &record->Units))
        return 0;
    int fields = 1;
    for (char *column : columns) {
        if (!ScanLiteral(scan, ',') || !ScanUntil(scan, ',', column, CsvFieldRoom))
            break;
        ++fields;
    }
    return fields;
}

// What a share record does with its columns.
void TakeShareNumbers(const CsvRecord &record, FixedAmount value, FixedAmount total, TRec *row) {
    if (row->RowKind == DayMarker) {
        row->Units = 0;
        return;
    }
    const FixedAmount rest = SubtractAmounts(total, TimesUnits(record.Units, value));
    if (row->RowKind == ArchiveMarker || row->RowKind == DeletedMarker) {
        row->Units = row->ClearedUnits = record.Units;
        row->Value = row->ClearedValue = value;
        row->CashAmount = row->ClearedCashAmount = rest;
    } else if (*record.Type == 'C') {
        row->Cash = 1;
        row->CashAmount = value;
    } else {
        row->NoCash = *record.Type == 'F';
        row->Units = record.Units;
        row->Value = value;
        row->CashAmount = rest;
    }
}

void TakeMoneyNumbers(const CsvRecord &record, FixedAmount value, TRec *row) {
    if (row->RowKind == DayMarker) {
        row->Units = 0;
        return;
    }
    row->CashAmount = row->ClearedCashAmount = row->Value = row->ClearedValue = value;
    if (row->RowKind == EntryRow)
        row->Units = row->ClearedUnits = record.Units;
}

// Only the first Archive marker and the first Deleted marker of a file are such; later ones are entries. 0 when the
// letter is none of a record.
int TakeType(Reader *reader, char letter, TRec *row) {
    const auto markFirst = [row](bool *seen, RowKind kind) {
        if (!*seen)
            row->RowKind = kind;
        *seen = true;
    };
    switch (letter) {
    case 'd':
    case 'D':
        markFirst(&reader->DeletedSeen, DeletedMarker);
        break;
    case 'a':
    case 'A':
        markFirst(&reader->ArchiveSeen, ArchiveMarker);
        break;
    case 't':
    case 'T':
        row->RowKind = DayMarker;
        break;
    case 'n':
    case 'N':
    case 'c':
    case 'C':
    case 'F':
        break;
    default:
        return 0;
    }
    return 1;
}

// The first type letter tells what the file holds. 0 when the account can't take it.
int SettleContent(Reader *reader, char letter) {
    ImportBatch *batch = reader->Batch;
    const bool upper = letter >= 'A' && letter <= 'Z', lower = letter >= 'a' && letter <= 'z';
    if (batch->Content != ContentKind::Unknown || (!upper && !lower))
        return 1;
    batch->Content = upper ? ContentKind::Shares : ContentKind::Money;
    const bool fits = upper == IsShare(batch->AccountKind);
    batch->Accepted = fits || reader->Task->AccountEmpty;
    batch->KindSettled = batch->Accepted;
    if (!fits)
        batch->AccountKind = upper ? ShareValue : BankAccount;
    return batch->Accepted;
}

// 0 when the line ends the import.
int TakeLine(Reader *reader, const char *line) {
    ImportBatch *batch = reader->Batch;
    CsvRecord record;
    const int fields = ScanCsvLine(line, &record);
    TRec row = NewRow();
    const bool dayFirst = reader->Order == DateOrder::DayFirst;
    if (record.Year < 100)
        record.Year += record.Year > LastYearOfOldCentury ? 1900 : 2000;
    char value[AmountRoom], total[AmountRoom];
    if (fields == 0 ||
        !DateOf(record.Year, dayFirst ? record.Second : record.First, dayFirst ? record.First : record.Second,
                &row.Date) ||
        !FormAmount(record.Value, DecimalMark::Point, value) || !FormAmount(record.Total, DecimalMark::Point, total)) {
        AddEntry(batch, row, Outcome::Unreadable);
        return 1;
    }
    if (row.Date.DayNumber < reader->Task->FirstDay) {
        AddEntry(batch, row, Outcome::AsRequested);
        return 1;
    }
    const char letter = *record.Type;
    if (!SettleContent(reader, letter))
        return 0;
    Outcome outcome = fields == WholeLine ? Outcome::WellFormed : Outcome::BadlyFormed;
    if (!TakeType(reader, letter, &row))
        outcome = Outcome::BadlyFormed;
    row.Rank = RankOf(row.RowKind, In::ImportCSVFile);
    const char cleared = *record.Cleared;
    row.Cleared = cleared == 'T' || cleared == 't';
    if (!row.Cleared && cleared != 'F' && cleared != 'f')
        outcome = Outcome::BadlyFormed;
    for (char *text : {record.Title, record.Ref})
        for (; *text; ++text)
            if (*text == ';')
                *text = ',';
    TakeText(row.Name, record.Title, NameUnits);
    TakeText(row.Memo, record.Ref, MemoUnits);
    if (IsShare(batch->AccountKind))
        TakeShareNumbers(record, Str_int64(value), Str_int64(total), &row);
    else
        TakeMoneyNumbers(record, Str_int64(value), &row);
    AddEntry(batch, row, outcome);
    return 1;
}

} // namespace

void ReadCsv(TextFile *text, const ImportTask &task, ImportBatch *batch) {
    StartBatch(batch, task);
    Reader reader = {};
    reader.Task = &task;
    reader.Batch = batch;
    reader.Order = FindOrder(text, task.DayFirst);
    batch->Total = CountLines(text, reader.Order);
    CsvForm form;
    StartCsv(&form, text, reader.Order);
    while (batch->Finished < ImportLimit) {
        const char *line = NextCsvLine(&form);
        if (!line || !TakeLine(&reader, line))
            return;
        ++batch->Finished;
        TellReading(batch, task, PercentRead(text));
    }
}

// A scan can't read an empty column: title and reference have forms of the line of their own without them.
int ScanCsvLine(const char *line, CsvRecord *record) {
    record->Year = 0;
    for (char *column :
         {record->Title, record->Ref, record->Value, record->Total, record->Cleared, record->Type, record->Balance})
        *column = 0;
    Scan scan = {line};
    ScannedDate date;
    int fields = ScanDate(&scan, &date);
    if (fields < 5 || !ScanLiteral(&scan, ','))
        return 0;
    record->First = date.First;
    record->Second = date.Second;
    record->Year = date.Third;
    for (char *text : {record->Title, record->Ref}) {
        static_cast<void>(ScanUntil(&scan, ',', text, CsvFieldRoom)); // it may be empty
        if (!ScanLiteral(&scan, ','))
            return 0;
        ++fields;
    }
    fields += ScanNumbers(&scan, record);
    return fields >= ShortestLine ? fields : 0;
}
