// What the pass code and a backup cost, each beside what it is measured against. On a directory of the disk that is to
// be measured: ZENTRIK_BENCH_DIRECTORY, otherwise the one it is started in.
#include "care/backup.h"
#include "care/change_key.h"
#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/entries.h"
#include "platform/action.h"
#include "platform/cipher.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/operations.h"
#include "store/windows.h"
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

// A machine without a voice: trouble ends the measuring.
void Beep(Sound) {}
void TellTerminal(const char *line) {
    std::fputs(line, stderr);
    abort();
}
void TellTrouble(int, const char *, const char *line) {
    TellTerminal(line);
}

namespace {

constexpr uint32_t BenchAccount = 5;
constexpr uint8_t Salt[SaltBytes] = {1, 2, 3};

void WriteWhole(const std::string &path, const std::vector<uint8_t> &bytes, bool sync) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) || (sync && fdatasync(file) != 0))
        abort();
    close(file);
}

// A fresh device.
struct Device {
    std::string Path;
    Device() {
        const char *named = getenv("ZENTRIK_BENCH_DIRECTORY");
        Path = std::string(named ? named : ".");
        Path += "/zentrik-bench-";
        Path += std::to_string(getpid());
        fs::remove_all(Path);
        fs::create_directories(DataFile(""));
        ResetState();
        SetDeviceRoot(Path.c_str());
        if (!RecoverFiles())
            abort();
    }
    ~Device() {
        static_cast<void>(SyncFiles());
        SetDeviceRoot("");
        fs::remove_all(Path);
    }
    std::string DataFile(const std::string &name) const { return Path + "/Program Files/Zentrik/E1_Data/" + name; }
};

// The bytes of an account of `count` rows, three a day.
std::vector<uint8_t> Rows(int32_t count) {
    std::vector<uint8_t> bytes(static_cast<size_t>(count) * sizeof(TRecFile));
    for (int32_t i = 0; i < count; ++i) {
        TRecFile record = {};
        InitTRec(&record.Rec);
        record.Rec.Date = DateFromDayNumber(120000 + static_cast<uint32_t>(i) / 3);
        record.Rec.Value = i % 1000 - 500;
        std::memcpy(bytes.data() + static_cast<size_t>(i) * sizeof record, &record, sizeof record);
    }
    return bytes;
}

// An account of rows that is also in the account list, plain or under a sealed key.
struct KeyedAccount : Device {
    KeyedAccount(int32_t count, bool sealed) {
        WriteWhole(DataFile("E1_02A5"), Rows(count), true);
        ConfRec configuration;
        SetConfDefaults(&configuration);
        static_cast<void>(WriteConfiguration(&configuration, In{}));
        if (sealed)
            if (ChangeKey(u"1234", [](int) {}) != KeyChange::Done)
                abort();
        ARec account;
        InitARec(&account);
        account.ID = BenchAccount;
        if (AddRecord(Place{AccountList}, 1, account) != 1)
            abort();
    }
    ~KeyedAccount() { ForgetCurrentKey(); }
};

void CipherAloneAndOneWrite(benchmark::State &run, bool sync) {
    const Device device;
    std::vector<uint8_t> bytes = Rows(static_cast<int32_t>(run.range(0)));
    const int32_t key = DeriveKey(u"1234", SealedSuite, Salt);
    for (auto _ : run) {
        for (size_t at = 0; at < bytes.size(); at += sizeof(TRecFile))
            EncipherUnder(key, FileKind::Transactions, &bytes[at]);
        WriteWhole(device.DataFile("E1_02A5"), bytes, sync);
    }
    ForgetKey(key);
}
void CipherAndWrite(benchmark::State &run) {
    CipherAloneAndOneWrite(run, false);
}
void CipherAndSyncedWrite(benchmark::State &run) {
    CipherAloneAndOneWrite(run, true);
}

// From plain to sealed; the stretching of the code, a quarter of a second for any number of rows, is measured too.
void ChangeOfKey(benchmark::State &run) {
    for (auto _ : run) {
        run.PauseTiming();
        {
            const KeyedAccount rows(static_cast<int32_t>(run.range(0)), false);
            run.ResumeTiming();
            if (ChangeKey(u"1234", [](int) {}) != KeyChange::Done)
                abort();
            run.PauseTiming();
        }
        run.ResumeTiming();
    }
}

void StretchingACode(benchmark::State &run) {
    for (auto _ : run)
        ForgetKey(DeriveKey(u"1234", SealedSuite, Salt));
}

void OpenAccount(benchmark::State &run, bool sealed) {
    const KeyedAccount rows(static_cast<int32_t>(run.range(0)), sealed);
    for (auto _ : run) {
        BeginAction(); // as the event that asks for it
        benchmark::DoNotOptimize(LoadRows(RowsOf(BenchAccount, View::Live, Rows::Shown), 0));
        benchmark::DoNotOptimize(CommitAction());
    }
}
void OpenPlainAccount(benchmark::State &run) {
    OpenAccount(run, false);
}
void OpenSealedAccount(benchmark::State &run) {
    OpenAccount(run, true);
}

// With its totals, as the form's tick does it: dated behind all others, or in their middle.
void NewEntry(benchmark::State &run, bool sealed) {
    const auto count = static_cast<int32_t>(run.range(0));
    const KeyedAccount rows(count, sealed);
    TRec row;
    InitTRec(&row);
    row.Date = DateFromDayNumber(120000 + static_cast<uint32_t>(count) / (run.range(1) ? 6 : 3));
    for (auto _ : run) {
        BeginAction(); // as the event that brings it
        if (!EnterEntry(RowsOf(BenchAccount, View::Live, Rows::Shown), 0, &row))
            abort();
        benchmark::DoNotOptimize(CommitAction());
    }
}
void NewPlainEntry(benchmark::State &run) {
    NewEntry(run, false);
}
void NewSealedEntry(benchmark::State &run) {
    NewEntry(run, true);
}

// 100 MB in files as an owner has them: one large account among small ones.
struct HundredMegabytes : Device {
    HundredMegabytes() {
        for (int n = 0; n < 10; ++n)
            WriteWhole(DataFile(std::string("E1_02A") += std::to_string(n)),
                       std::vector<uint8_t>(n ? 4000 * sizeof(TRecFile) : 128000 * sizeof(TRecFile), 1), true);
        fs::create_directory(Path + "/Card");
    }
};

// With `sync` as a backup leaves it: on the disk for good.
void CopyByTheSystem(benchmark::State &run, bool sync) {
    const HundredMegabytes data;
    std::string copy = "cp -r '" + data.DataFile("") + "' '" + data.Path + "/copy'";
    if (sync)
        copy += " && sync '" + data.Path + "/copy/'* '" + data.Path + "/copy'";
    for (auto _ : run) {
        if (std::system(copy.c_str()) != 0)
            abort();
        run.PauseTiming();
        fs::remove_all(data.Path + "/copy");
        run.ResumeTiming();
    }
}
void CopyOnce(benchmark::State &run) {
    CopyByTheSystem(run, false);
}
void CopyAndSync(benchmark::State &run) {
    CopyByTheSystem(run, true);
}

void Backup(benchmark::State &run) {
    const HundredMegabytes data;
    for (auto _ : run) {
        if (MakeBackup("\\Card\\", [](int) {}) != CopyResult::Done)
            abort();
        run.PauseTiming();
        fs::remove_all(data.Path + "/Card/Zentk_Backup");
        run.ResumeTiming();
    }
}

BENCHMARK(CipherAndWrite)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CipherAndSyncedWrite)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ChangeOfKey)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(StretchingACode)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(OpenPlainAccount)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenSealedAccount)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(NewPlainEntry)->Args({10000, 0})->Args({10000, 1})->Unit(benchmark::kMicrosecond);
BENCHMARK(NewSealedEntry)->Args({10000, 0})->Args({10000, 1})->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyOnce)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CopyAndSync)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Backup)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
