// The message lines that the program remembers.
#include "state/messages.h"
#include "state/state.h"
#include "test_host.h"

namespace testhost {

std::string Line(int n) {
    const int id = state.MessageLine[n];
    return id > 0 ? Utf8(MessageText(id)) : "";
}

std::string Lines() {
    std::string all = Line(0);
    for (int n = 1; n < MessageLines; ++n)
        all.append("/").append(Line(n));
    return all;
}

std::string Ids() {
    std::string ids;
    for (const int16_t id : state.MessageLine)
        ids.append(ids.empty() ? "" : ",").append(std::to_string(id));
    return ids;
}

} // namespace testhost
