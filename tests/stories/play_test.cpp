// The player of stories, as somebody with a trouble to report uses it: a story in, what it prints and its exit code
// out.
#include "day.h"
#include <sys/wait.h>

using namespace stories;

namespace {

struct Played {
    int Code;
    std::string Said; // both outputs
};

Played Play(const std::string &root, const std::string &story) {
    WriteBytes(root + "/story", {story.begin(), story.end()});
    const std::string command = "'" PLAY_PROGRAM "' '" + root + "/device' 2026-03-02T10:00 < '" + root + "/story' 2>&1";
    Played played = {};
    FILE *pipe = popen(command.c_str(), "r");
    for (int byte; (byte = fgetc(pipe)) != EOF;)
        played.Said.push_back(static_cast<char>(byte));
    played.Code = WEXITSTATUS(pclose(pipe));
    return played;
}

} // namespace

TEST(Play, AStoryIsFollowedAndABadLineIsNamed) {
    const TestRoot root;
    const Played road = Play(root.Path(), "# an entry for good\n\ndouble 90 70\ncommand 40076\ndate 1018 2026-02-22\n"
                                          "set 1005 Groceries\nset 1007 45\nset 1008 5\ncommand 40091\nscreen\nquit\n");
    EXPECT_EQ(road.Code, 0) << road.Said;
    EXPECT_NE(road.Said.find("0000 45.50\n"), std::string::npos) << road.Said;
    EXPECT_EQ(EntriesIn(root.HostPath("device\\Program Files\\Zentrik\\E1_Data\\E1_02A1")).at(2),
              "2026-02-22 Groceries -45500");

    constexpr struct {
        const char *Story, *Said;
    } wrong[] = {
        {"tap 1 1\ntip 1 1\n", "line 2: there is no event \"tip\": tip 1 1"},
        {"tap 1\n", "line 1: \"tap\" needs 2 whole number(s): tap 1"},
        {"tap 1 1 1\n", "line 1: too much after \"tap\""},
        {"key Return\n", "line 1: there is no key \"Return\""},
        {"\n\nset 1005 x\n", "line 3: no form is open"},
        {"command 40076\nset 1999 x\n", "line 2: control 1999"},
        {"command 40002\ntap 1 1\n", "line 2: the program has ended"},
        {"clock 2026-02-30\n", "line 1: a time is written"},
    };
    for (const auto &row : wrong) {
        const Played played = Play(root.Path(), row.Story);
        EXPECT_EQ(played.Code, 2) << row.Story;
        EXPECT_EQ(played.Said.rfind(row.Said, 0), 0u) << played.Said;
    }
    EXPECT_EQ(Play(root.Path(), "die 1\ncommand 40098\n").Code, DiedExitCode);
}
