#include "ledger/shares.h"
#include "ledger/account_file.h"
#include "state/error_log.h"
#include "state/state.h"

void UpdateShareMode(int32_t position, uint32_t accountType) {
    state.AccountKind = static_cast<int32_t>(accountType);
    ARec account;
    if (!ReadAccount(position, &account)) {
        ReportError(In::UpdateShareMode, Trouble::AcreateFail);
        return;
    }
    account.AccType = accountType;
    WriteAccount(position, account, In::UpdateShareMode);
}

uint32_t NextShareMode(uint32_t accountType) {
    switch (accountType) {
    case ShareNumber:
        return ShareTotal;
    case ShareTotal:
        return SharePrice;
    case SharePrice:
        return ShareValue;
    case ShareValue:
        return ShareCash;
    }
    return ShareNumber;
}

void MakeCounterEntry(TRec *row, int64_t fromType, int64_t toType) {
    row->Value = NegateAmount(row->Value);
    row->TransferID = 0;
    if (!IsShare(fromType) && IsShare(toType)) {
        row->Cash = 1;
        row->CashAmount = TimesUnits(row->Units, row->Value);
        row->Units = 1;
    } else if (row->Cash && IsShare(fromType)) {
        if (IsShare(toType)) {
            row->CashAmount = NegateAmount(row->CashAmount); // what comes here has left there
        } else {
            row->Cash = 0;
            row->Units = 1;
        }
    }
}
