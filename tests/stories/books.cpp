#include "books.h"
#include <sstream>

namespace stories {

using testhost::Utf8;

namespace {

template <typename... Parts> std::string Joined(const Parts &...parts) {
    std::ostringstream line;
    ((line << parts << '|'), ...);
    return line.str();
}

template <typename Record> std::vector<Record> RecordsOf(const Files &files, const std::string &path) {
    const auto found = files.find(path);
    if (found == files.end())
        return {};
    std::vector<Record> records(found->second.size() / sizeof(InFile<Record>));
    for (size_t n = 0; n < records.size(); ++n)
        std::memcpy(&records[n], found->second.data() + n * sizeof(InFile<Record>), sizeof(Record));
    return records;
}

std::string BlockLine(const DDBlock &block) {
    return Joined(block.Account, block.Transfer, block.Value, block.Units, block.Cash, block.NoCash, block.Cleared,
                  int{block.Flag}, block.CatID, Utf8(block.Memo));
}

} // namespace

void Sums::Add(const TRec &row, bool share) {
    if (row.RowKind == DayMarker || (row.RowKind == ReconcileEntry && !share))
        return;
    if (row.RowKind == ArchiveMarker || row.RowKind == DeletedMarker) { // they carry both parts
        Total += share ? row.CashAmount : row.Value;
        Cleared += share ? row.ClearedCashAmount : row.ClearedValue;
        if (share) {
            Shares += row.Units;
            ClearedShares += row.ClearedUnits;
            Price = row.Value;
            ClearedPrice = row.ClearedValue;
        }
        return;
    }
    const int64_t money = row.Cash     ? (share ? row.CashAmount : row.Value)
                          : !share     ? row.Units * row.Value
                          : row.NoCash ? 0
                                       : -row.Units * row.Value;
    Total += money;
    Cleared += row.Cleared ? money : 0;
    if (!share || row.Cash)
        return;
    Price = row.Value;
    Shares += row.Units;
    if (row.Cleared) {
        ClearedPrice = Price;
        ClearedShares += row.Units;
    }
}

const ARec *Books::Account(uint32_t id) const {
    for (const ARec &account : Accounts)
        if (account.ID == id && account.RowKind != HeadingRow)
            return &account;
    return nullptr;
}

void Books::Note(const std::string &fact, int times) {
    if ((Facts[fact] += times) == 0)
        Facts.erase(fact);
}

void Books::Put(uint32_t account, const TRec &row) {
    if (row.RowKind == EntryRow)
        Note(EntryLine(account, row, Share[account]));
    if (row.RowKind == EntryRow || row.RowKind == DeletedMarker)
        Money[account].Add(row, Share[account]);
}

void Books::Take(uint32_t account, const TRec &row) {
    Sums less;
    if (row.RowKind == EntryRow)
        Note(EntryLine(account, row, Share[account]), -1);
    if (row.RowKind != EntryRow && row.RowKind != DeletedMarker)
        return;
    less.Add(row, Share[account]);
    Sums &money = Money[account];
    money.Total -= less.Total;
    money.Cleared -= less.Cleared;
    money.Shares -= less.Shares;
    money.ClearedShares -= less.ClearedShares;
}

void Books::Discard(uint32_t account, const TRec &row) {
    Take(account, row);
    if (row.RowKind == EntryRow)
        Note("bin " + EntryLine(account, row, Share[account]));
}

std::string EntryLine(uint32_t account, const TRec &row, bool share) {
    const int64_t value = row.Cash && share ? row.CashAmount : row.Value;
    return Joined("entry " + std::to_string(account), Utf8(row.Name), Utf8(row.Memo), row.Date.DayNumber, value,
                  row.Units, row.Cash, row.NoCash, row.Cleared, int{row.Flag}, row.CatID, row.TransferID,
                  Utf8(row.FITID));
}

TRec RowOf(const BinRec &bin) {
    TRec row{};
    row.RowKind = bin.RowKind;
    row.CatSlot = bin.CatSlot;
    row.Date = bin.Date;
    std::memcpy(row.Name, bin.Name, sizeof row.Name);
    std::memcpy(row.Memo, bin.Memo, sizeof row.Memo);
    std::memcpy(row.FITID, bin.FITID, sizeof row.FITID);
    row.Cleared = bin.Cleared;
    row.Cash = bin.Cash;
    row.NoCash = bin.NoCash;
    row.Flag = bin.Flag;
    row.Units = bin.Units;
    row.ClearedUnits = bin.ClearedUnits;
    row.Value = bin.Value;
    row.ClearedValue = bin.ClearedValue;
    row.CashAmount = bin.CashAmount;
    row.ClearedCashAmount = bin.ClearedCashAmount;
    row.TransferID = bin.Transfer;
    row.CatID = bin.CatID;
    return row;
}

std::string LineOf(const ARec &account) {
    return Joined("account", account.ID, int{account.RowKind}, Utf8(account.Name),
                  IsShare(account.AccType) ? +ShareValue : account.AccType, account.Flag, account.LowWatch,
                  account.HighWatch, account.MinLimit, account.MaxLimit);
}
std::string LineOf(const DDRec &item) {
    return Joined("item", Utf8(item.Name), item.NextDate.DayNumber, int{item.DayWanted}, Utf8(item.PeriodUnit),
                  item.PeriodCount, item.TotalCount, item.Remaining, int{item.FirstDone}, BlockLine(item.Block[0]),
                  BlockLine(item.Block[1]));
}
std::string LineOf(const FRec &row) {
    return Joined("template", Utf8(row.Name), Utf8(row.Memo), row.Value, row.Units, row.Cash, row.NoCash, row.Cleared,
                  row.Flag, row.CatID, row.Transfer);
}
std::string LineOf(const CatRec &row) {
    return Joined("category", Utf8(row.Name), Utf8(row.Description));
}

std::string BinnedLine(int list, const std::string &name) {
    return Joined("bin", list, name);
}

Books BooksOf(const Files &files) {
    const std::string data = "Program Files/Zentrik/E1_Data/";
    Books books;
    books.Accounts = RecordsOf<ARec>(files, data + "E1_01IND");
    books.Items = RecordsOf<DDRec>(files, data + "E1_04DD");
    books.Templates = RecordsOf<FRec>(files, data + "E1_05FAV");
    books.Bin = RecordsOf<BinRec>(files, data + "E1_06BIN");
    books.Categories = RecordsOf<CatRec>(files, data + "E1_07CAT");
    for (const ConfRec &settings : RecordsOf<ConfRec>(files, data + "E1_03CON"))
        books.Settings = settings;
    const auto note = [&](const auto &records) {
        for (const auto &record : records)
            books.Note(LineOf(record));
    };
    note(books.Accounts);
    note(books.Items);
    note(books.Templates);
    note(books.Categories);
    for (const BinRec &row : books.Bin) {
        if (row.SourceList != TransactionList)
            books.Note(BinnedLine(static_cast<int>(row.SourceList), Utf8(row.Name)));
        else if (row.RowKind == EntryRow)
            books.Note("bin " + EntryLine(row.OwnerID, RowOf(row), IsShare(row.OwnerType)));
        if (row.SourceList == AccountList)
            books.Share[row.OwnerID] = IsShare(row.OwnerType);
    }
    for (const ARec &account : books.Accounts)
        if (account.RowKind != HeadingRow)
            books.Share[account.ID] = IsShare(account.AccType);
    constexpr const char *tags[] = {"A", "R", "AF", "RF"};
    for (const auto &[id, share] : books.Share) {
        for (size_t file = 0; file < 4; ++file)
            books.Rows[id][file] = RecordsOf<TRec>(files, data + "E1_02" + tags[file] + std::to_string(id));
        books.Money[id];
        for (const size_t file : {LiveFile, ArchiveFile})
            for (const TRec &row : books.Rows[id][file])
                books.Put(id, row);
    }
    return books;
}

std::string Shown(int64_t amount) {
    const uint64_t magnitude = amount < 0 ? -static_cast<uint64_t>(amount) : static_cast<uint64_t>(amount);
    if (magnitude / 1000 > 100000000)
        return "*** ! ***";
    char text[40];
    snprintf(text, sizeof text, "%llu.%02d", static_cast<unsigned long long>(magnitude / 1000),
             static_cast<int>(magnitude % 1000 / 10));
    return text;
}

Sums SumsAt(const std::vector<TRec> &rows, bool share, size_t count) {
    Sums sums;
    for (size_t n = 0; n < count; ++n)
        sums.Add(rows[n], share);
    return sums;
}

// Every row's stored totals; "" when they are the plain sums.
static std::string WrongRow(const std::vector<TRec> &rows, bool share, bool ordered) {
    Sums sums;
    uint32_t day = 0;
    for (size_t n = 0; n < rows.size(); ++n) {
        const TRec &row = rows[n];
        sums.Add(row, share);
        const std::string where = Joined("row", n + 1, Utf8(row.Name));
        if (row.Version != 1)
            return where + " is no row";
        if (row.RunTotal != sums.Total || row.RunCleared != sums.Cleared)
            return where + Joined(" totals", row.RunTotal, sums.Total, row.RunCleared, sums.Cleared);
        if (share && (row.RunUnits != sums.Shares || row.RunClearedUnits != sums.ClearedShares))
            return where + Joined(" shares", row.RunUnits, sums.Shares, row.RunClearedUnits, sums.ClearedShares);
        if (share && (row.Value != sums.Price || row.ClearedValue != sums.ClearedPrice))
            return where + Joined(" prices", row.Value, sums.Price, row.ClearedValue, sums.ClearedPrice);
        if (ordered && row.RowKind != ArchiveMarker && row.Date.DayNumber < day)
            return where + " is out of order";
        if (row.RowKind != ArchiveMarker) // it heads the file, whatever was entered with an earlier date
            day = row.Date.DayNumber;
    }
    return "";
}

// Whether two stored balances are those as of a day: of the rows before the first later one, or of those up to the last
// one that is not later; where no row is due, of nothing or of the live file's first row. In date order the former are
// one and the same.
static bool AsOf(uint32_t today, const std::vector<TRec> &rows, bool share, bool live, int64_t balance,
                 int64_t cleared) {
    size_t due = 0, last = rows.size();
    while (due < rows.size() && rows[due].Date.DayNumber <= today)
        ++due;
    while (last > 0 && rows[last - 1].Date.DayNumber > today)
        --last;
    if (last == 0 && live && !rows.empty())
        last = 1;
    for (const size_t count : {due, last}) {
        const Sums sums = SumsAt(rows, share, count);
        if (balance == sums.Balance(share, false) && cleared == sums.Balance(share, true))
            return true;
    }
    return false;
}

// The Archive marker stands for the whole archive.
static std::string WrongMarker(const std::vector<TRec> &live, const std::vector<TRec> &archive, bool share) {
    int markers = 0;
    const Sums sums = SumsAt(archive, share, archive.size());
    for (const TRec &row : live) {
        if (row.RowKind != ArchiveMarker)
            continue;
        ++markers;
        Sums carried;
        carried.Add(row, share);
        if (carried.Total != sums.Total || carried.Cleared != sums.Cleared || carried.Shares != sums.Shares ||
            carried.ClearedShares != sums.ClearedShares)
            return Joined("the Archive marker", carried.Total, sums.Total, carried.Cleared, sums.Cleared);
    }
    return markers > 1 ? "two Archive markers" : "";
}

// A limit that is broken from today on is told; one told is broken somewhere.
static std::string WrongWatch(const ARec &account, const std::vector<TRec> &rows, bool share, uint32_t today) {
    for (const bool cleared : {false, true}) {
        bool broken = false, ever = false;
        uint32_t breach = 0;
        Sums sums;
        for (const TRec &row : rows) {
            sums.Add(row, share);
            const int64_t cash = (cleared ? sums.Cleared : sums.Total) / 1000;
            const int64_t shares =
                share ? (cleared ? sums.ClearedShares * sums.ClearedPrice : sums.Shares * sums.Price) / 1000 : 0;
            const int64_t whole = cash + shares;
            if ((account.LowWatch && whole < account.MinLimit) || (account.HighWatch && whole > account.MaxLimit)) {
                broken = ever = true;
                breach = row.Date.DayNumber;
            } else if (row.Date.DayNumber > breach && row.Date.DayNumber <= today) {
                broken = false;
            }
        }
        const bool told = (cleared ? account.ClearedInJeopardy : account.BalanceInJeopardy) != 0;
        if ((broken && !told) || (told && !ever))
            return Joined("jeopardy", cleared, broken, told);
    }
    return "";
}

std::string Mistake(const Books &books, uint32_t today) {
    std::map<uint32_t, int> ids;
    for (const ARec &account : books.Accounts) {
        const std::string where = Joined("account", account.ID, Utf8(account.Name));
        if (account.Version != 1 || ++ids[account.ID] > 1)
            return where + " is no account of its own";
        if (account.RowKind == HeadingRow)
            continue;
        const bool share = IsShare(account.AccType);
        const auto &files = books.Rows.at(account.ID);
        for (size_t file = 0; file < 4; ++file)
            if (const std::string wrong = WrongRow(files[file], share, account.AccType != ListAccount); !wrong.empty())
                return where + Joined(" file", file) + wrong;
        if (!AsOf(today, files[LiveFile], share, true, account.Balance, account.ClearedBalance))
            return where + Joined(" as of today", account.Balance, account.ClearedBalance);
        if (!AsOf(today, files[ArchiveFile], share, false, account.ArcBalance, account.ArcClearedBalance))
            return where + Joined(" archive as of today", account.ArcBalance, account.ArcClearedBalance);
        if (const std::string wrong = WrongMarker(files[LiveFile], files[ArchiveFile], share); !wrong.empty())
            return where + wrong;
        if (const std::string wrong = WrongWatch(account, files[LiveFile], share, today); !wrong.empty())
            return where + wrong;
    }
    return "";
}

} // namespace stories
