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
inline constexpr int16_t DeedMessages[] = {0,   585, 586, 587, 588, 589, 590, 591, 592, 593,
                                           594, 595, 596, 597, 598, 599, 600, 601, 602, 603};
static_assert(std::size(DeedMessages) == static_cast<size_t>(Deed::Imported) + 1);

// The words of an action's label (platform/action.h); 0 for a number that is no deed, which has none.
constexpr int16_t WordsOfDeed(int label) {
    const bool known = label > 0 && label < static_cast<int>(std::size(DeedMessages));
    return DeedMessages[known ? label : 0];
}
