// What an entry is worth and says, whatever record it stands in: one table copies it between a transaction, a block of
// a recurring item and a template.
#pragma once

#include "records/records.h"

enum class EntryForm : uint8_t { Transaction, Block, Template }; // ORDER ENTRYFORM

// Copies Cleared, Cash, NoCash, Flag, Units, CatID, partner, Memo and the amount. The amount of a transaction that is a
// cash row is its CashAmount; one that becomes a cash row gets it there too.
void CopyEntryValues(EntryForm from, const uint8_t *source, EntryForm to, uint8_t *target);

template <typename Record> inline constexpr EntryForm FormOfEntry = EntryForm::Transaction;
template <> inline constexpr EntryForm FormOfEntry<DDBlock> = EntryForm::Block;
template <> inline constexpr EntryForm FormOfEntry<FRec> = EntryForm::Template;

template <typename From, typename To> void CopyEntryValues(const From &from, To *to) {
    CopyEntryValues(FormOfEntry<From>, reinterpret_cast<const uint8_t *>(&from), FormOfEntry<To>,
                    reinterpret_cast<uint8_t *>(to));
}
