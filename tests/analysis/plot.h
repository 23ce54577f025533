// An account's file made by hand on a fresh device, plotted without a screen.
#pragma once

#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/regression.h"
#include "chart_account.h"
#include "store/catalogue.h"

using namespace testhost;

inline constexpr uint32_t Today = 155289; // 2 March 2026 as a day number

class Plot : public testing::Test {
protected:
    TestRoot Root;
    Place Shown = LiveRows(5);

    Plot() {
        SetClock(2026, 3, 2);
        Root.MakeDataDirectory();
        state.GraphMode = PlainGraph;
        for (char16_t const *&name : state.MonthNames)
            name = u"Mon";
    }
    ~Plot() override { EXPECT_EQ(disk.OpenHandles, 0); }

    // Balances of the entries, in whole units, a day apart from `day` on.
    static std::vector<TRec> Balances(const std::vector<int64_t> &balances, uint32_t day = 155229) {
        std::vector<TRec> rows;
        for (const int64_t balance : balances) {
            InitTRec(&rows.emplace_back());
            rows.back().RunTotal = balance * 1000;
            rows.back().Date = DateFromDayNumber(day++);
        }
        return rows;
    }
    void Write(const std::vector<TRec> &rows, const std::string &file = "E1_02A5") {
        WriteRecords(Root.DataFile(file), rows);
    }
    void Load(const std::vector<int64_t> &balances, int mode = PlainGraph, bool messages = false) {
        state.GraphMode = mode;
        state.MessageWindowOn = messages;
        Write(Balances(balances));
        LoadGraphData(Shown);
    }
    // "33,95 223,20".
    static std::string Points() {
        std::string points;
        for (int i = 1; i <= state.SampleCount; ++i)
            points +=
                (i > 1 ? " " : "") + std::to_string(state.SamplePt[i].X) + ',' + std::to_string(state.SamplePt[i].Y);
        return points;
    }
};
