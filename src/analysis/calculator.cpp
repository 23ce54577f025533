#include "analysis/calculator.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/state.h"
#include <cmath>
#include <cstdint>

namespace {

constexpr int64_t MostUnits = 10000000; // of an operand, whole units
constexpr FixedAmount MostOperand = MostUnits * Thousand;
constexpr uint64_t MostTyped = 1000000; // whole units from which no further whole digit is taken
constexpr FixedAmount Pi = 3142;        // deliberately rounded: three decimals is all a line holds
constexpr FixedAmount One = Thousand * Thousand;

// --- Arithmetic

FixedAmount Overflow() {
    state.CalcError = 1;
    return 0;
}

FixedAmount Result(FixedAmount value) {
    state.CalcError = 0;
    return value;
}

FixedAmount Magnitude(FixedAmount value) {
    return value < 0 ? -value : value;
}

// 1 when two magnitudes together come to the limit in whole units.
bool FillsRange(FixedAmount a, FixedAmount b) {
    return WholePart(Magnitude(a)) >= MostUnits - WholePart(Magnitude(b));
}

FixedAmount Add(FixedAmount a, FixedAmount b) {
    const bool sameSign = (a < 0) == (b < 0);
    return sameSign && FillsRange(a, b) ? Overflow() : Result(a + b);
}

FixedAmount Subtract(FixedAmount a, FixedAmount b) {
    const bool sameSign = (a < 0) == (b < 0);
    return !sameSign && FillsRange(a, b) ? Overflow() : Result(a - b);
}

// Only a second factor of at least 1 is held against the range; any product must fit 64 bits.
FixedAmount Multiply(FixedAmount a, FixedAmount b) {
    if (a == 0 || b == 0)
        return Result(0);
    if (b >= Thousand && WholePart(a) > MostUnits / WholePart(b))
        return Overflow();
    if (Magnitude(a) > INT64_MAX / Magnitude(b))
        return Overflow();
    return Result(a * b / Thousand);
}

// A dividend from 10,000 up, and a divisor below 1, give whole numbers: this is deliberate.
FixedAmount Divide(FixedAmount a, FixedAmount b) {
    constexpr FixedAmount WholeFrom = 10000 * Thousand;
    if (a == 0)
        return Result(0);
    if (b == 0) {
        Beep();
        return Result(0);
    }
    if (b >= Thousand)
        return Result(a >= WholeFrom ? a / b * Thousand : a * Thousand / b);
    const int64_t quotient = a / b;
    return quotient > MostUnits ? Overflow() : Result(quotient * Thousand);
}

// The third decimal is cut, not rounded, so that the root of 1.440 is 1.199.
FixedAmount Root(FixedAmount a) {
    if (a < 0) {
        Beep();
        return a;
    }
    const double root = std::sqrt(static_cast<double>(a) * 0.001), whole = std::trunc(root);
    return Result(static_cast<FixedAmount>(whole) * Thousand +
                  static_cast<FixedAmount>(std::trunc((root - whole) * 1000)));
}

// --- Entering a number

void EnterDigit(int digit) {
    FixedAmount *line = ActiveLine();
    FixedAmount added = digit * Thousand;
    if (state.EntryState == NewNumber) {
        *line = added;
        state.EntryState = WholeDigits;
        return;
    }
    if (*line < 0)
        added = -added;
    if (state.EntryState == WholeDigits) {
        if (WholeMagnitude(*line) < MostTyped)
            *line = *line * 10 + added;
    } else if (state.EntryState < FullNumber) {
        for (int place = 0; place < state.EntryState; ++place)
            added /= 10;
        *line = AddAmounts(*line, added); // an amount that was read may be of any size
        ++state.EntryState;
    }
}

void EnterPoint() {
    if (state.EntryState == NewNumber)
        *ActiveLine() = 0;
    if (state.EntryState == NewNumber || state.EntryState == WholeDigits)
        state.EntryState = FirstDecimal;
}

// Takes the last digit away: a decimal that may stand there first, then the whole digits.
void TakeBack() {
    if (state.CalcError) {
        state.CalcError = 0;
        return;
    }
    FixedAmount *line = ActiveLine();
    switch (state.EntryState) {
    case NewNumber:
    case FullNumber:
        *line -= *line % 10;
        state.EntryState = 3;
        return;
    case 3:
        *line -= *line % 100;
        state.EntryState = 2;
        return;
    case 2:
        *line -= *line % 1000;
        state.EntryState = 1;
        return;
    default:
        *line = *line / (10 * Thousand) * Thousand;
        state.EntryState = WholeDigits;
    }
}

void TurnSign() {
    *ActiveLine() = NegateAmount(*ActiveLine());
}

// --- Operators

void ComputeResult() {
    if (!state.CalcError)
        state.CalcZ = CalcOperate(state.CalcX, state.CalcOp, state.CalcY);
    state.CalcLine = LineZKey;
    state.EntryState = NewNumber;
}

void Equals() {
    if (state.CalcLine == LineZKey)
        state.CalcX = state.CalcZ;
    ComputeResult();
}

// The second operand is entered next; what was computed so far becomes the first.
void Operator(int key) {
    if (state.CalcLine != LineXKey) {
        ComputeResult();
        state.CalcX = state.CalcZ;
    }
    state.CalcOp = key;
    state.CalcLine = LineYKey;
    state.EntryState = NewNumber;
}

void NextOperator() {
    state.CalcOp = state.CalcOp == DivideKey ? static_cast<int>(PlusKey) : state.CalcOp + 1;
}

// So many per cent of X; added to it, taken from it, or divided into it by the operator in force.
void Percent() {
    constexpr int Hundred = 100;
    state.EntryState = NewNumber;
    state.CalcZ = CalcOperate(state.CalcX, TimesKey, state.CalcY) / Hundred;
    if (!state.CalcError && state.CalcOp != TimesKey)
        state.CalcZ = CalcOperate(state.CalcX, state.CalcOp, state.CalcZ);
}

void Reciprocal() {
    FixedAmount *line = ActiveLine();
    state.EntryState = NewNumber;
    if (*line == 0)
        Beep();
    else
        *line = One / *line;
}

void SetLine(FixedAmount value) {
    *ActiveLine() = value;
    state.EntryState = NewNumber;
}

} // namespace

FixedAmount CalcOperate(FixedAmount a, int op, FixedAmount b) {
    const auto beyond = [](FixedAmount value) { return value > MostOperand || value < -MostOperand; };
    if (beyond(a) || beyond(b))
        return Overflow();
    switch (op) {
    case PlusKey:
        return Add(a, b);
    case MinusKey:
        return Subtract(a, b);
    case TimesKey:
        return Multiply(a, b);
    case DivideKey:
        return Divide(a, b);
    case RootKey:
        return Root(a);
    default:
        return a;
    }
}

FixedAmount *ActiveLine() {
    return state.CalcLine == LineYKey ? &state.CalcY : state.CalcLine == LineZKey ? &state.CalcZ : &state.CalcX;
}

void CalculatorKey(int key) {
    if (key >= 0 && key <= 9) {
        EnterDigit(key);
        return;
    }
    switch (key) {
    case PointKey:
        EnterPoint();
        break;
    case SignKey:
        TurnSign();
        break;
    case PlusKey:
    case MinusKey:
    case TimesKey:
    case DivideKey:
        Operator(key);
        break;
    case EqualsKey:
        Equals();
        break;
    case StoreKey:
        state.CalcMemory = *ActiveLine();
        break;
    case RecallKey:
        SetLine(state.CalcMemory);
        break;
    case BackKey:
        TakeBack();
        break;
    case PiKey:
        SetLine(Pi);
        break;
    case RootKey:
        SetLine(CalcOperate(*ActiveLine(), RootKey, 0));
        break;
    case PercentKey:
        Percent();
        break;
    case ReciprocalKey:
        Reciprocal();
        break;
    case DecimalsKey:
        state.CalcDecimals = state.CalcDecimals == 3 ? 2 : 3;
        break;
    case NextOperatorKey:
        NextOperator();
        break;
    case LineXKey:
    case LineYKey:
    case LineZKey:
        state.CalcLine = key;
        state.EntryState = NewNumber;
        break;
    default:
        break;
    }
}

void WriteLine(char16_t *to, int room, FixedAmount line) {
    // Not by WriteAmount: a line shows every digit, however many.
    const int fraction = FractionPart(line);
    to[0] = 0;
    AppendNumber(to, room, static_cast<int64_t>(WholeMagnitude(line)));
    AppendAscii(to, room, ".");
    AppendNumber(to, room, state.CalcDecimals == 2 ? fraction / 10 : fraction, state.CalcDecimals);
}
