#include "ledger/shares.h"
#include "state/error_log.h"
#include "store/index.h"

int UpdateShareMode(uint32_t accountID, uint32_t accountType) {
    ARec account;
    int32_t position;
    if (!FindAccount(accountID, &account, &position)) {
        ReportError(In::UpdateShareMode, Trouble::AcreateFail);
        return 0;
    }
    account.AccType = accountType;
    return WriteAccount(position, account, In::UpdateShareMode);
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
