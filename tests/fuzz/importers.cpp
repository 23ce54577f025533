// Any bytes as a statement: the importers answer, account for every entry, and leave accounts that can be shown and
// exported again.
#include "exchange/export.h"
#include "exchange/import.h"
#include "exchange/qif_import.h"
#include "frame/shown.h"
#include "host/device.h"
#include "host/fuzz.h"

using namespace testhost;

namespace {

std::vector<uint8_t> BytesOf(const std::string &text) {
    return {text.begin(), text.end()};
}

// Files that hold something of everything, and the marks that decide how they are read.
const std::string Good[] = {
    "!Type:Bank\nD1/3'2026\nT-1,234.50\nCX\nPShop\nMnote\nQ1\n^\n!Type:Cat\nNa\n^\n!Type:Bank\nD2026-03-02\nT12,50\n"
    "Sa\n$5\n^\n",
    "!Type:Invst\nD1/3'2026\nNBuy\nI2.5\nQ10\nYIBM\nPmemo\nMname\n^\nD2 Mar 2026\nNMiscExp\nT7\nYIBM\n^\n",
    "<?xml?><!-- a --><OFX><STMTTRN><DTPOSTED>20260301<TRNAMT>-1.234,50<FITID>123<NAME>a &amp; b<MEMO><![CDATA[c]]>"
    "</STMTTRN><STMTTRN>\n<DTPOSTED>\n20260301\n<TRNAMT>5</TRNAMT><PAYEE><NAME>x</NAME></PAYEE></STMTTRN>"
    "<BALAMT>7.00</BALAMT></OFX>",
    "1/3/2026,\"a, b\",ref,2,-0.500,-1.000,T,n,9\n1/3/2026,,,1,5,5,F,a,9\n2/3/2026;a;b;1;5,5;5,5;F;t;0\n",
    "1/3/2026,a,b,10,2.5,25,F,N,9\n1/3/2026,a,b,0,7,7,T,C,9\n1/3/2026,a,b,3,7,100,T,A,9\n1/3/2026,a,b,4,1,4,F,F,9\n",
};

class Importers : public Device {
protected:
    void Import(Dice &dice) {
        const uint32_t firstDay = dice.Below(3) ? 0 : static_cast<uint32_t>(dice.Below(1 << 18));
        const Place place = EntriesShown();
        SecurityList securities;
        const int results[] = {
            ImportQIFFile(place, "\\a.bin", firstDay, dice.Below(2) ? u"IBM" : u"", nullptr),
            ImportOFXFile(place, "\\a.bin", firstDay, nullptr),
            ImportCSVFile(place, "\\a.bin", firstDay, nullptr),
            ListSecurities("\\a.bin", &securities),
        };
        for (const int result : results)
            EXPECT_TRUE(result == ImportFailed || result == ImportDone || (result >= 10 && result <= 13)) << result;
        int32_t told = 0;
        for (int i = 0; i < 5; ++i) {
            EXPECT_GE(state.ImportCount[i], 0);
            told += state.ImportCount[i];
        }
        if (results[2] == ImportDone) {
            EXPECT_EQ(told, state.ImportCount[5]);
        }
    }
};

TEST_F(Importers, AnyBytesAreAnsweredAndAccountedFor) {
    uint32_t id = 0;
    for (const uint64_t seed : FuzzSeeds(400)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        if (seed % 50 == 1)
            id = MakeAccount("Purse", static_cast<int>(dice.Below(3)));
        if (dice.Below(4) == 0)
            WriteBytes(root.DataFile("E1_02A" + std::to_string(id)), {});
        const std::string &good = Good[dice.Below(std::size(Good))];
        WriteBytes(root.HostPath("\\a.bin"),
                   dice.Below(8) == 0 ? FuzzBytes(seed, 4000) : DamagedBytes(seed, BytesOf(good)));
        Import(dice);
        machine.Terminal.clear();
        EXPECT_EQ(disk.OpenHandles, 0);
    }
    for (const auto exporter : {ExportQIFFile, ExportCSVFile, ExportTXTFile})
        EXPECT_EQ(exporter(EntriesShown(), "\\out.bin", 0, ExportAll, nullptr), 1);
    for (int n = 1; n <= state.RowCount; ++n)
        EXPECT_LE(TextsIn(ListWindow, Row(n)).size(), 6u);
}

} // namespace
