// The configuration record: settings and column dividers. Never enciphered. Every writer reads the whole record,
// changes its own fields and writes it back.
#pragma once

#include "records/records.h"
#include "resources/geometry.h"

// Pixels to thousandths of the screen width and back, both cut.
constexpr uint32_t normalise(int32_t pixels) {
    return static_cast<uint32_t>(pixels) * 1000U / ScreenWidth;
}
constexpr int32_t denormalise(uint32_t stored) {
    return static_cast<int32_t>(static_cast<uint64_t>(stored) * ScreenWidth / 1000U % 100000U);
}

void SetConfDefaults(ConfRec *record);
// Reads the record; when the file is short, writes the defaults in its place. Dividers out of bounds fall back. 0 when
// it could not be read or written; nothing of the state has changed when it could not be read.
[[nodiscard]] int LoadConfFile();
// Writes back the settings and the dividers: those that nobody dragged exactly as they were read. 0 when refused.
int StoreConfFile();
// Reads the six settings of the state block alone.
void UpdateBmap();
// What to store for a divider: as it was read when nobody has dragged it, so that columns do not creep.
uint32_t DividerToStore(int list, int edge);

// The record as it stands, or the defaults when the file is short or can't be read; a failed open is reported under
// `function`.
enum class In : uint8_t;
enum class ConfRead : uint8_t { Failed, Short, Whole };
ConfRead ReadConfRec(ConfRec *record, In function);
// 1 when the record stands whole in the file.
inline int ReadConfiguration(ConfRec *record, In function) {
    return ReadConfRec(record, function) == ConfRead::Whole;
}
// 0 on failure, reported as CwriteFail under `function`.
[[nodiscard]] int WriteConfiguration(const ConfRec *record, In function);
// Stamps today into LastChecked, unless it stands there. 0 when it could not be written.
[[nodiscard]] int StampLastChecked();
