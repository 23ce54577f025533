// The started device of tests/host, and the remembered lines as numbers.
#pragma once

#include "host/device.h"

using namespace testhost;

// "0,207,0,0,0,0".
inline std::string Ids() {
    std::string ids;
    for (const int16_t id : state.MessageLine)
        ids += (ids.empty() ? "" : ",") + std::to_string(id);
    return ids;
}
