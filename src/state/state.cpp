#include "state/state.h"
#include "platform/cipher.h"
#include "resources/hub_keys.h"
#include <cstring>
#include <initializer_list>
#include <type_traits>

State state;

void ResetState() {
    static_assert(std::is_trivially_copyable_v<State>);
    DropKey(state.CurrentKey); // it lies with the machine, and nobody else would know its number
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
    state.HeldDigit = -1;
    state.CipherProgress = -1;
    state.DrawDepth = 3;
    state.RecurringInOrder = 1;
    state.BarZoom = 1;
    state.AnalysisGroup = 1;
    state.Mixed.ColLink = LinkRed;
    state.BalanceView = 1;
    state.PlotBand = 15;
    state.PlotBase = 5;
    state.PlotYScale = state.UnitsPerRow = state.RowsPerDay = 1;
    state.SelectedSample = -1;
    state.IncrementMode = state.ExtrapReload = 1;
    state.ColumnRepaintGate = 1;
    state.CalcLine = LineXKey;
    state.CalcOp = PlusKey;
    state.EntryState = -1;
    state.CalcDecimals = 3;
    state.FirstSign = state.SecondSign = 1;
    state.LeftEye = state.RightEye = 9;
    std::memset(state.ItemEnabled, 1, sizeof state.ItemEnabled); // what SetGreys leaves alone can be chosen
    for (int list = AccountList; list < ListCount; ++list)
        state.TopPos[list] = 1;
    for (int list : {AccountList, GraphList, RecurringList, BinList})
        state.SelectedPos[list] = 1;
}
