#include "ledger/moves.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/operations.h"

int ShiftRecord(uint32_t accountID, int32_t from, int32_t to, const void *record) {
    if (!AddRecFile(accountID, to, record, 1))
        return 0;
    if (DeleteRecFile(accountID, to <= from ? from + 1 : from))
        return 1;
    DeleteRecFile(accountID, to); // rather where it was than in two places
    return 0;
}

int MoveRecFile(uint32_t accountID, int32_t from, int32_t to, const void *record) {
    const int32_t list = state.CurrentScreen;
    switch (list) {
    case CategoryList:
    case ConversionList:
        return 0;
    case AccountList:
    case TransactionList:
    case RecurringList:
    case TemplateList:
        break;
    default:
        ReportError(In::MoveRecFile, Trouble::CaseError);
        return 0;
    }
    int moved;
    if (to == from || to == from + 1) {
        moved = ModRecFile(accountID, from, record);
        state.ReconcileState = ReconcileStep::Idle; // a solution holds only for the rows as they were
        to = from;
    } else {
        moved = ShiftRecord(accountID, from, to, record);
        to = to > from ? to - 1 : to;
    }
    if (!moved)
        return 0;
    state.SelectedPos[list] = to;
    if (list == TransactionList)
        CalcBalance(accountID);
    else if (list == AccountList)
        LoadCurrentAccount();
    return 1;
}

void RepairTop(int list) {
    int32_t *top = &state.TopPos[list];
    if (*top > 1 && state.EntryCount[list] - *top + 3 < state.RowCount)
        --*top;
}
