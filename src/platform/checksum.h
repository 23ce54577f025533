// CRC-32C, by which the journal tells a whole record from a torn one.
#pragma once

#include <cstdint>

// Of `bytes` more bytes behind those that `before` is the checksum of; 0 for none.
uint32_t Checksum(uint32_t before, const void *data, int64_t bytes);
// The same without the machine's help: what Checksum is on a machine that has no instruction for it.
uint32_t ChecksumByTable(uint32_t before, const void *data, int64_t bytes);
