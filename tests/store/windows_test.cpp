// The windows show what the files hold, and files that can't be trusted are shown to be so and left alone.
#include "store/configuration.h"
#include "store/index.h"
#include "store/store_test.h"
#include "store/windows.h"

namespace {

using Lists = Store;

constexpr struct {
    const char *Name, *Function, *NotMade;
    int (*Load)(int32_t);
    size_t Size;
} Loaders[] = {
    // clang-format off
    {"E1_01IND", "LoadAccFile", " AcreateFail", LoadAccFile,  728},
    {"E1_04DD",  "LoadDDFile",  " DcreateFail", LoadDDFile,   728},
    {"E1_05FAV", "LoadFavFile", " FcreateFail", LoadFavFile,  536},
    {"E1_06BIN", "LoadBinFile", " BcreateFail", LoadBinFile, 1064},
    {"E1_07CAT", "LoadCatFile", " FcreateFail", LoadCatFile,  520},
    {"E1_08CUR", "LoadCatFile", " FcreateFail", LoadCurFile,  584},
    // clang-format on
};

void AddAccount(const char16_t *name, uint32_t id, FixedAmount balance, uint8_t kind = 0) {
    ARec row;
    InitARec(&row);
    CopyText(row.Name, 32, name);
    row.ID = id;
    row.Balance = balance;
    row.ArcClearedBalance = balance * 10;
    row.RowKind = kind;
    state.CurrentScreen = AccountList;
    ASSERT_EQ(AddRecFile(0, 1 << 20, &row, 1), 1);
}

ConfRec Configuration() {
    ConfRec record;
    ReadConfiguration(&record, In{});
    return record;
}

void AddTemplates(int count) {
    state.CurrentScreen = TemplateList;
    FRec row;
    InitFRec(&row);
    for (int i = 1; i <= count; ++i) {
        row.Units = i;
        ASSERT_EQ(AddRecFile(0, i, &row, 1), 1);
    }
}

} // namespace

TEST_F(Lists, AWindowStandsWhereItIsAskedFor) {
    AddTemplates(30);
    static const struct {
        int32_t Rows, Asked, Top, First, Last; // first and last row's number, 0 for an empty one
    } cases[] = {
        {12, 1, 1, 1, 12},  {12, 25, 25, 25, 0},  {12, 0, 19, 19, 30},     {12, -2, 21, 21, 0},
        {7, 0, 24, 24, 30}, {12, 100, 100, 0, 0}, {12, -1000, 1019, 0, 0},
    };
    for (const auto &c : cases) {
        state.RowCount = c.Rows;
        EXPECT_EQ(LoadFavFile(c.Asked), 1);
        EXPECT_EQ(state.TopPos[TemplateList], c.Top);
        EXPECT_EQ(state.FavRows[1].Units, c.First);
        EXPECT_EQ(state.FavRows[c.Rows].Units, c.Last);
        EXPECT_EQ(state.EntryCount[TemplateList], 30);
    }
    state.RowCount = 12;
    EXPECT_EQ(TopFor(0, 3), 1);
    EXPECT_EQ(LoadDDFile(-5), 1);
    EXPECT_EQ(state.TopPos[RecurringList], 1);
    EXPECT_EQ(state.DDRows[1].NextDate.DayNumber, 0u) << "an empty row shows nothing";
    EXPECT_EQ(LoadAccFile(1), 0);
    EXPECT_EQ(state.AccRows[1].ID, 0u);
    EXPECT_EQ(state.SelectedPos[AccountList], 1);

    static const struct {
        int Screen, Rows, MessageOn, Selection, Count, Top;
    } middles[] = {
        {1, 12, 0, 5, 100, 1},   {1, 12, 0, 50, 100, 44},  {1, 12, 0, 100, 100, 91},
        {1, 12, 0, 3, 3, 1},     {3, 12, 0, 100, 100, 89}, {3, 7, 1, 50, 100, 47},
        {3, 7, 1, 100, 100, 95}, {2, 7, 1, 100, 100, 96},  {1, 12, 0, 0, 0, 1},
    };
    for (const auto &m : middles) {
        state.CurrentScreen = m.Screen;
        state.RowCount = m.Rows;
        state.MessageWindowOn = static_cast<uint32_t>(m.MessageOn);
        EXPECT_EQ(SetRecPosition(m.Selection, m.Count), m.Top) << m.Selection << " of " << m.Count;
    }
}

TEST_F(Lists, DataOfAnotherVersionIsRefusedAndNothingIsWritten) {
    for (const auto &c : Loaders) {
        ResetHost();
        ResetState();
        // Headings to be summed, and a bin to be trimmed.
        std::vector<uint8_t> bytes(c.Size * (c.Load == LoadBinFile ? 5300 : 3), 1);
        bytes[0] = 2;
        WriteBytes(Root.DataFile(c.Name), bytes);
        EXPECT_EQ(LoadConfFile(), 1);
        const auto before = Snapshot(Root.Path());
        AsAction([&] { // what a refused action reads decides nothing
            RefuseAction();
            c.Load(1);
        });
        EXPECT_EQ(state.DataUsable, 1u);
        AsAction([&] { EXPECT_EQ(c.Load(1), 0); });
        EXPECT_EQ(state.DataUsable, 0u);
        EXPECT_TRUE(Told(c.Function + std::string(" WrongVersion")));
        StoreConfFile();
        EXPECT_EQ(StampLastChecked(), 0);
        EXPECT_EQ(GetNextID(), 0u);
        LoadBinFile(1), LoadCatFile(1), LoadAccFile(1);
        EXPECT_EQ(Snapshot(Root.Path()), before) << c.Name;
        EXPECT_EQ(remove(Root.DataFile(c.Name).c_str()), 0);
    }
}

TEST_F(Lists, AnUnwritableDirectoryIsAnEmptyOneAndIsReported) {
    disk.Switches.Unwritable = true;
    for (const auto &c : Loaders) {
        EXPECT_EQ(c.Load(1), c.Load == LoadAccFile ? 0 : 1) << c.Name;
        EXPECT_TRUE(Told(std::string(c.Function) + c.NotMade));
        EXPECT_EQ(state.EntryCount[state.CurrentScreen], 0);
    }
    state.CurrentScreen = TransactionList;
    const TRec row = {};
    EXPECT_EQ(AddRecFile(5, 1, &row, 1), 0);
    EXPECT_TRUE(Told("AddRecFile TcreateFail"));
    EXPECT_EQ(state.DataUsable, 1u);
}

TEST_F(Lists, ADamagedRecordFurtherDownIsShownAndTraced) {
    AddTemplates(3);
    std::vector<uint8_t> bytes = ReadBytes(Root.DataFile("E1_05FAV"));
    bytes[536] = 9;
    bytes[536 + 2] = 'Q';
    bytes.resize(bytes.size() - 1); // and the file cut in the middle of the last record
    WriteBytes(Root.DataFile("E1_05FAV"), bytes);
    EXPECT_EQ(LoadFavFile(1), 1);
    EXPECT_EQ(machine.Beeps, 1);
    EXPECT_EQ(ReadBytes(Root.HostPath("\\AAAtrace.txt")), (std::vector<uint8_t>{'<', 'Q', '>', '\n'}));
    EXPECT_EQ(state.FavRows[2].Units, 2);
    EXPECT_EQ(state.EntryCount[TemplateList], 2);
    EXPECT_EQ(state.FavRows[3].Units, 0);
}

TEST_F(Lists, AFullBinKeepsItsNewest) {
    const auto fill = [&](int count) {
        std::vector<uint8_t> bytes(static_cast<size_t>(count) * 1064);
        for (int i = 0; i < count; ++i) {
            uint8_t *row = bytes.data() + static_cast<size_t>(i) * 1064;
            row[0] = 1;
            std::memcpy(row + 104, &i, 4); // Units
        }
        WriteBytes(Root.DataFile("E1_06BIN"), bytes);
    };
    fill(5250);
    EXPECT_EQ(LoadBinFile(1), 1);
    EXPECT_EQ(state.EntryCount[BinList], 5250);
    fill(5251);
    const auto before = Snapshot(Root.Path());
    for (int n = 1, met = 1, done = 0; met; n += n < 4 ? 1 : 9) {
        fill(5251);
        met = WithFailingDisk({.FailAt = n}, [&] { done = AsAction([] { EXPECT_EQ(LoadBinFile(1), 1); }); });
        EXPECT_TRUE(met || done);
        EXPECT_TRUE(done || Snapshot(Root.Path()) == before) << "failing at " << n;
    }
    EXPECT_EQ(state.EntryCount[BinList], 5000);
    EXPECT_EQ(ReadBytes(Root.DataFile("E1_06BIN")).size(), 5000u * 1064);
    EXPECT_EQ(state.BinRows[1].Units, 251);
    LoadBinFile(5000);
    EXPECT_EQ(state.BinRows[1].Units, 5250);
}

TEST_F(Lists, ARowOutOfReachIsTheDefaultOne) {
    SetClock(2026, 11, 22);
    DDRec item;
    EXPECT_EQ(FetchDD(1, &item), 0);
    EXPECT_EQ(item.ItemStatus, 2u);
    EXPECT_EQ(item.NextDate.DayNumber, 155554u);
    TRec row;
    for (const int32_t position : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
        state.CurAccount.ID = position == 1 ? 0 : 3;
        EXPECT_EQ(FetchTran(position, &row), 0);
        EXPECT_EQ(row.Date.DayNumber, 155554u);
        EXPECT_TRUE(row.Units == 1 && row.ClearedUnits == 1 && row.Rank == 3);
    }
    CatRec category;
    EXPECT_EQ(FetchCat(1, &category), 0);
    EXPECT_TRUE(category.Red == 255 && category.Green == 0 && category.Blue == 255);
    category.CatID = 123456789012;
    state.CurrentScreen = CategoryList;
    AddRecFile(0, 1, &category, 1);
    category.CatID = 7;
    AddRecFile(0, 1, &category, 1);
    EXPECT_EQ(CatIDToPosition(123456789012), 2);
    EXPECT_EQ(CatIDToPosition(5), -1);
    EXPECT_EQ(CatIDToPosition(0), -1);
    EXPECT_EQ(CatPositionToID(2), 123456789012);
    EXPECT_EQ(CatPositionToID(3), 0);
}

TEST_F(Lists, AccountsAreFoundAndHeadingsSummed) {
    EXPECT_EQ(IDtoRec(5), 0);
    EXPECT_EQ(Utf8(AccountIdToName(5)), "*** ! ***");
    AddAccount(u"Total", 9, 0, HeadingRow); // nothing above it
    AddAccount(u"Cash", 5, 1000);
    AddAccount(u"Cash", 6, 200);
    AddAccount(u"Total", 10, 77, HeadingRow);
    AddAccount(u"Total", 7, 30);
    AddAccount(u"A name that fills what is there", 8, 4);
    EXPECT_EQ(AccountNameToId(u"Cash"), 5u);
    EXPECT_EQ(AccountNameToId(u"Total"), 7u);
    EXPECT_EQ(AccountNameToId(u"A name that fills what is there, and more"), 8u);
    EXPECT_EQ(AccountNameToId(u"cash"), 0u);
    EXPECT_EQ(IDtoRec(6), 3);
    EXPECT_EQ(IDtoRec(0), 0);
    EXPECT_EQ(RectoID(5), 7u);
    EXPECT_EQ(RectoID(0) + RectoID(7) + RectoID(-1), 0u);
    EXPECT_EQ(Utf8(AccountIdToName(6)), "Cash");
    ResetDisk();
    EXPECT_EQ(LoadAccFile(1), 1);
    EXPECT_EQ(state.AccRows[1].Balance, 0);
    EXPECT_EQ(state.AccRows[4].Balance, 1200);
    EXPECT_EQ(state.AccRows[4].ArcClearedBalance, 12000);
    EXPECT_EQ(state.AccRows[6].Balance, 4);
    EXPECT_EQ(disk.DataWrites, 1) << "only the heading that changed is written";
}

TEST_F(Lists, AnIDIsNeverGivenTwiceWhileItsFileStands) {
    EXPECT_EQ(LoadConfFile(), 1);
    EXPECT_EQ(GetNextID(), 1u);
    EXPECT_EQ(GetNextID(), 2u);
    for (const char *name : {"E1_02A3", "E1_02A4", "E1_02A6", "E1_02R5"})
        WriteBytes(Root.DataFile(name), {});
    EXPECT_EQ(GetNextID(), 5u);
    EXPECT_EQ(GetNextID(), 7u);
    EXPECT_EQ(remove(Root.DataFile("E1_03CON").c_str()), 0);
    EXPECT_EQ(GetNextID(), 2u); // from the bottom again
    EXPECT_EQ(GetNextID(), 5u);
    ConfRec record = Configuration();
    record.NextID = 0xFFFFFFFE; // below 0
    EXPECT_EQ(WriteConfiguration(&record, In{}), 1);
    EXPECT_EQ(GetNextID(), 1u);
    WithFailingDisk({.FailAt = 1}, [] { EXPECT_EQ(GetNextID(), 0u); });
    EXPECT_TRUE(Told("GetNextID CwriteFail"));
}

TEST_F(Lists, ColumnsStayWhereTheOwnerPutThem) {
    WriteBytes(Root.DataFile("E1_03CON"), std::vector<uint8_t>(100, 0x77));
    EXPECT_EQ(LoadConfFile(), 1); // too short: replaced by the defaults
    EXPECT_EQ(ReadBytes(Root.DataFile("E1_03CON")).size(), 888u);
    EXPECT_EQ(state.ColumnEdge[CategoryList][1], 44) << "one pixel is lost on the way through thousandths";
    const auto first = Snapshot(Root.Path());
    for (int start = 0; start < 3; ++start) {
        ResetState();
        EXPECT_EQ(LoadConfFile(), 1);
        StoreConfFile();
        EXPECT_EQ(Snapshot(Root.Path()), first) << "a divider nobody dragged has crept";
    }
    state.ColumnEdge[CategoryList][1] = 100;
    StoreConfFile();
    EXPECT_EQ(LoadConfFile(), 1);
    EXPECT_EQ(state.ColumnEdge[CategoryList][1], 99);

    static const struct {
        uint32_t Category, A, B, Account;
        int32_t CategoryEdge, AEdge, BEdge, AccountEdge;
    } cases[] = {
        {5, 150, 155, 625, 45, 95, 130, 150}, {950, 417, 500, 0, 45, 100, 120, 0},
        {42, 42, 84, 1000, 10, 10, 20, 226},  {0xFFFFFFFF, 0xFFFFFFFF, 0, 0xFFFFFFFF, 45, 95, 130, 226},
        {875, 875, 903, 4, 210, 95, 130, 0},
    };
    for (const auto &c : cases) {
        ConfRec record = Configuration();
        record.CategoryColumns[1] = c.Category;
        record.ConversionColumns[1] = c.A;
        record.ConversionColumns[2] = c.B;
        record.AccountColumns[1] = c.Account;
        record.ConfSpare = 7;
        record.CheckAheadDays = 2000000000;
        std::memset(record.Reserved68, 0x5A, sizeof record.Reserved68);
        EXPECT_EQ(WriteConfiguration(&record, In{}), 1);
        EXPECT_EQ(LoadConfFile(), 1);
        UpdateBmap();
        EXPECT_EQ(state.ColumnEdge[CategoryList][1], c.CategoryEdge);
        EXPECT_EQ(state.ColumnEdge[ConversionList][1], c.AEdge);
        EXPECT_EQ(state.ColumnEdge[ConversionList][2], c.BEdge);
        EXPECT_EQ(state.ColumnEdge[AccountList][1], c.AccountEdge);
        EXPECT_EQ(state.CheckAheadDays, 7);
        StoreConfFile();
        EXPECT_EQ(Configuration().ConfSpare, 2u);
        EXPECT_EQ(Configuration().Reserved68[71], 0x5A) << "reserved bytes are written as found";
    }
    SetClock(2026, 11, 22);
    EXPECT_EQ(StampLastChecked(), 1);
    EXPECT_EQ(Configuration().LastChecked.DayNumber, 155554u);
}

TEST_F(Lists, EveryColumnOfAnAccountCanBeRead) {
    static const struct {
        uint32_t Kind, Stored[3];
        int32_t Edges[3];
    } cases[] = {
        {BankAccount, {188, 563, 750}, {45, 135, 180}},  {ListAccount, {188, 563, 750}, {0, 135, 180}},
        {ShareValue, {0, 0, 0}, {30, 60, 90}},           {BankAccount, {1000, 1000, 1000}, {136, 166, 196}},
        {BankAccount, {500, 833, 900}, {120, 166, 196}}, {BankAccount, {0xFFFFFFFF, 0, 0xFFFFFFFF}, {136, 166, 196}},
    };
    for (const auto &c : cases) {
        ARec row;
        InitARec(&row);
        row.ID = 4;
        row.AccType = c.Kind;
        std::copy(c.Stored, c.Stored + 3, row.ColumnPos + 1);
        state.CurrentScreen = AccountList;
        AddRecFile(0, 1, &row, 1);
        state.SelectedPos[AccountList] = 1;
        EXPECT_EQ(LoadCurrentAccount(), 1);
        EXPECT_EQ(state.AccountKind, static_cast<int32_t>(c.Kind));
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(state.ColumnEdge[TransactionList][i + 1], c.Edges[i]) << &c - cases;
            EXPECT_EQ(DividerToStore(TransactionList, i + 1), c.Stored[i]);
        }
        EXPECT_EQ(state.ColumnEdge[TransactionList][4], 226);
    }
}
