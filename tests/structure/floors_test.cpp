// The house keeps its shape: includes point down the floors, and nothing above the seam goes around it.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// A folder is a floor. It includes headers of its own and of lower floors; two folders on one floor do not know
// each other. A folder without a row stands on the floor of the folder around it and is a part of it.
struct Floor {
    const char *Folder;
    int Level;
};
// clang-format off
constexpr Floor Floors[] = {
    {"hosts/qt", 11},
    {"platform/posix", 11},
    {"core/startup", 10},
    {"screens", 9},
    {"ledger/dialogs", 8},
    {"exchange", 8},
    {"analysis", 8},
    {"care", 8},
    {"screens/frame", 7},
    {"ledger", 6},
    {"screens/drawing", 6},
    {"store", 5},
    {"care/cipher", 4},
    {"core", 3},
    {"store/records", 2},
    {"ledger/values", 1},
    {"resources", 1},
    {"platform", 0},
};
// clang-format on

const fs::path Source = fs::path(PROJECT_DIRECTORY) / "src";

const Floor *FloorOf(const fs::path &file) {
    for (fs::path folder = file.parent_path(); !folder.empty(); folder = folder.parent_path())
        for (const Floor &floor : Floors)
            if (folder == floor.Folder)
                return &floor;
    return nullptr;
}

std::vector<fs::path> SourceFiles() {
    std::vector<fs::path> files;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(Source))
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
            files.push_back(fs::relative(entry.path(), Source));
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> LinesOf(const fs::path &file) {
    std::ifstream stream(Source / file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The line without its comment and with empty literals.
std::string CodeOf(const std::string &line) {
    std::string code;
    for (size_t n = 0; n < line.size(); ++n) {
        if (line.compare(n, 2, "//") == 0)
            break;
        code += line[n];
        if (line[n] != '"' && line[n] != '\'')
            continue;
        const char quote = line[n];
        if (quote == '\'' && n > 0 && isdigit(static_cast<unsigned char>(line[n - 1])))
            continue; // a digit separator
        for (++n; n < line.size() && line[n] != quote; ++n)
            n += line[n] == '\\';
        code += quote;
    }
    return code;
}

bool IsHost(const fs::path &file) {
    const std::string folder = file.parent_path().generic_string();
    return folder.rfind("hosts", 0) == 0 || folder.rfind("platform/posix", 0) == 0;
}

} // namespace

TEST(Structure, IncludesPointDownTheFloors) {
    const std::regex include("^\\s*#\\s*include\\s*\"([^\"]+)\"");
    int seen = 0;
    for (const fs::path &file : SourceFiles()) {
        const Floor *own = FloorOf(file);
        ASSERT_NE(own, nullptr) << file << " stands in a folder without a floor";
        const std::vector<std::string> lines = LinesOf(file);
        for (size_t n = 0; n < lines.size(); ++n) {
            std::smatch found;
            if (!std::regex_search(lines[n], found, include))
                continue;
            ++seen;
            const fs::path target = found[1].str();
            const Floor *other = FloorOf(target);
            const std::string where = "src/" + file.generic_string() + ":" + std::to_string(n + 1);
            if (!other || !fs::exists(Source / target)) {
                ADD_FAILURE() << where << ": \"" << target.string() << "\" is not written from src";
                continue;
            }
            EXPECT_TRUE(other == own || other->Level < own->Level)
                << where << ": " << own->Folder << " (floor " << own->Level << ") includes " << other->Folder
                << " (floor " << other->Level << ")";
        }
    }
    EXPECT_GT(seen, 50) << "the includes were not read";
}

TEST(Structure, NothingAboveTheSeamGoesAroundIt) {
    struct Rule {
        const char *Pattern, *Reason;
    };
    static const Rule everywhere[] = {
        {R"(#\s*include\s*<(Q\w+|Qt\w+/.*)>)", "Qt belongs to its host"},
        {R"(#\s*include\s*<(unistd|fcntl|dirent|windows|pthread|sys/\w+|fstream|iostream|sstream|filesystem|ctime|time|chrono|locale|clocale|thread|mutex|future|atomic)(\.h)?>)",
         "what a machine gives comes through src/platform"},
        {R"(#\s*include\s*<(string|vector|map|set|list|deque|unordered_map|functional|memory|regex|any|variant|optional)>)",
         "plain structures and fixed arrays"},
        {R"(\bstd::(string|u16string|vector|map|function|unique_ptr|shared_ptr|thread|mutex)\b)",
         "plain structures and fixed arrays"},
        {R"(\b(fopen|fread|fwrite|fclose|printf|fprintf|puts|getenv|system|exit|abort|localtime|gmtime|strftime|setlocale|usleep|nanosleep|rand|srand)\s*\()",
         "what a machine gives comes through src/platform"},
        {R"(\b(malloc|calloc|realloc|free)\s*\()", "no allocation"},
        {R"((\bnew\s+[A-Za-z_(]|\bdelete\s+[A-Za-z_]|\bdelete\s*\[))", "no allocation"},
        {R"(\b(throw|try|catch|dynamic_cast|typeid)\b)", "no exceptions, no RTTI"},
        {R"(\bvirtual\b)", "the link decides, not a virtual table"},
        {R"(\b(TODO|FIXME|XXX)\b)", "finished code"},
    };
    // Amounts and dates are never floating.
    static const Rule money = {R"(\b(float|double)\b)", "money and dates are whole numbers"};

    std::vector<std::pair<std::regex, const Rule *>> rules;
    for (const Rule &rule : everywhere)
        rules.emplace_back(std::regex(rule.Pattern), &rule);
    const std::regex floating(money.Pattern);
    for (const fs::path &file : SourceFiles()) {
        if (IsHost(file))
            continue;
        const std::string top = file.begin()->string();
        const bool countsMoney = top == "ledger" || top == "store" || top == "exchange";
        const std::vector<std::string> lines = LinesOf(file);
        for (size_t n = 0; n < lines.size(); ++n) {
            const bool including = lines[n].find("#include") != std::string::npos;
            const std::string code = including ? lines[n] : CodeOf(lines[n]);
            const std::string where = "src/" + file.generic_string() + ":" + std::to_string(n + 1) + ": " + lines[n];
            for (const auto &[pattern, rule] : rules)
                EXPECT_FALSE(std::regex_search(code, pattern)) << where << "\n" << rule->Reason;
            if (countsMoney) {
                EXPECT_FALSE(std::regex_search(code, floating)) << where << "\n" << money.Reason;
            }
        }
    }
}
