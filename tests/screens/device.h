// The started device of tests/host.
#pragma once

#include "host/device.h"

using namespace testhost;
