// TXT: a listing with tabs, for a printer. Two decimals, the third cut.
#include "exchange/line_forms.h"
#include "ledger/balance.h"

namespace {

constexpr int TitleWidth = 30, RefWidth = 40, Decimals = 2;

void Begin(LineWriter *writer, const ExportAccount &account) {
    WriteAscii(writer, "\n\t\t\t\t\t\t");
    WriteText(writer, account.Name);
    WriteAscii(writer, "\n\n");
}

void WriteRow(LineWriter *writer, const ExportAccount &account, const TRec &row) {
    if (row.RowKind == DayMarker)
        return;
    const bool share = IsShare(account.Kind), cash = share && row.Cash;
    WriteWhole(writer, account.DayFirst ? row.Date.Day : row.Date.Month, 2);
    WriteAscii(writer, " ");
    WriteWhole(writer, account.DayFirst ? row.Date.Month : row.Date.Day, 2);
    WriteAscii(writer, " ");
    WriteWhole(writer, row.Date.Year, 4);
    WriteAscii(writer, "\t");
    WriteText(writer, row.Name, ',', TitleWidth);
    WriteAscii(writer, "\t");
    WriteText(writer, row.Memo, ',', RefWidth);
    WriteAscii(writer, "\t");
    WriteWhole(writer, cash ? 1 : UnitsOf(account, row));
    WriteAscii(writer, " X ");
    WriteDecimal(writer, cash ? row.CashAmount : row.Value, Decimals);
    WriteAscii(writer, "\t");
    WriteDecimal(writer, cash ? row.CashAmount : AmountOf(account, row), Decimals);
    WriteAscii(writer, "\t");
    if (share) {
        WriteWhole(writer, row.RunUnits);
        WriteAscii(writer, "\t");
    }
    WriteDecimal(writer, RowBalance(row, account.Kind, 0), Decimals);
    WriteAscii(writer, "\n");
}

} // namespace

const ExportFormat TxtFormat = {Begin, WriteRow};
