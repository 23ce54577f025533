// Files of other years and other machines can be read: every field lies where it always lay, and what is no field
// is zero.
#include "store/configuration.h"
#include "store/side_files.h"
#include "store/store_test.h"
#include <sstream>

namespace {

// "offset:hex" pieces, typed by hand; every other byte is zero.
std::vector<uint8_t> Bytes(size_t size, const char *pieces) {
    std::vector<uint8_t> bytes(size);
    std::istringstream words(pieces);
    for (std::string piece; words >> piece;) {
        const size_t colon = piece.find(':');
        const size_t offset = std::stoul(piece.substr(0, colon));
        for (size_t i = colon + 1, at = offset; i < piece.size(); i += 2, ++at)
            bytes.at(at) = static_cast<uint8_t>(std::stoul(piece.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

template <typename Rec> Rec Soiled() {
    Rec rec;
    std::memset(static_cast<void *>(&rec), 0xEE, sizeof rec);
    return rec;
}

// A name whose room behind the terminator still holds 0xEE.
void Put(char16_t *field, const char16_t *text) {
    std::memcpy(field, text, (static_cast<size_t>(TextLength(text)) + 1) * 2);
}

RecDate Day(uint32_t year, int8_t month, int8_t day, uint32_t number) {
    return {year, month, day, {0xEE, 0xEE}, number};
}

template <typename Rec>
void ExpectStored(const TestRoot &root, const char *name, const Rec &rec, size_t size, const char *pieces) {
    ASSERT_EQ(AddRecFile(7, 1, &rec, 1), 1);
    const std::vector<uint8_t> stored = ReadBytes(root.DataFile(name)), expected = Bytes(size, pieces);
    ASSERT_EQ(stored.size(), expected.size()) << name;
    for (size_t i = 0; i < size; ++i)
        EXPECT_EQ(int{stored[i]}, int{expected[i]}) << name << " at " << i;
}

} // namespace

TEST_F(Store, EveryFieldLiesAtItsPlaceInTheFile) {
    auto a = Soiled<ARec>();
    a.Version = 1, a.RowKind = 1, a.ID = 0x01020304, a.AccType = 5, a.Flag = 3, a.Balance = -1,
    a.ClearedBalance = 0x1122, a.ArcBalance = 2, a.ArcClearedBalance = 3, a.LowWatch = 1, a.HighWatch = 2,
    a.MinLimit = -50, a.MaxLimit = 50000, a.ClearedInJeopardy = 4, a.BalanceInJeopardy = 5;
    Put(a.Name, u"Bé");
    for (uint32_t i = 0; i < 5; ++i)
        a.ColumnPos[i] = 0x100 + i;
    ExpectStored(Root, "E1_01IND", a, 728,
                 "0:01 1:01 2:4200E900 68:04030201 72:05 76:03 80:FFFFFFFFFFFFFFFF 88:2211 96:02 104:03 112:0001 "
                 "116:0101 120:0201 124:0301 128:0401 132:01 136:02 140:CEFFFFFF 144:50C3 148:04 152:05 "
                 "160:EEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEEE 240:EEEEEEEEEEEEEEEE");

    auto t = Soiled<TRec>();
    t.Version = 1, t.RowKind = 8, t.CatSlot = 9, t.Date = Day(2026, 3, 31, 0x00025E77), t.Rank = 3, t.Cleared = 1,
    t.Cash = 2, t.NoCash = 3, t.Flag = 2, t.Units = -12, t.ClearedUnits = 13, t.CashAmount = 14,
    t.ClearedCashAmount = 15, t.Value = -344980, t.ClearedValue = 16, t.TransferID = 17, t.RunUnits = 18,
    t.RunClearedUnits = 19, t.RunTotal = 20, t.RunCleared = 21, t.ParentRow = 22, t.CatID = 0x0102030405060708;
    Put(t.Name, u"Rent");
    Put(t.Memo, u"");
    std::fill(t.FITID, t.FITID + 32, u'X'); // no terminator: cut to what the field holds
    ExpectStored(
        Root, "E1_02A7", t, 608,
        "0:01 1:08 2:09 4:EA070000 8:03 9:1F 12:775E02 16:03 20:520065006E007400 84:01 88:02 92:03 96:02 "
        "164:F4FFFFFF 168:0D 176:0E 184:0F 192:6CBCFAFFFFFFFFFF 200:10 208:11 212:12 216:13 224:14 232:15 240:16 "
        "248:0807060504030201 "
        "264:5800580058005800580058005800580058005800580058005800580058005800"
        "580058005800580058005800580058005800580058005800580058005800");

    auto d = Soiled<DDRec>();
    d.Version = 1, d.RowKind = 2, d.CatSlot = 3, d.ItemStatus = 4, d.NextDate = Day(2026, 4, 1, 5), d.Rank = 6,
    d.DayWanted = 31, d.FirstDone = 1, d.PeriodCount = 7, d.TotalCount = ForEver, d.Remaining = 8, d.Spare512 = 9,
    d.Spare516[0] = 10, d.Spare516[1] = 11, d.Spare520 = 12;
    Put(d.Name, u"D");
    Put(d.PeriodUnit, u"Month(s)");
    for (uint8_t i = 0; i < 2; ++i) {
        DDBlock &b = d.Block[i];
        const auto n = static_cast<uint8_t>(0x20 + 0x10 * i);
        b.Cleared = n, b.Cash = n + 1u, b.NoCash = n + 2u, b.Flag = static_cast<uint8_t>(n + 3), b.Units = n + 4,
        b.Value = n + 5, b.Account = n + 6u, b.Transfer = n + 7u, b.CatID = n + 8;
        Put(b.Memo, i ? u"2" : u"1");
    }
    ExpectStored(Root, "E1_04DD", d, 728,
                 "0:01 1:02 2:03 4:04 8:EA07000004010000 16:05 20:06 24:1F 26:44 90:01 "
                 "96:20 100:21 104:22 108:23 112:24 120:25 128:26 132:27 136:31 208:28 "
                 "288:30 292:31 296:32 300:33 304:34 312:35 320:36 324:37 328:32 400:38 "
                 "480:4D006F006E0074006800280073002900 500:07 504:2FCB0400 508:08 512:09 516:0A0B 520:0C");

    auto f = Soiled<FRec>();
    f.Version = 1, f.RowKind = 0, f.Cleared = 1, f.Cash = 2, f.NoCash = 3, f.Flag = 4, f.Units = 5, f.Value = -29750,
    f.Transfer = 6, f.CatID = 7;
    Put(f.Name, u"G");
    Put(f.Memo, u"M");
    ExpectStored(Root, "E1_05FAV", f, 536,
                 "0:01 2:47 68:01 72:02 76:03 80:04 84:4D 148:05 152:CA8BFFFFFFFFFFFF 160:06 184:07");

    auto b = Soiled<BinRec>();
    b.Version = 1, b.RowKind = 2, b.CatSlot = 3, b.Date = Day(2026, 5, 2, 4), b.Rank = 5, b.FirstDone = 6,
    b.Cleared = 7, b.Cash = 8, b.NoCash = 9, b.Flag = 10, b.Units = 11, b.Value = 12, b.Account1 = 13, b.Transfer = 14,
    b.CatID = 15, b.Cleared2 = 16, b.Cash2 = 17, b.NoCash2 = 18, b.Flag2 = 19, b.Units2 = 20, b.Value2 = 21,
    b.Account2 = 22, b.Transfer2 = 23, b.CatID2 = 24, b.OwnerID = 25, b.OwnerType = 26, b.WasArchive = 27,
    b.SourceList = 28, b.RunUnits = 29, b.RunClearedUnits = 30, b.CashAmountLow = 31, b.ClearedCashAmountLow = 32,
    b.ClearedUnits = 33, b.ClearedValue = 34, b.RunTotal = 35, b.RunCleared = 36, b.ItemStatus = 37, b.DayWanted = 38,
    b.PeriodCount = 39, b.TotalCount = 40, b.Remaining = 41, b.Carries = 1, b.CashAmount = 0x4243,
    b.ClearedCashAmount = -2;
    for (int i = 0; i < 4; ++i)
        b.Totals[i] = 0x50 + i;
    for (uint8_t i = 0; i < 44; ++i)
        b.AccountLayout[i] = i;
    Put(b.Name, u"N");
    Put(b.Memo, u"m");
    Put(b.Memo2, u"n");
    Put(b.PeriodUnit, u"Day(s)");
    Put(b.FromName, u"F");
    Put(b.ToName, u"T");
    Put(b.FITID, u"I");
    ExpectStored(
        Root, "E1_06BIN", b, 1064,
        "0:01 1:02 2:03 4:EA07000005020000 12:04 16:05 20:4E 84:06 88:07 92:08 96:09 100:0A 104:0B 112:0C 120:0D "
        "124:0E "
        "128:6D 200:0F 280:10 284:11 288:12 292:13 296:14 304:15 312:16 316:17 320:6E 392:18 472:19 476:1A 480:1B "
        "488:50 496:51 504:52 512:53 520:1C 524:1D 528:1E 532:1F 536:20 540:21 544:22 552:23 560:24 568:25 572:26 "
        "574:440061007900280073002900 596:27 600:28 604:29 608:46 672:54 "
        "736:000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B "
        "780:01 784:4342 792:FEFFFFFFFFFFFFFF 800:49");

    auto c = Soiled<CatRec>();
    c.Version = 1, c.Red = 200, c.Green = 100, c.Blue = 255, c.CatID = 0x0A0B0C0D0E0F;
    Put(c.Name, u"C");
    Put(c.Description, u"d");
    ExpectStored(Root, "E1_07CAT", c, 520, "0:01 2:43 66:64 132:C8 136:64 140:FF 168:0F0E0D0C0B0A");

    auto r = Soiled<CurRec>();
    r.Version = 1, r.RowKind = 2, r.Rate = 113955, r.InverseRate = 8, r.DirectionState = 1, r.ColourFlag = 3;
    Put(r.FromName, u"kg");
    Put(r.ToName, u"lb");
    Put(r.Note, u"n");
    ExpectStored(Root, "E1_08CUR", r, 584, "0:01 1:02 2:6B0067 66:6C0062 130:6E 200:23BD01 208:08 216:01 220:03");
}

TEST_F(Store, SingleRecordsLieAsTheyAlwaysDid) {
    SetClock(2026, 11, 22);
    EXPECT_EQ(LoadConfFile(), 1);
    const std::vector<uint8_t> columns = Bytes(
        888, "0:01 4:01 8:01 12:07 16:14 20:02 44:03 464:7102 468:AD03 476:9E 480:F401 484:D902 488:AD03 "
             "512:9E 516:F401 520:D902 524:AD03 532:7102 536:AD03 544:9E 548:F401 552:D902 556:AD03 564:BB 568:AD03 "
             "576:8B01 580:1D02 584:AD03 596:9E 600:F401 604:D902 608:AD03 616:9E 620:F401 624:D902 628:AD03 "
             "636:9E 640:F401 644:D902 648:AD03 656:9E 660:F401 664:D902 668:AD03 672:EA0700000B16 680:A25F02");
    EXPECT_EQ(ReadBytes(Root.DataFile("E1_03CON")), columns);

    ConfRec check = {};
    check.Version = 1;
    CopyText(check.PassCheck, 17, PassCheckText);
    EXPECT_EQ(StoreRecord(CheckRecord, &check), 1);
    EXPECT_EQ(ReadBytes(Root.DataFile("E1_09SST")),
              Bytes(888, "0:01 140:2E0076002E00510020002E0035002E002D003B002E007D003E006B007E005B00"));
    ConfRec back = {};
    EXPECT_EQ(FetchRecord(CheckRecord, &back), 1);
    EXPECT_EQ(SameText(back.PassCheck, PassCheckText), 1);

    char16_t note[1000];
    EXPECT_EQ(LoadNote(note), 0);
    const std::u16string tooLong(1001, u'n');
    EXPECT_EQ(SaveNote(tooLong.c_str()), 1);
    EXPECT_EQ(LoadNote(note), 1);
    EXPECT_EQ(std::u16string(note), std::u16string(999, u'n'));
    EXPECT_EQ(SaveNote(u"short"), 1);
    EXPECT_EQ(ReadBytes(Root.DataFile("E1_00NOT")), Bytes(2400, "0:730068006F0072007400"));
}
