// An owner's data as an accountant would write them down: every entry and every other record as a line of text, and
// what the accounts come to by plain sums. Read from the bytes of the files; nothing here asks the program.
#pragma once

#include "host/rows.h"
#include <array>

namespace stories {

using Files = std::map<std::string, std::vector<uint8_t>>; // of testhost::Snapshot

// What rows come to, one after the other. A share account's Total is its cash.
struct Sums {
    int64_t Total = 0, Cleared = 0;
    int32_t Shares = 0, ClearedShares = 0;
    int64_t Price = 0, ClearedPrice = 0; // last seen, no sums

    void Add(const TRec &row, bool share);
    int64_t Balance(bool share, bool cleared) const {
        return cleared ? Cleared + (share ? ClearedShares * ClearedPrice : 0) : Total + (share ? Shares * Price : 0);
    }
};

enum : size_t { LiveFile, ArchiveFile, LiveFilterFile, ArchiveFilterFile };

struct Books {
    std::vector<ARec> Accounts;
    std::vector<DDRec> Items;
    std::vector<FRec> Templates;
    std::vector<BinRec> Bin;
    std::vector<CatRec> Categories;
    ConfRec Settings{};
    std::map<uint32_t, std::array<std::vector<TRec>, 4>> Rows; // by account, also those in the bin
    std::map<uint32_t, bool> Share;                            // by account

    // What an event may change. Each line with how often it is there; what all rows of an account come to, archived or
    // not, the Archive marker left out.
    std::map<std::string, int> Facts;
    std::map<uint32_t, Sums> Money;

    const ARec *Account(uint32_t id) const;
    void Note(const std::string &fact, int times = 1);
    // A row comes into an account's books or leaves them; into the bin, when it does.
    void Put(uint32_t account, const TRec &row);
    void Take(uint32_t account, const TRec &row);
    void Discard(uint32_t account, const TRec &row);
};

Books BooksOf(const Files &files);
// "[Own] e12|memo|155289|-10000|..." of an entry; the same of one in the bin, and what it is restored to.
std::string EntryLine(uint32_t account, const TRec &row, bool share);
TRec RowOf(const BinRec &row);
std::string LineOf(const ARec &account), LineOf(const DDRec &item), LineOf(const FRec &row), LineOf(const CatRec &row);
// How the bin tells a record that is no transaction.
std::string BinnedLine(int list, const std::string &name);

// The amount as a list shows it.
std::string Shown(int64_t amount);
// What the rows of a file have come to at a position.
Sums SumsAt(const std::vector<TRec> &rows, bool share, size_t count);
// What does not add up, "" when everything does: running totals, totals as of a day, the Archive marker, the order of
// days, watch limits.
std::string Mistake(const Books &books, uint32_t today);

} // namespace stories
