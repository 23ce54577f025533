#include "records/entry_values.h"
#include "platform/text.h"
#include <algorithm>
#include <cstring>

namespace {

struct Slot {
    uint16_t Offset, Bytes;
};
struct ValueRow {
    bool IsText;
    Slot In[3]; // ORDER ENTRYFORM
};

// clang-format off
#define VALUE(text, tran, block, template) \
    {text, {{offsetof(TRec, tran), sizeof(TRec::tran)}, {offsetof(DDBlock, block), sizeof(DDBlock::block)}, \
            {offsetof(FRec, template), sizeof(FRec::template)}}}
constexpr ValueRow Values[] = {
    VALUE(false, Cleared,    Cleared,  Cleared),
    VALUE(false, Cash,       Cash,     Cash),
    VALUE(false, NoCash,     NoCash,   NoCash),
    VALUE(false, Flag,       Flag,     Flag),
    VALUE(false, Units,      Units,    Units),
    VALUE(false, CatID,      CatID,    CatID),
    VALUE(false, TransferID, Transfer, Transfer),
    VALUE(true,  Memo,       Memo,     Memo),
};
constexpr ValueRow Amount = VALUE(false, Value, Value, Value);
#undef VALUE
// clang-format on

void CopyValue(const ValueRow &row, EntryForm from, const uint8_t *source, EntryForm to, uint8_t *target) {
    const Slot &a = row.In[static_cast<int>(from)], &b = row.In[static_cast<int>(to)];
    if (row.IsText) {
        CopyText(reinterpret_cast<char16_t *>(target + b.Offset), b.Bytes / 2,
                 reinterpret_cast<const char16_t *>(source + a.Offset));
        return;
    }
    std::memset(target + b.Offset, 0, b.Bytes); // flags are wider in a template
    std::memcpy(target + b.Offset, source + a.Offset, std::min(a.Bytes, b.Bytes));
}

} // namespace

void CopyEntryValues(EntryForm from, const uint8_t *source, EntryForm to, uint8_t *target) {
    for (const ValueRow &row : Values)
        CopyValue(row, from, source, to, target);
    CopyValue(Amount, from, source, to, target);
    const auto *entry = reinterpret_cast<const TRec *>(source);
    if (from == EntryForm::Transaction && entry->Cash)
        std::memcpy(target + Amount.In[static_cast<int>(to)].Offset, &entry->CashAmount, sizeof entry->CashAmount);
    auto *made = reinterpret_cast<TRec *>(target);
    if (to == EntryForm::Transaction && made->Cash)
        made->CashAmount = made->Value;
}
