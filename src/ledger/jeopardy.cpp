#include "ledger/jeopardy.h"
#include "ledger/balance.h"
#include "store/operations.h"

bool BreaksWholeLimit(const ARec &account, int64_t whole) {
    return (account.LowWatch && whole < account.MinLimit) || (account.HighWatch && whole > account.MaxLimit);
}

bool BreaksLimit(const ARec &account, FixedAmount value) {
    return BreaksWholeLimit(account, WholePart(value));
}

int WatchLimits(int32_t position, Watched limits) {
    ARec account;
    if (!FetchRecord(Place{AccountList}, position, &account))
        return 0;
    account.LowWatch = limits != Watched::None;
    account.HighWatch = limits == Watched::Both;
    if (!ChangeRecord(Place{AccountList}, position, account))
        return 0;
    CalcOneView(LiveRows(account.ID, Rows::All)); // the flags belong to the live file, whichever view is shown
    CheckT1totals();
    return 1;
}
