// The keys of the HUB and of the calculator: their numbers, and where and how each stands. Taps and painting read the
// same rows.
#pragma once

#include "platform/surface.h"

enum HubKeyNumber : int {
    AboveHub = -2, // a point over the panel
    NoHubKey = -1,
    // 0 to 9 are the digits
    PointKey = 10,
    SignKey = 11,
    PlusKey = 12,
    MinusKey = 13,
    TimesKey = 14,
    DivideKey = 15,
    EqualsKey = 16,
    ReadKey = 18,
    WriteKey = 19,
    StoreKey = 22,
    RecallKey = 23,
    BackKey = 24,
    PiKey = 25,
    RootKey = 26,
    PercentKey = 27,
    ReciprocalKey = 28,
    DecimalsKey = 29,
    ConversionsKey = 30,
    NextOperatorKey = 31,
    LineXKey = 32,
    LineYKey = 33,
    LineZKey = 34,
    ConeKey = 35,
};
inline constexpr int FirstHeldKey = ConversionsKey; // keys below are shown pressed for a moment

// What a key looks like. The first four are columns of the sheets of key faces.
enum class HubFace : uint8_t { Digit, Function, Operator, Back, Cone, Sign, Read, Write, Line, LineOperator };

struct HubKeyPlace {
    int Key;
    HubFace Face;
    Rect Box; // where it is painted
    Rect Hit; // where a tap finds it
    const char16_t *Legend;
};

// The panel stands where the message window of a form begins, below its fields and below the tabs of a short list.
inline constexpr Rect HubPlace = {0, 189, 240, 268}, CalculatorPlace = {0, 0, 240, 268}; // in TopWindow

// clang-format off
inline constexpr HubKeyPlace HubPanel[] = {
    // key      face               box                     hit                     legend
    {7,         HubFace::Digit,    {116,  6, 144,  28},    {114,  1, 145,  29},    u"7"},
    {8,         HubFace::Digit,    {146,  6, 174,  28},    {145,  1, 175,  29},    u"8"},
    {9,         HubFace::Digit,    {176,  6, 204,  28},    {175,  1, 205,  29},    u"9"},
    {PointKey,  HubFace::Digit,    {206,  6, 234,  28},    {205,  1, 240,  29},    u"."},
    {4,         HubFace::Digit,    {116, 30, 144,  52},    {114, 29, 145,  54},    u"4"},
    {5,         HubFace::Digit,    {146, 30, 174,  52},    {145, 29, 175,  54},    u"5"},
    {6,         HubFace::Digit,    {176, 30, 204,  52},    {175, 29, 205,  54},    u"6"},
    {0,         HubFace::Digit,    {206, 30, 234,  52},    {205, 29, 240,  54},    u"0"},
    {1,         HubFace::Digit,    {116, 54, 144,  76},    {114, 54, 145,  79},    u"1"},
    {2,         HubFace::Digit,    {146, 54, 174,  76},    {145, 54, 175,  79},    u"2"},
    {3,         HubFace::Digit,    {176, 54, 204,  76},    {175, 54, 205,  79},    u"3"},
    {BackKey,   HubFace::Back,     {206, 54, 234,  76},    {205, 54, 240,  79},    u"←"},
    {ConeKey,   HubFace::Cone,     {  5,  8,  35,  38},    {  0,  1,  41,  40},    u""},
    {WriteKey,  HubFace::Write,    { 45,  7,  73,  37},    { 42,  1,  81,  40},    u""},
    {ReadKey,   HubFace::Read,     { 84,  7, 112,  37},    { 81,  1, 114,  40},    u""},
    {SignKey,   HubFace::Sign,     {  2, 42,  14,  54},    {  0, 40,  16,  79},    u""},
};

inline constexpr HubKeyPlace CalculatorKeys[] = {
    // key            face                     box                     hit                     legend
    {ConeKey,         HubFace::Cone,           {  5, 10,  35,  40},    {  0,  4,  40,  41},    u""},
    {SignKey,         HubFace::Sign,           { 18, 42,  30,  54},    {  0, 41,  40,  66},    u""},
    {NextOperatorKey, HubFace::LineOperator,   { 42, 36,  66,  65},    { 40, 36,  66,  66},    u""},
    {LineXKey,        HubFace::Line,           { 66,  7, 232,  35},    { 40,  4, 240,  36},    u"X"},
    {LineYKey,        HubFace::Line,           { 66, 37, 232,  65},    { 66, 36, 240,  66},    u"Y"},
    {LineZKey,        HubFace::Line,           { 66, 67, 232,  95},    { 40, 66, 240,  98},    u"Z"},
    {DivideKey,       HubFace::Operator,       { 63, 102,  91, 124},   { 60, 101,  92, 125},   u"÷"},
    {TimesKey,        HubFace::Operator,       { 95, 102, 123, 124},   { 92, 101, 124, 125},   u"×"},
    {MinusKey,        HubFace::Operator,       {127, 102, 155, 124},   {124, 101, 156, 125},   u"−"},
    {PlusKey,         HubFace::Operator,       {159, 102, 187, 124},   {156, 101, 189, 125},   u"+"},
    {EqualsKey,       HubFace::Operator,       {191, 102, 219, 124},   {189, 101, 227, 125},   u"="},
    {StoreKey,        HubFace::Function,       { 16, 133,  54, 157},   {  0, 131,  57, 159},   u"MS"},
    {7,               HubFace::Digit,          { 59, 133,  97, 157},   { 57, 131, 100, 159},   u"7"},
    {8,               HubFace::Digit,          {103, 133, 141, 157},   {100, 131, 143, 159},   u"8"},
    {9,               HubFace::Digit,          {146, 133, 184, 157},   {143, 131, 186, 159},   u"9"},
    {PercentKey,      HubFace::Function,       {191, 133, 229, 157},   {186, 131, 240, 159},   u"%"},
    {RecallKey,       HubFace::Function,       { 16, 161,  54, 185},   {  0, 159,  57, 187},   u"MR"},
    {4,               HubFace::Digit,          { 59, 161,  97, 185},   { 57, 159, 100, 187},   u"4"},
    {5,               HubFace::Digit,          {103, 161, 141, 185},   {100, 159, 143, 187},   u"5"},
    {6,               HubFace::Digit,          {146, 161, 184, 185},   {143, 159, 186, 187},   u"6"},
    {ReciprocalKey,   HubFace::Function,       {191, 161, 229, 185},   {186, 159, 240, 187},   u"1/x"},
    {ConversionsKey,  HubFace::Function,       { 16, 189,  54, 213},   {  0, 187,  57, 216},   u"€ $"},
    {1,               HubFace::Digit,          { 59, 189,  97, 213},   { 57, 187, 100, 216},   u"1"},
    {2,               HubFace::Digit,          {103, 189, 141, 213},   {100, 187, 143, 216},   u"2"},
    {3,               HubFace::Digit,          {146, 189, 184, 213},   {143, 187, 186, 216},   u"3"},
    {RootKey,         HubFace::Function,       {191, 189, 229, 213},   {186, 187, 240, 216},   u"√"},
    {DecimalsKey,     HubFace::Function,       { 16, 218,  54, 242},   {  0, 216,  57, 246},   u".00"},
    {BackKey,         HubFace::Back,           { 59, 218,  97, 242},   { 57, 216, 100, 246},   u"←"},
    {0,               HubFace::Digit,          {103, 218, 141, 242},   {100, 216, 143, 246},   u"0"},
    {PointKey,        HubFace::Digit,          {146, 218, 184, 242},   {143, 216, 186, 246},   u"."},
    {PiKey,           HubFace::Function,       {191, 218, 229, 242},   {186, 216, 240, 246},   u"π"},
};
// clang-format on
