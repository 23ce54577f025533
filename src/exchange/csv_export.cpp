// CSV: nine columns a row, markers as well, so that an account goes out and comes back.
#include "exchange/line_forms.h"
#include "ledger/balance.h"
#include "state/error_log.h"

namespace {

// The letter of a row, a capital in a share account; a blank for one that has none.
char TypeOf(const ExportAccount &account, const TRec &row) {
    const bool share = IsShare(account.Kind);
    switch (row.RowKind) {
    case EntryRow:
        return !share ? 'n' : row.Cash ? 'C' : row.NoCash ? 'F' : 'N';
    case DayMarker:
        return share ? 'T' : 't';
    case ArchiveMarker:
        return share ? 'A' : 'a';
    case DeletedMarker:
        return share ? 'D' : 'd';
    }
    ReportError(In::ExportCSVFile, Trouble::CaseError);
    return 0;
}

struct Figures { // columns 4 to 6
    int32_t Units;
    FixedAmount Value, Total;
};

Figures FiguresOf(const ExportAccount &account, const TRec &row) {
    const bool share = IsShare(account.Kind);
    if (row.RowKind == DayMarker)
        return {0, 0, share ? AddAmounts(TimesUnits(row.RunUnits, row.Value), row.RunTotal) : row.RunTotal};
    if (share && row.Cash && row.RowKind == EntryRow)
        return {0, row.CashAmount, row.CashAmount};
    const FixedAmount total = AmountOf(account, row);
    const bool marker = row.RowKind == ArchiveMarker || row.RowKind == DeletedMarker;
    return {UnitsOf(account, row), row.Value, share && marker ? AddAmounts(total, row.CashAmount) : total};
}

void WriteRow(LineWriter *writer, const ExportAccount &account, const TRec &row) {
    WriteWhole(writer, account.DayFirst ? row.Date.Day : row.Date.Month);
    WriteAscii(writer, "/");
    WriteWhole(writer, account.DayFirst ? row.Date.Month : row.Date.Day);
    WriteAscii(writer, "/");
    WriteWhole(writer, row.Date.Year);
    WriteAscii(writer, ",");
    WriteText(writer, row.Name, ';');
    WriteAscii(writer, ",");
    WriteText(writer, row.Memo, ';');
    WriteAscii(writer, ",");
    const Figures figures = FiguresOf(account, row);
    WriteWhole(writer, figures.Units);
    WriteAscii(writer, ",");
    if (row.RowKind == DayMarker)
        WriteAscii(writer, "0");
    else
        WriteDecimal(writer, figures.Value);
    WriteAscii(writer, ",");
    WriteDecimal(writer, figures.Total);
    WriteAscii(writer, row.Cleared ? ",T," : ",F,");
    const char type[] = {TypeOf(account, row), 0};
    WriteAscii(writer, type);
    WriteAscii(writer, ",");
    WriteDecimal(writer, RowBalance(row, account.Kind, account.Cleared));
    WriteAscii(writer, "\n");
}

} // namespace

const ExportFormat CsvFormat = {nullptr, WriteRow};
