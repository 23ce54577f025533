// What the pass code and a backup cost, each beside what it is measured against.
#include "../records/rows.h"
#include "care/backup.h"
#include "care/change_key.h"
#include "cipher/hooks.h"
#include "cipher/keys.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "platform/action.h"
#include "platform/cipher.h"
#include "platform/text.h"
#include "store/configuration.h"
#include "store/operations.h"
#include <cstdlib>
#include <filesystem>

namespace {

constexpr uint8_t Salt[SaltBytes] = {1, 2, 3};

// An account of rows that is also in the account list, plain or under a sealed key.
struct KeyedAccount : RowsOnDisk {
    KeyedAccount(int32_t count, bool sealed) : RowsOnDisk(count) {
        ConfRec configuration;
        SetConfDefaults(&configuration);
        static_cast<void>(WriteConfiguration(&configuration, In{}));
        if (sealed)
            static_cast<void>(ChangeKey(u"1234", [](int) {}));
        ARec account;
        InitARec(&account);
        account.ID = BenchAccount;
        state.CurrentScreen = AccountList;
        AddRecFile(0, 1, &account, 0);
        LoadAccFile(1);
        state.CurrentScreen = TransactionList;
    }
    ~KeyedAccount() { ForgetCurrentKey(); }
};

// Writes the bytes of a file of rows once.
void WriteOnce(int32_t count, const std::string &path, const std::vector<uint8_t> &bytes) {
    testhost::WriteBytes(path, bytes);
    benchmark::DoNotOptimize(count);
}

void CipherAloneAndOneWrite(benchmark::State &run) {
    const auto count = static_cast<int32_t>(run.range(0));
    const RowsOnDisk rows(count);
    const std::string path = rows.Root.DataFile("E1_02A5");
    std::vector<uint8_t> bytes = testhost::ReadBytes(path);
    const int32_t key = DeriveKey(u"1234", SealedSuite, Salt);
    for (auto _ : run) {
        for (size_t at = 0; at < bytes.size(); at += sizeof(TRecFile))
            EncipherUnder(key, FileKind::Transactions, &bytes[at]);
        WriteOnce(count, path, bytes);
    }
    ForgetKey(key);
}

// From plain to sealed; the stretching of the code, a quarter of a second for any number of rows, is measured too.
void ChangeOfKey(benchmark::State &run) {
    for (auto _ : run) {
        run.PauseTiming();
        {
            const KeyedAccount rows(static_cast<int32_t>(run.range(0)), false);
            run.ResumeTiming();
            static_cast<void>(ChangeKey(u"1234", [](int) {}));
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
        state.TranFileShown = 0;
        LoadTranFile(1, 0);
    }
}
void OpenPlainAccount(benchmark::State &run) {
    OpenAccount(run, false);
}
void OpenSealedAccount(benchmark::State &run) {
    OpenAccount(run, true);
}

// With its totals, as the form's tick does it.
void NewEntry(benchmark::State &run, bool sealed) {
    const auto count = static_cast<int32_t>(run.range(0));
    const KeyedAccount rows(count, sealed);
    TRec row;
    InitTRec(&row);
    row.Date = DateFromDayNumber(120000 + static_cast<uint32_t>(count) / 6);
    for (auto _ : run) {
        BeginAction(); // as the event that brings it
        AddRecFile(BenchAccount, count / 2, &row, 0);
        CalcBalance(BenchAccount);
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
struct HundredMegabytes {
    testhost::TestRoot Root;
    HundredMegabytes() {
        Root.MakeDataDirectory();
        for (int n = 0; n < 10; ++n)
            testhost::WriteBytes(Root.DataFile("E1_02A" + std::to_string(n)),
                                 std::vector<uint8_t>(n ? 4000 * sizeof(TRecFile) : 128000 * sizeof(TRecFile), 1));
        std::filesystem::create_directory(Root.Path() + "/Card");
    }
};

void CopyByTheSystem(benchmark::State &run) {
    const HundredMegabytes data;
    const std::string copy = "cp -r '" + data.Root.DataFile("") + "' '" + data.Root.Path() + "/copy'";
    for (auto _ : run) {
        benchmark::DoNotOptimize(std::system(copy.c_str()));
        run.PauseTiming();
        std::filesystem::remove_all(data.Root.Path() + "/copy");
        run.ResumeTiming();
    }
}

void Backup(benchmark::State &run) {
    const HundredMegabytes data;
    for (auto _ : run) {
        benchmark::DoNotOptimize(MakeBackup("\\Card\\", [](int) {}));
        run.PauseTiming();
        std::filesystem::remove_all(data.Root.Path() + "/Card/Zentk_Backup");
        run.ResumeTiming();
    }
}

BENCHMARK(CipherAloneAndOneWrite)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ChangeOfKey)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(StretchingACode)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(OpenPlainAccount)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenSealedAccount)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(NewPlainEntry)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(NewSealedEntry)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyByTheSystem)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Backup)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
