#include "state/state.h"
#include <cstring>
#include <initializer_list>
#include <type_traits>

State state;

void ResetState() {
    static_assert(std::is_trivially_copyable_v<State>);
    std::memset(reinterpret_cast<uint8_t *>(&state), 0, sizeof state);
    state.CurrentScreen = AccountList;
    state.DataUsable = 1;
    state.RowCount = MostRows;
    state.ShowFrontPage = 1;
    state.CheckAheadDays = 7;
    state.MovieSpeed = 20;
    state.PercentLink = 2;
    state.ConfSpare = 3;
    state.CurrentKey = NoKey;
    state.DrawDepth = 3;
    state.RecurringInOrder = 1;
    state.GraphScale = 1;
    state.BalanceView = 1;
    state.ColumnRepaintGate = 1;
    state.FirstSign = state.SecondSign = 1;
    state.LeftEye = state.RightEye = 9;
    std::memset(state.ItemEnabled, 1, sizeof state.ItemEnabled); // what SetGreys leaves alone can be chosen
    for (int list = AccountList; list < ListCount; ++list)
        state.TopPos[list] = 1;
    for (int list : {AccountList, GraphList, RecurringList, BinList})
        state.SelectedPos[list] = 1;
}
