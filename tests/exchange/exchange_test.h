// What the tests of exchange share: a file of given bytes in the device's root, and what a reader makes of it.
#pragma once

#include "exchange/csv_import.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "exchange/ofx_import.h"
#include "exchange/qif_import.h"
#include "frame/shown.h"
#include "host/device.h"
#include "platform/text.h"
#include <memory>

using namespace testhost;

inline constexpr uint32_t Today = 155289; // 2 March 2026

inline void PutFile(const TestRoot &root, const std::string &name, const std::string &bytes) {
    WriteBytes(root.HostPath("\\" + name), {bytes.begin(), bytes.end()});
}

inline void PutRecords(const TestRoot &root, const std::string &name, const std::vector<TRecFile> &records) {
    const auto *bytes = reinterpret_cast<const uint8_t *>(records.data());
    WriteBytes(root.DataFile(name), {bytes, bytes + records.size() * sizeof(TRecFile)});
}
// These fields of each row, with '|' between the rows.
inline std::string Told(const std::vector<TRec> &rows, const std::string &fields) {
    std::string all;
    for (const TRec &row : rows)
        all += (all.empty() ? "" : " | ") + Fields(row, fields);
    return all;
}

// An import or export into or out of the rows shown, as the one action that it is, and what the screens show after it.
// What it came to; -1 when the action was refused.
template <typename Exchanging, typename... Arguments> int Exchanged(Exchanging exchanging, Arguments... arguments) {
    int result = -1;
    const int durable = AsAction([&] { result = exchanging(EntriesShown(), arguments...); });
    RefreshAccounts();
    return durable ? result : -1;
}

inline std::string TextOf(const std::string &hostPath) {
    const std::vector<uint8_t> bytes = ReadBytes(hostPath);
    return {bytes.begin(), bytes.end()};
}
inline std::string Sample(const std::string &name) {
    return TextOf(std::string(PROJECT_DIRECTORY) + "/tests/exchange/samples/" + name);
}

// "well/badly/as requested/unreadable of total", then each entry as "date name memo units value", with '|' between.
class Readers : public testing::Test {
protected:
    TestRoot root;
    ImportTask Task = {
        .FirstDay = 0, .Security = u"", .AccountKind = BankAccount, .AccountEmpty = 1, .DayFirst = 1, .Tell = nullptr};
    std::unique_ptr<ImportBatch> Batch = std::make_unique<ImportBatch>();

    template <typename Reading> void ReadBy(Reading reading, const std::string &bytes) {
        PutFile(root, "file", bytes);
        const auto text = std::make_unique<TextFile>();
        ASSERT_EQ(OpenText(text.get(), "\\file"), 1);
        reading(text.get(), Task, Batch.get());
        CloseText(text.get());
    }
    std::string Counts() const {
        const int32_t *counts = Batch->Outcomes;
        return std::to_string(counts[0]) + "/" + std::to_string(counts[1]) + "/" + std::to_string(counts[2]) + "/" +
               std::to_string(counts[3]) + " of " + std::to_string(Batch->Total);
    }
    std::string Entries(const std::string &fields = "Date Name Memo Units Value") const {
        std::string all;
        for (int32_t i = 0; i < Batch->Count; ++i)
            all += (i ? " | " : "") + Fields(Batch->Entries[i].Row, fields);
        return all;
    }
    std::string Qif(const std::string &bytes) {
        ReadBy(ReadQif, bytes);
        return Counts() + ": " + Entries();
    }
    std::string Ofx(const std::string &bytes) {
        ReadBy(ReadOfx, bytes);
        return Counts() + ": " + Entries();
    }
    std::string Csv(const std::string &bytes) {
        ReadBy(ReadCsv, bytes);
        return Counts() + ": " + Entries();
    }
};
