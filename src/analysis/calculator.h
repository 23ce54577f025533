// The calculator behind the HUB: three lines, an operator, a memory, and what each key does to them. All values are
// thousandths. The lines stand in the hub's words of the state and last until the program ends.
#pragma once

#include "resources/hub_keys.h"
#include "values/amounts.h"

enum EntryStates : int { NewNumber = -1, WholeDigits = 0, FirstDecimal = 1, FullNumber = 4 };

// a op b for PlusKey to DivideKey; the root of a for RootKey, where b does not count. A result clears
// state.CalcError; an operand or a result beyond the calculator's range sets it and gives 0. Dividing by 0 beeps and
// gives 0, the root of a negative number beeps and gives the number; neither is an error.
FixedAmount CalcOperate(FixedAmount a, int op, FixedAmount b);

// The line that digits, sign and arrows work on.
FixedAmount *ActiveLine();

// What a key does to the lines and modes. Keys that do something else (arrows, cone, conversions) and numbers that are
// no key change nothing.
void CalculatorKey(int key);

// The magnitude of a line with state.CalcDecimals decimals; the sign is shown by colour. Room of at least 24.
void WriteLine(char16_t *to, int room, FixedAmount line);
