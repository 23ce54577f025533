// What transactions, templates and recurring items share: the lists of their fields, and the fields of an entry, which
// stand in a block of a recurring item whatever record they come from.
#pragma once

#include "frame/form.h"
#include "records/entry_values.h"
#include "records/records.h"
#include "resources/error_names.h"

inline constexpr int MostListed = 100; // templates or categories in a list
inline constexpr char16_t NoneText[] = u"<none>", CashText[] = u"Cash", DeletedCategoryText[] = u"category deleted";

// The help lines of an entry's fields.
// clang-format off
inline constexpr FieldHelp EntryHelps[] = {
    {DateField,       Help::DateField},
    {TitleField,      Help::TitleField},
    {WholeField,      Help::WholeField},
    {FractionField,   Help::FractionField},
    {TextField,       Help::TextField},
    {MultiplierField, Help::MultiplierField},
    {CategoryField,   Help::CategoryField},
    {TransferField,   Help::TransferField},
    {AccountField,    Help::AccountField},
    {CountField,      Help::CountField},
    {UnitField,       Help::UnitField},
    {RemainingField,  Help::RemainingField},
};
// clang-format on

// A form's Decor that paints the point between the whole part and the fraction of a row of fields that begins at `top`.
template <int Top> void PaintPoint(int mask) {
    if (mask & DecorLabels)
        FillRect(DialogWindow, {123, Top + 15, 127, Top + 19}, Rgb(0, 0, 0));
}

// The items of a field's list, in the form of a FieldList's Fill.
void ListWholeNumbers(int field); // "0" to "99", "100"
void ListFractions(int field);    // "00" to "99"
void ListMultipliers(int field);  // whole numbers, "Cash" first where it is offered
void ListTemplates(int field);    // all but the one that is being changed
void ListCategories(int field);   // "<none>" first
void ListTransfers(int field);    // "<none>", then the accounts
void ListAccounts(int field);

// The function that the open form reports under.
In FormFunction();
// True where "Cash" may stand as a multiplier: in a share account, a template and a recurring item.
bool CashOffered();

// Fields of the open form from values. `threeDecimals` 1 shows the third decimal even when it is 0.
void FillAmount(FixedAmount value, int threeDecimals);
void FillUnits(int32_t units, uint32_t cash);
void FillCategory(int64_t catID);
// `noneFirst` 1 where the list begins with "<none>".
void FillAccount(int field, uint32_t accountID, int noneFirst);

// Values from the fields. Each takes the value that was shown, and returns it whole when nobody touched the field.
FixedAmount ReadAmount(FixedAmount shown);
int32_t ReadUnits(int32_t shown);
// What the category list's row stands for. `keepDeleted` 1 keeps an ID that no longer resolves, otherwise it gives 0.
int64_t ReadCategory(int64_t shown, int keepDeleted);
uint32_t ReadAccountField(int field, uint32_t shown, int noneFirst);
// True when the multiplier field says "Cash".
bool MultiplierIsCash();

// The entry fields that the open form has, and its marks, from a block and back. Reading leaves alone what the form
// does not show.
void FillEntryFields(const DDBlock &block, int threeDecimals);
void ReadEntryFields(DDBlock *block, int keepDeletedCategory);

// What a choice in a list means on all forms of entries: "Cash" is explained, and a template picked by its name is
// given to `take`, whereupon the form shows itself anew with the name still picked.
void HearEntryChoice(const Event &event, void (*take)(const FRec &picked));
