// What the calculator says after each row of keys: all three lines, which one is active, and what it refused aloud.
#include "analysis/calculator.h"
#include "host/test_host.h"
#include "state/state.h"
#include <cstdint>
#include <gtest/gtest.h>
#include <string>

using namespace testhost;

namespace {

// One character a key; a blank is none.
int KeyOf(char character) {
    static constexpr struct {
        char Character;
        int Key;
    } keys[] = {{'.', PointKey},        {'n', SignKey},   {'+', PlusKey},    {'-', MinusKey},      {'*', TimesKey},
                {'/', DivideKey},       {'=', EqualsKey}, {'S', StoreKey},   {'R', RecallKey},     {'b', BackKey},
                {'p', PiKey},           {'r', RootKey},   {'%', PercentKey}, {'i', ReciprocalKey}, {'d', DecimalsKey},
                {'o', NextOperatorKey}, {'x', LineXKey},  {'y', LineYKey},   {'z', LineZKey}};
    for (const auto &row : keys)
        if (row.Character == character)
            return row.Key;
    return character - '0';
}

void PressAll(const std::string &keys) {
    for (const char character : keys)
        if (character != ' ')
            CalculatorKey(KeyOf(character));
}

std::string LineText(FixedAmount line) {
    char16_t text[32];
    WriteLine(text, 32, line);
    return (line < 0 ? "-" : "") + Utf8(text);
}

// "5.000 0.500 10.000", then "!" for the error, and a "b" for each beep.
std::string Shown() {
    return LineText(state.CalcX) + " " + LineText(state.CalcY) + " " + LineText(state.CalcZ) +
           (state.CalcError ? " !" : "") + std::string(machine.Beeps ? " " : "") +
           std::string(static_cast<size_t>(machine.Beeps), 'b');
}

class Calculator : public testing::Test {
protected:
    TestRoot root;
};

struct Sequence {
    const char *Keys, *Lines;
};

void ExpectAll(std::initializer_list<Sequence> rows) {
    for (const Sequence &row : rows) {
        ResetState();
        machine.Beeps = 0;
        PressAll(row.Keys);
        EXPECT_EQ(Shown(), row.Lines) << row.Keys;
    }
}

TEST_F(Calculator, NumbersAreEnteredAndTakenBackDigitByDigit) {
    ExpectAll({
        {"", "0.000 0.000 0.000"},
        {"007", "7.000 0.000 0.000"},
        {"12.5", "12.500 0.000 0.000"},
        {"12.3456", "12.345 0.000 0.000"},
        {".05", "0.050 0.000 0.000"},
        {"1..5.5", "1.550 0.000 0.000"},
        {"12n3.4", "-123.400 0.000 0.000"},
        {"0n5", "5.000 0.000 0.000"},
        {"1000000", "1000000.000 0.000 0.000"},
        {"10000005", "1000000.000 0.000 0.000"},
        {"9999999", "9999999.000 0.000 0.000"},
        {"1234567n8.9", "-1234567.900 0.000 0.000"},
        // back: from a full number the third decimal, then as entered
        {"12.345b", "12.340 0.000 0.000"},
        {"12.345b6", "12.346 0.000 0.000"},
        {"12.34b", "12.300 0.000 0.000"},
        {"12.34bb", "12.000 0.000 0.000"},
        {"12.34bb5", "12.500 0.000 0.000"},
        {"12.34bbb", "1.000 0.000 0.000"},
        {"12.34bbb5", "15.000 0.000 0.000"},
        {"12.b", "1.000 0.000 0.000"},
        {"12bbb", "0.000 0.000 0.000"},
        {"12.345nbbb", "-12.000 0.000 0.000"},
        {"12x b", "12.000 0.000 0.000"}, // chosen anew: its third decimal goes first
        {"12x bbbb", "1.000 0.000 0.000"},
        {"12x bbb.5", "12.500 0.000 0.000"},
    });
}

TEST_F(Calculator, OperatorsWorkOnTheLineThatIsActive) {
    ExpectAll({
        {"2+3=", "2.000 3.000 5.000"},
        {"2+3==", "5.000 3.000 8.000"},
        {"2+3=*4=", "5.000 4.000 20.000"},
        {"2+3*4=", "5.000 4.000 20.000"},
        {"2+-3=", "2.000 3.000 -1.000"},
        // second operand of 0...
        {"7-10=", "7.000 10.000 -3.000"},
        {"6n*7=", "-6.000 7.000 -42.000"},
        {"1n/3=", "-1.000 3.000 -0.333"},
        {"2/3=", "2.000 3.000 0.666"},
        {"2+3=9", "2.000 3.000 9.000"}, // a digit after equals goes into the result
        {"2+3=9=", "9.000 3.000 12.000"},
        {"2=", "2.000 0.000 2.000"},
        {"x5o o y2=", "5.000 2.000 10.000"},
        {"x5oooo y2=", "5.000 2.000 7.000"},
        {"y4x9-=", "9.000 4.000 5.000"},
        {"8S+R=", "8.000 8.000 16.000"},
        {"8SR5", "5.000 0.000 0.000"},
        {"9x5S4S y R", "54.000 54.000 0.000"},
        {"p", "3.142 0.000 0.000"},
        {"2*p=", "2.000 3.142 6.284"},
        {"p5", "5.000 0.000 0.000"},
    });
}

TEST_F(Calculator, WhatLeavesTheRangeShowsStarsUntilBack) {
    ExpectAll({
        {"9999999+1=", "9999999.000 1.000 0.000 !"},
        {"9999998+1=", "9999998.000 1.000 9999999.000"},
        {"9999999n-1=", "-9999999.000 1.000 0.000 !"},
        {"9999999n+1=", "-9999999.000 1.000 -9999998.000"},
        {"9999999-1=", "9999999.000 1.000 9999998.000"},
        {"5000*2000=", "5000.000 2000.000 10000000.000"},
        {"5001*2000=", "5001.000 2000.000 0.000 !"},
        {"9999999*.5=", "9999999.000 0.500 4999999.500"},
        {"9999999*0=", "9999999.000 0.000 0.000"},
        // the test looks at a second factor of at least 1; beyond the range the next operation refuses
        {"5001n*2000=", "-5001.000 2000.000 -10002000.000"},
        {"5001n*2000==", "-10002000.000 2000.000 0.000 !"},
        // a product that leaves 64 bits
        {"9999999n*9999999=", "-9999999.000 9999999.000 0.000 !"},
        {"1/.5=", "1.000 0.500 2.000"},
        {"9999999/.001=", "9999999.000 0.001 0.000 !"},
        {"9999/.001=", "9999.000 0.001 9999000.000"},
        // with the error set, equals computes nothing; back clears it and takes no digit
        {"9999999+1==", "0.000 1.000 0.000 !"},
        {"9999999+1=x5=", "5.000 1.000 0.000 !"},
        {"9999999+1=b", "9999999.000 1.000 0.000"},
        {"9999999+1=bx12=", "12.000 1.000 13.000"},
        {"9999999+1=r", "9999999.000 1.000 0.000"},
    });
    for (const FixedAmount far : {INT64_MIN, INT64_MAX, INT64_C(10000000001), INT64_C(-10000000001)})
        for (const int op : {+PlusKey, +MinusKey, +TimesKey, +DivideKey, +RootKey}) {
            state.CalcError = 0;
            EXPECT_EQ(CalcOperate(far, op, 1000), 0);
            EXPECT_EQ(state.CalcError, 1u);
            // Every key bears a line that was read, whatever stands in it.
            for (const char key : std::string("5.nb5nbbbbb5i%rS=+-*/d")) {
                state.CalcX = state.CalcY = far;
                PressAll(std::string(1, key));
            }
        }
}

TEST_F(Calculator, DivisionsAndRoots) {
    ExpectAll({
        {"5/.5=", "5.000 0.500 10.000"},
        {"5.2/.5=", "5.200 0.500 10.000"}, // a divisor below 1 gives whole numbers
        {"5/2n=", "5.000 -2.000 -2.000"},  // and so does a negative one
        {"9999/7=", "9999.000 7.000 1428.428"},
        {"10000/7=", "10000.000 7.000 1428.000"}, // from 10,000 up too
        {"10000n/7=", "-10000.000 7.000 -1428.571"},
        {"0/0=", "0.000 0.000 0.000"},
        {"5/0=", "5.000 0.000 0.000 b"},
        {"16r", "4.000 0.000 0.000"},
        {"2r", "1.414 0.000 0.000"},
        {"1.44r", "1.199 0.000 0.000"},
        {".25r", "0.500 0.000 0.000"},
        {"9999999r", "3162.277 0.000 0.000"},
        {"2n r", "-2.000 0.000 0.000 b"},
        {"16r5", "5.000 0.000 0.000"},
        {"1+9=r", "1.000 9.000 3.162"},
        {"8i", "0.125 0.000 0.000"},
        {"3n i", "-0.333 0.000 0.000"},
        {"0i", "0.000 0.000 0.000 b"},
        {"8i5", "5.000 0.000 0.000"},
    });
}

TEST_F(Calculator, PerCentIsOfTheFirstLineByTheOperatorInForce) {
    ExpectAll({
        {"200*10%", "200.000 10.000 20.000"},
        {"200+10%", "200.000 10.000 220.000"},
        {"200-10%", "200.000 10.000 180.000"},
        {"200/10%", "200.000 10.000 10.000"},
        {"200-10x%", "200.000 10.000 180.000"},
        {"200-10z%", "200.000 10.000 180.000"},
        {"20001*17.5%", "20001.000 17.500 3500.175"},
        {"200/0%", "200.000 0.000 0.000 b"},
        {"200*10%5", "200.000 5.000 20.000"},
        {"9999999*9999999%", "9999999.000 9999999.000 0.000 !"},
        {"9999999+9999999%", "9999999.000 9999999.000 0.000 !"},
    });
}

TEST_F(Calculator, TwoDecimalsAreCut) {
    ExpectAll({{"1.239d", "1.23 0.00 0.00"}, {"1.239dd", "1.239 0.000 0.000"}, {".009nd", "-0.00 0.00 0.00"}});
}

} // namespace
