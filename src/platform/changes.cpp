#include "platform/changes.h"
#include <cstring>

namespace {

struct ChangeHead {
    uint8_t What;
    uint8_t Spare;
    uint16_t PathBytes; // with its 0
    uint32_t Bytes;
    int64_t Offset;
};
static_assert(sizeof(ChangeHead) == 16);

constexpr int64_t Aligned(int64_t bytes) {
    return (bytes + 7) / 8 * 8;
}

} // namespace

int64_t ChangeRoom(const char *path, int64_t bytes) {
    return int64_t{sizeof(ChangeHead)} + Aligned(static_cast<int64_t>(std::strlen(path)) + 1) + Aligned(bytes);
}

int PutChange(uint8_t *buffer, int64_t room, int64_t *used, const ChangeView &change) {
    const int64_t needed = ChangeRoom(change.Path, change.Bytes);
    if (needed > room - *used)
        return 0;
    uint8_t *to = buffer + *used;
    const size_t pathBytes = std::strlen(change.Path) + 1;
    const ChangeHead head = {static_cast<uint8_t>(change.What), 0, static_cast<uint16_t>(pathBytes),
                             static_cast<uint32_t>(change.Bytes), change.Offset};
    std::memcpy(to, &head, sizeof head);
    to += sizeof head;
    std::memset(to + Aligned(static_cast<int64_t>(pathBytes)) - 8, 0, 8);
    std::memcpy(to, change.Path, pathBytes);
    to += Aligned(static_cast<int64_t>(pathBytes));
    if (change.Bytes > 0) {
        std::memset(to + Aligned(change.Bytes) - 8, 0, 8);
        std::memcpy(to, change.Data, static_cast<size_t>(change.Bytes));
    }
    *used += needed;
    return 1;
}

int ExtendWrite(uint8_t *buffer, int64_t room, int64_t *used, int64_t at, const uint8_t *data, int64_t bytes) {
    ChangeHead head;
    std::memcpy(&head, buffer + at, sizeof head);
    const int64_t start = at + int64_t{sizeof head} + Aligned(head.PathBytes), end = start + head.Bytes;
    const int64_t extended = start + Aligned(head.Bytes + bytes);
    if (extended > room)
        return 0;
    std::memset(buffer + end + bytes, 0, static_cast<size_t>(extended - end - bytes));
    std::memcpy(buffer + end, data, static_cast<size_t>(bytes));
    head.Bytes += static_cast<uint32_t>(bytes);
    std::memcpy(buffer + at, &head, sizeof head);
    *used = extended;
    return 1;
}

int NextChange(const uint8_t *buffer, int64_t bytes, int64_t *at, ChangeView *change) {
    const int64_t left = bytes - *at;
    if (left == 0)
        return 0;
    ChangeHead head;
    if (left < int64_t{sizeof head})
        return -1;
    std::memcpy(&head, buffer + *at, sizeof head);
    const int64_t path = *at + int64_t{sizeof head}, data = path + Aligned(head.PathBytes);
    const int64_t end = data + Aligned(head.Bytes);
    if (head.PathBytes < 2 || head.Offset < 0 || end > bytes || buffer[path + head.PathBytes - 1] != 0)
        return -1;
    *change = {static_cast<Change>(head.What), reinterpret_cast<const char *>(buffer + path), head.Offset,
               buffer + data, head.Bytes};
    *at = end;
    return 1;
}
