// What people type into boxes of numbers and dates: it is what they meant, or it is refused as they type it.
#include "host_qt/little_program.h"
#include "hosts/qt/typed.h"
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QLocale>

using namespace little;

namespace {

enum Id : int16_t { Least = 1003, Times = 1006, Whole = 1007, Fraction = 1008, Kind = 1010, Day = 1018 };

// clang-format off
constexpr FormControl Controls[] = {
    {Day,      ControlKind::Date,    40,  22, 170, 20, 0, u"Date"},
    {Whole,    ControlKind::Combo,   40,  66,  80, 20, 8, u"Amount",   Holds::Whole},
    {Fraction, ControlKind::Combo,  130,  66,  64, 20, 3, u"Fraction", Holds::Fraction},
    {Times,    ControlKind::Combo,   40, 100,  80, 20, 8, u"Number",   Holds::Count},
    {Kind,     ControlKind::List,    40, 125,  80, 20, 0, u"Kind"},
    {Least,    ControlKind::Number,  40, 150,  80, 20, 8, u"Min"},
};
// clang-format on
constexpr FormTemplate Sample = {111, Controls, std::size(Controls)};

void BeginForm() {
    Begin();
    OpenForm(&Sample);
    for (const char16_t *item : {u"Cash", u"0", u"1", u"2"})
        AddControlItem(Times, item);
    for (const char16_t *item : {u"0", u"1", u"2"})
        AddControlItem(Whole, item);
    for (const char16_t *item : {u"Bank", u"Share"})
        AddControlItem(Kind, item);
    Told();
}

std::string Text(int id) {
    char16_t text[100];
    GetControlText(id, text, 100);
    return QString::fromUtf16(text).toStdString();
}

// "12" and "50" as "12.50".
std::string Amount() {
    return Text(Whole) + "." + Text(Fraction);
}

std::string Signs(const std::string &told) {
    std::string signs;
    for (size_t at = 0; at < told.size(); ++at)
        signs += told.compare(at, 5, "Minus") == 0 ? "-" : told.compare(at, 4, "Plus") == 0 ? "+" : "";
    return signs;
}

void Paste(const QString &text) {
    QApplication::clipboard()->setText(text);
    PressKey(Qt::Key_A, Qt::ControlModifier);
    PressKey(Qt::Key_V, Qt::ControlModifier);
}

struct AmountCase {
    const char *Typed, *Amount, *Signs;
};
// clang-format off
constexpr AmountCase TypedOrPasted[] = {
    {"12.50",          "12.50",      ""},
    {"12,5",           "12.5",       ""},
    {"1,234.5",        "1234.5",     ""},
    {"1.234,50",       "1234.50",    ""},
    {"1,234,567.05",   "1234567.05", ""},
    {"1.234.567,05",   "1234567.05", ""},
    {"1,234,567",      "1234567.",   ""},
    {".75",            ".75",        ""},
    {"-12.50",         "12.50",      "-"},
    {"+3",             "3.00",       "+"},
    {"12345678",       "12345678.00", ""},
};
constexpr AmountCase Pasted[] = {
    {"\xC2\xA3 1,234.50",     "1234.50",   ""}, // a currency sign
    {"1'234.50",              "1234.50",   ""},
    {"1\xC2\xA0""234,50 \xE2\x82\xAC", "1234.50", ""},
    {"(12.5)",                "12.5",      "-"},
    {"12.50-",                "12.50",     "-"},
    {"\xE2\x88\x92""12",      "12.00",     "-"}, // a real minus
    {"1,234",                 "1234.00",   ""},  // the locale's mark of thousands
    {"1.234",                 "1.234",     ""},
    {"12.5000",               "12.500",    ""},
};
// Nothing of these fits, so nothing is taken of them.
constexpr const char *Refused[] = {"12.3456", "123456789", "123456789.5", "twelve", "12x", "1.2.3", "1,23,4.5", "--5",
                                   "12 EUR", "(12", "-(12)", "2027-04-15"};
// clang-format on

TEST(Typing, AnAmountIsTakenAsPeopleWriteItAndNothingIsCut) {
    const auto begin = [] {
        BeginForm();
        SetControlText(Whole, u"7");
        SetControlText(Fraction, u"00");
        TapAt(48, 102);
        Told();
    };
    for (const AmountCase &one : TypedOrPasted) {
        begin();
        Type(one.Typed);
        EXPECT_EQ(Signs(Told()), one.Signs) << one.Typed;
        const std::string whole = one.Amount;
        EXPECT_EQ(Amount(), whole) << one.Typed;
        begin();
        Paste(QString::fromUtf8(one.Typed));
        EXPECT_EQ(Signs(Told()), one.Signs) << one.Typed;
        EXPECT_EQ(Amount(), whole.ends_with('.') ? whole + "00" : whole) << one.Typed << " pasted";
    }
    for (const AmountCase &one : Pasted) {
        begin();
        Paste(QString::fromUtf8(one.Typed));
        EXPECT_EQ(Signs(Told()), one.Signs) << one.Typed;
        EXPECT_EQ(Amount(), one.Amount) << one.Typed;
    }
    for (const char *text : Refused) {
        begin();
        Paste(QString::fromUtf8(text));
        EXPECT_EQ(Amount(), "7.00") << text;
        EXPECT_EQ(Told(), "") << text;
    }
}

TEST(Typing, OtherCharactersAreRefusedAsTheyAreTyped) {
    BeginForm();
    FocusControl(Whole);
    Type("1a2 /=3");
    EXPECT_EQ(Amount(), "123.");
    Type(".5x678"); // three decimals
    EXPECT_EQ(Amount(), "123.567");
    FocusControl(Fraction);
    Type("4.2");
    EXPECT_EQ(Amount(), "123.42"); // no mark led here
    FocusControl(Least);
    Type("-12.5x");
    EXPECT_EQ(Text(Least), "125");
    FocusControl(Times);
    Type("ca");
    EXPECT_EQ(Text(Times), "ca"); // the beginning of a row
    Type("x");
    EXPECT_EQ(Text(Times), "ca");
    SetControlText(Times, u"");
    Type("1.5c");
    EXPECT_EQ(Text(Times), "15");
    Paste(QStringLiteral("1,000"));
    EXPECT_EQ(Text(Times), "1000");
    Paste(QStringLiteral("2.5"));
    EXPECT_EQ(Text(Times), "1000");
    EXPECT_EQ(Signs(Told()), "-");
}

TEST(Typing, ADateIsTakenAsPeopleWriteIt) {
    const QDate shown(2026, 3, 12);
    const struct {
        const char *Typed, *DayFirst, *MonthFirst; // "" when it is none
    } cases[] = {
        {"15 Apr 2027", "2027-04-15", "2027-04-15"},
        {"15/04/2027", "2027-04-15", "2027-04-15"},
        {"05/04/2027", "2027-04-05", "2027-05-04"},
        {"15.04.2027", "2027-04-15", "2027-04-15"},
        {"05.04.2027", "2027-04-05", "2027-04-05"},
        {"2027-04-15", "2027-04-15", "2027-04-15"},
        {"29 Feb 2028", "2028-02-29", "2028-02-29"},
        {"Apr 15, 2027", "2027-04-15", "2027-04-15"},
        {"thu 15th april 27", "2027-04-15", "2027-04-15"},
        {"15.4.", "2026-04-15", "2026-04-15"},
        {"3/4", "2026-04-03", "2026-03-04"},
        {"15", "2026-03-15", "2026-03-15"},
        {"1 1 85", "1985-01-01", "1985-01-01"},
        {"Sept 9", "2026-09-09", "2026-09-09"},
        {"Mar 12 2026 (Thu)", "2026-03-12", "2026-03-12"},
        {"29 Feb 2027", "", ""},
        {"31/04/2027", "", ""},
        {"15 Foo 2027", "", ""},
        {"15 Apr 20270", "", ""},
        {"15 Apr May 2027", "", ""},
        {"1 2 3 4", "", ""},
        {"0", "", ""},
        {"", "", ""},
        {"15 Apr 1601", "", ""},
    };
    for (const auto &one : cases)
        for (const auto order : {DateOrder::DayFirst, DateOrder::MonthFirst}) {
            QDate date;
            const bool read = ReadTypedDate(QString::fromUtf8(one.Typed), order, shown, &date);
            EXPECT_EQ(read ? date.toString(Qt::ISODate).toStdString() : "",
                      order == DateOrder::DayFirst ? one.DayFirst : one.MonthFirst)
                << one.Typed;
        }
}

TEST(Typing, ADateTypedInOneGoStaysInItsBox) {
    for (const char *typed : {"15 Apr 2027", "15/04/2027", "15.04.2027", "2027-04-15"}) {
        BeginForm();
        SetControlDate(Day, {2026, 3, 31});
        TapAt(48, 58);
        Told();
        Type(typed);
        EXPECT_EQ(FocusedControl(), Day);
        const ControlDate date = GetControlDate(Day);
        EXPECT_TRUE(date.Year == 2027 && date.Month == 4 && date.Day == 15) << typed;
        EXPECT_NE(Told().find("control 1018 Choice"), std::string::npos);
        PressKey(Qt::Key_Tab);
        EXPECT_EQ(Text(Day), "Apr 15 2027 (Thu)"); // this locale's order
        EXPECT_EQ(FocusedControl(), Whole);
    }
    TapAt(48, 58);
    Type("29 Feb 2027");
    EXPECT_FALSE(ControlDateReads(Day));
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Text(Day), "29 Feb 2027"); // nothing of it is lost
    TapAt(48, 58);
    Type("29 Feb 2028");
    EXPECT_TRUE(ControlDateReads(Day));
    EXPECT_EQ(GetControlDate(Day).Year, 2028);
}

TEST(Typing, BoxAndCalendarSpeakEnglishInEveryLocale) {
    QLocale::setDefault(QLocale(QLocale::German));
    BeginForm();
    SetControlDate(Day, {2026, 3, 12});
    EXPECT_EQ(Text(Day), "Mar 12 2026 (Thu)");
    TapAt(48, 58);
    PressKey(Qt::Key_Down);
    auto *const popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    EXPECT_EQ(popup->findChild<QCalendarWidget *>()->locale().language(), QLocale::English);
    popup->close();
    QLocale::setDefault(QLocale::c());
}

TEST(Typing, WheelAndArrowsNeverChangeAClosedBox) {
    BeginForm();
    SetControlText(Whole, u"1");
    SetControlText(Times, u"1");
    SetControlDate(Day, {2026, 3, 12});
    SelectControlItem(Kind, 0);
    for (const int id : {Day, Whole, Times, Kind}) {
        FocusControl(id);
        QWidget *const focus = host.Frame->focusWidget();
        const std::string before = Text(id);
        for (const int turn : {-120, 120}) {
            const QPoint middle = focus->rect().center();
            QWheelEvent wheel(middle, focus->mapToGlobal(middle), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(focus, &wheel);
        }
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_PageDown})
            PressKey(key);
        EXPECT_FALSE(QApplication::activePopupWidget());
        PressKey(Qt::Key_Down);
        QWidget *const popup = QApplication::activePopupWidget();
        ASSERT_TRUE(popup) << id;
        QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
        Settle();
        ASSERT_FALSE(QApplication::activePopupWidget()) << id;
        EXPECT_EQ(Text(id), before) << id;
    }
    EXPECT_EQ(Told().find("Choice"), std::string::npos);
}

TEST(Typing, WhatIsLitInAListIsWhatReturnTakes) {
    const struct {
        const char16_t *Typed;
        const char *Taken;
    } cases[] = {{u"1", "1"}, {u"", "Cash"}, {u"37", "37"}};
    for (const auto &one : cases) {
        BeginForm();
        SetControlText(Times, one.Typed);
        FocusControl(Times);
        PressKey(Qt::Key_Down);
        QWidget *const popup = QApplication::activePopupWidget();
        ASSERT_TRUE(popup);
        QTest::keyClick(popup->windowHandle(), Qt::Key_Return);
        Settle();
        if (QWidget *const open = QApplication::activePopupWidget()) // nothing was lit
            open->close();
        EXPECT_EQ(Text(Times), one.Taken);
    }
}

} // namespace
