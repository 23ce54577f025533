// QIF: a line a field, each a letter and its text. It loses Day markers, flags, categories and multipliers.
#include "exchange/line_forms.h"
#include "state/error_log.h"

namespace {

constexpr uint32_t FirstYearOfNewForm = 2000;
constexpr int SecurityWidth = 30;

FixedAmount Magnitude(FixedAmount value) {
    return value < 0 ? NegateAmount(value) : value;
}

void WriteDecimalLine(LineWriter *writer, const char *letter, FixedAmount value) {
    WriteAscii(writer, letter);
    WriteDecimal(writer, value);
    WriteAscii(writer, "\n");
}
void WriteTextLine(LineWriter *writer, const char *letter, const char16_t *text, int width = 0) {
    WriteAscii(writer, letter);
    WriteText(writer, text, ',', width);
    WriteAscii(writer, "\n");
}

void WriteDateLine(LineWriter *writer, const RecDate &date, int dayFirst) {
    WriteAscii(writer, "D");
    WriteWhole(writer, dayFirst ? date.Day : date.Month);
    WriteAscii(writer, "/");
    WriteWhole(writer, dayFirst ? date.Month : date.Day);
    WriteAscii(writer, date.Year < FirstYearOfNewForm ? "/" : "'");
    WriteWhole(writer, date.Year);
    WriteAscii(writer, "\n");
}

void WriteMoneyLines(LineWriter *writer, const ExportAccount &account, const TRec &row) {
    WriteDecimalLine(writer, "T", AmountOf(account, row));
    WriteTextLine(writer, "P", row.Name);
    WriteTextLine(writer, "M", row.Memo);
}

void WriteShareLines(LineWriter *writer, const ExportAccount &account, const TRec &row) {
    if (row.Cash) {
        WriteAscii(writer, row.CashAmount >= 0 ? "NMiscInc\n" : "NMiscExp\n");
        WriteDecimalLine(writer, "T", Magnitude(row.CashAmount));
        WriteAscii(writer, "I\nQ\n");
    } else {
        static constexpr const char *Actions[2][2] = {{"NBuy\n", "NShrsIn\n"}, {"NSell\n", "NShrsOut\n"}};
        WriteDecimalLine(writer, "I", Magnitude(row.Value));
        WriteAscii(writer, Actions[row.Units < 0][row.NoCash != 0]);
        WriteAscii(writer, "Q");
        WriteWhole(writer, row.Units < 0 ? -int64_t{row.Units} : row.Units);
        WriteAscii(writer, "\n");
        WriteDecimalLine(writer, "T", Magnitude(AmountOf(account, row)));
    }
    WriteTextLine(writer, "Y", account.Name, SecurityWidth);
    WriteTextLine(writer, "M", row.Name);
}

void WriteRow(LineWriter *writer, const ExportAccount &account, const TRec &row) {
    if (row.RowKind == DayMarker)
        return;
    WriteDateLine(writer, row.Date, account.DayFirst);
    if (row.Cleared)
        WriteAscii(writer, "CX\n");
    if (account.Kind < 0 || account.Kind > static_cast<int32_t>(ShareCash))
        ReportError(In::ExportQIFFile, Trouble::CaseError);
    else if (IsShare(account.Kind))
        WriteShareLines(writer, account, row);
    else
        WriteMoneyLines(writer, account, row);
    WriteAscii(writer, "^\n");
}

void Begin(LineWriter *writer, const ExportAccount &account) {
    WriteAscii(writer, IsShare(account.Kind) ? "!Type:Invst\n" : "!Type:Bank\n");
}

} // namespace

const ExportFormat QifFormat = {Begin, WriteRow};
