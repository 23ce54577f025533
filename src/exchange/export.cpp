#include "exchange/export.h"
#include "exchange/line_forms.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"

namespace {

constexpr FileKind Kind = FileKind::Transactions;
constexpr int32_t RowsARead = 128; // stay in the cache until they are written

int Chosen(uint32_t dayNumber, uint32_t day, int mode) {
    return mode == ExportFrom ? dayNumber >= day : mode == ExportUpTo ? dayNumber <= day : 1;
}

// 0 when a read brought less than the file holds.
int WriteRows(int source, LineWriter *writer, const ExportFormat &format, const ExportAccount &account, uint32_t day,
              int mode, ExchangeTeller tell) {
    TRecFile records[RowsARead];
    const int32_t count = CountRecords(source, Kind);
    int told = 0;
    for (int32_t first = 1; first <= count;) {
        const int32_t left = count - first + 1;
        const int32_t read =
            ReadRecords(source, Kind, first, left < RowsARead ? left : RowsARead, records, Broken::Shows);
        if (read == 0)
            return 0;
        for (int32_t i = 0; i < read; ++i) {
            TRec &row = records[i].Rec;
            row.Name[TextRoom - 1] = row.Memo[TextRoom - 1] = 0; // a damaged text ends within its field
            if (!IsBroken(&row) && Chosen(row.Date.DayNumber, day, mode))
                format.WriteRow(writer, account, row);
        }
        first += read;
        const int percent = static_cast<int>(int64_t{100} * (first - 1) / count);
        if (tell && percent >= told + 10)
            tell(told = percent);
    }
    return 1;
}

int ExportRows(int source, const ExportFormat &format, const ARec &row, const char *path, uint32_t day, int mode,
               ExchangeTeller tell) {
    static LineWriter writer;
    if (!BeginFile(&writer, path))
        return ExportUnwritten;
    const ExportAccount account = {row.Name, static_cast<int32_t>(row.AccType), UKSysDateFormatSet(),
                                   state.ReconciledView == 1};
    if (format.Begin)
        format.Begin(&writer, account);
    if (WriteRows(source, &writer, format, account, day, mode, tell))
        return EndFile(&writer) ? ExportDone : ExportUnwritten;
    DropFile(&writer);
    return ExportUnread;
}

int ExportFile(const ExportFormat &format, const Place &place, const char *path, uint32_t day, int mode,
               ExchangeTeller tell, In function) {
    ARec account;
    int result = ExportUnread;
    const int source = FindAccount(place.Account, &account, nullptr) ? OpenPlace(place, OpenExisting) : FailedOpen;
    if (source != FailedOpen)
        result = ExportRows(source, format, account, path, day, mode, tell);
    CloseFile(source);
    if (result != ExportDone)
        ReportError(function, Trouble::NcreateFail);
    return result;
}

} // namespace

int ExportQIFFile(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell) {
    return ExportFile(QifFormat, place, path, day, mode, tell, In::ExportQIFFile);
}
int ExportCSVFile(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell) {
    return ExportFile(CsvFormat, place, path, day, mode, tell, In::ExportCSVFile);
}
int ExportTXTFile(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell) {
    return ExportFile(TxtFormat, place, path, day, mode, tell, In::ExportTXTFile);
}
