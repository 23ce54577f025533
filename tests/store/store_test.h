// What the tests of the store start from: a fresh device with a data directory.
#pragma once

#include "frame/changes.h"
#include "host/test_host.h"
#include "platform/files.h"
#include "platform/text.h"
#include "state/state.h"
#include <cstring>
#include <gtest/gtest.h>

using namespace testhost;

struct Store : testing::Test {
    TestRoot Root;
    Store() { Root.MakeDataDirectory(); }
    ~Store() override { EXPECT_EQ(disk.OpenHandles, 0); }
    // The trouble reported last has these words.
    static testing::AssertionResult Told(const std::string &words) {
        const std::string last = machine.Terminal.empty() ? "" : machine.Terminal.back();
        return last.find(words) != std::string::npos ? testing::AssertionSuccess()
                                                     : testing::AssertionFailure() << last;
    }
};
