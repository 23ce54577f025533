// Files in and out. The times are the process's own, in the program and in the system. To reach: 5,000 entries into an
// empty account within 100 ms, oldest or newest first; an export of 100 MB/s or more, told in bytes of the account
// read.
#include "../records/rows.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "platform/action.h"
#include <cstdio>
#include <string>

namespace {

constexpr int Entries = 5000;
constexpr uint32_t FirstDay = 120000;

enum Format : int64_t { Qif, Ofx, Csv };

std::string FileOf(int64_t format, bool newestFirst) {
    std::string file = format == Qif ? "!Type:Bank\n" : format == Ofx ? "<OFX>\n" : "";
    for (int n = 0; n < Entries; ++n) {
        const int index = newestFirst ? Entries - 1 - n : n;
        const RecDate date = DateFromDayNumber(FirstDay + static_cast<uint32_t>(index) / 3);
        const int year = static_cast<int>(date.Year), month = date.Month, day = date.Day;
        char text[400];
        if (format == Qif)
            std::snprintf(text, sizeof text, "D%d/%d'%d\nT-%d.25\nPCard payment %d\nMShop in town\n^\n", day, month,
                          year, index, index);
        else if (format == Ofx)
            std::snprintf(text, sizeof text,
                          "<STMTTRN>\n<TRNTYPE>DEBIT\n<DTPOSTED>%04d%02d%02d120000\n<TRNAMT>-%d.25\n<FITID>2007%d\n"
                          "<NAME>Card payment %d\n<MEMO>Shop in town\n</STMTTRN>\n",
                          year, month, day, index, index, index);
        else
            std::snprintf(text, sizeof text, "%d/%d/%d,Card payment %d,Shop in town,1,-%d.250,-%d.250,F,n,0.000\n", day,
                          month, year, index, index, index);
        file += text;
    }
    return file;
}

// Format, 1 for newest first, rows that the account has already.
void Import(benchmark::State &run) {
    const std::string file = FileOf(run.range(0), run.range(1) != 0);
    for (auto _ : run) {
        AccountOnDisk account(static_cast<int32_t>(run.range(2)));
        testhost::WriteBytes(account.Root.HostPath("\\in"), {file.begin(), file.end()});
        const Place place = LiveRows(BenchAccount);
        const double start = Now();
        BeginAction();
        const int result = run.range(0) == Qif   ? ImportQIFFile(place, "\\in", 0, u"", nullptr)
                           : run.range(0) == Ofx ? ImportOFXFile(place, "\\in", 0, nullptr)
                                                 : ImportCSVFile(place, "\\in", 0, nullptr);
        const int durable = CommitAction();
        run.SetIterationTime(Now() - start);
        if (!durable || result != ImportDone || state.ImportCount[0] != Entries)
            run.SkipWithError("not imported");
    }
}
BENCHMARK(Import)->ArgsProduct({{Qif, Ofx, Csv}, {0, 1}, {0, 100000}})->UseManualTime()->Unit(benchmark::kMillisecond);

void Export(benchmark::State &run) {
    constexpr int32_t Rows = 100000;
    constexpr int (*exporters[])(const Place &, const char *, uint32_t, int,
                                 ExchangeTeller) = {ExportQIFFile, ExportTXTFile, ExportCSVFile};
    AccountOnDisk account(Rows);
    double seconds = 0;
    for (auto _ : run) {
        const double start = Now();
        if (exporters[run.range(0)](LiveRows(BenchAccount), "\\out", 0, ExportAll, nullptr) != ExportDone)
            run.SkipWithError("not exported");
        const double taken = Now() - start;
        run.SetIterationTime(taken);
        seconds += taken;
    }
    const double turns = static_cast<double>(run.iterations());
    run.counters["read MB/s"] = Rows * sizeof(TRecFile) * turns / seconds / 1e6;
    run.counters["written MB/s"] =
        static_cast<double>(testhost::ReadBytes(account.Root.HostPath("\\out")).size()) * turns / seconds / 1e6;
}
BENCHMARK(Export)->DenseRange(Qif, Csv)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
