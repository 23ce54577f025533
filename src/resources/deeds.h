// What an action of the owner was, in words: for whoever takes it back or does it again.
#pragma once

#include "resources/messages.h"
#include <cstddef>
#include <iterator>

// ORDER DEED
enum class Deed : uint8_t {
    Unnamed,
    Added,
    Changed,
    Deleted,
    Moved,
    Sent, // from one list to another
    Stroked,
    Reconciled,
    Filtered,
    Unfiltered,
    Archived,
    Unarchived,
    Posted, // by the recurring items
    BinEmptied,
    Watched,
    Marked,
    Aligned,
    Configured,
    Noted,
    Imported,
};

// ORDER DEED: ids of resources/messages.h.
inline constexpr int16_t DeedMessages[] = {513, 514, 515, 516, 517, 518, 519, 520, 521, 522,
                                           523, 524, 525, 526, 527, 528, 529, 530, 531, 532};
static_assert(std::size(DeedMessages) == static_cast<size_t>(Deed::Imported) + 1);

// The words of an action's label (platform/action.h); those of the unnamed for any number that is no deed.
constexpr int16_t WordsOfDeed(int label) {
    const bool known = label > 0 && label < static_cast<int>(std::size(DeedMessages));
    return DeedMessages[known ? label : 0];
}
