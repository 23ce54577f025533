// The house keeps its shape: includes point down the floors, and nothing above the seam goes around it.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// A folder is a floor. It includes headers of its own and of lower floors; two folders on one floor do not know
// each other. A folder without a row stands on the floor of the folder around it and is a part of it.
constexpr int Hosts = 14;
struct Floor {
    const char *Folder;
    int Level;
};
// clang-format off
constexpr Floor Floors[] = {
    {"hosts/qt", 14},
    {"hosts/posix", 14},
    {"program", 13},
    {"input", 12},
    {"screens", 11},
    {"forms", 10},
    {"frame", 9},
    {"exchange", 8},
    {"analysis", 8},
    {"care", 8},
    {"ledger", 7},
    {"drawing", 7},
    {"store", 6},
    {"cipher", 5},
    {"state", 4},
    {"records", 3},
    {"resources", 2},
    {"values", 1},
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

// The file between the quotes or angles of an include, with its opening sign: "\"state/state.h", "<cstdint"; "" for
// any other line.
std::string IncludedBy(const std::string &line) {
    const size_t open = line.rfind("#include", 0) == 0 ? line.find_first_of("\"<") : std::string::npos;
    return open == std::string::npos ? "" : line.substr(open, line.find_first_of("\">", open + 1) - open);
}

// The words of code; "std::string" is one word.
std::vector<std::string> WordsOf(std::string code) {
    for (size_t n = 0; n < code.size(); ++n)
        if (n >= 3 && code.compare(n - 3, 5, "std::") == 0)
            ++n;
        else if (!isalnum(static_cast<unsigned char>(code[n])) && code[n] != '_')
            code[n] = ' ';
    std::istringstream words(code);
    return {std::istream_iterator<std::string>(words), {}};
}

// The function that a line at the left margin begins to declare or to define; "" for none, or one defined where it
// stands.
std::string FunctionOf(const std::string &line) {
    static const std::set<std::string> others = {"inline", "constexpr", "template", "using",
                                                 "struct", "extern",    "enum"};
    const size_t end = std::min(line.find('('), line.size());
    size_t begin = end;
    while (begin > 0 && (isalnum(static_cast<unsigned char>(line[begin - 1])) || line[begin - 1] == '_'))
        --begin;
    const bool declares = end < line.size() && begin > 0 && begin < end && isalpha(static_cast<unsigned char>(line[0]));
    return declares && !others.count(line.substr(0, line.find(' '))) ? line.substr(begin, end - begin) : "";
}

std::string Where(const fs::path &file, size_t line) {
    return "src/" + file.generic_string() + ":" + std::to_string(line + 1);
}

} // namespace

TEST(Structure, IncludesPointDownTheFloors) {
    int seen = 0;
    for (const fs::path &file : SourceFiles()) {
        const Floor *own = FloorOf(file);
        ASSERT_NE(own, nullptr) << file << " stands in a folder without a floor";
        const std::vector<std::string> lines = LinesOf(file);
        for (size_t n = 0; n < lines.size(); ++n) {
            const std::string included = IncludedBy(lines[n]);
            if (included.empty() || included[0] != '"')
                continue;
            ++seen;
            const fs::path target = included.substr(1);
            const Floor *other = FloorOf(target);
            if (!other || !fs::exists(Source / target)) {
                ADD_FAILURE() << Where(file, n) << ": " << target << " is not written from src";
                continue;
            }
            EXPECT_TRUE(other == own || other->Level < own->Level)
                << Where(file, n) << ": " << own->Folder << " (floor " << own->Level << ") includes " << other->Folder
                << " (floor " << other->Level << ")";
        }
    }
    EXPECT_GT(seen, 50) << "the includes were not read";
}

// Whoever reads a declaration knows the file to open.
TEST(Structure, WhatAHeaderDeclaresStandsInTheBodyOfItsName) {
    // The forms and the screens are rows of a table each, defined in the file of each; the bin's copies have their own.
    static const std::set<std::string> apart = {"forms/forms.h", "screens/screens.h", "ledger/bin.h", "ledger/moves.h"};
    int seen = 0;
    for (const fs::path &header : SourceFiles()) {
        const int level = FloorOf(header)->Level;
        if (header.extension() != ".h" || level == 0 || apart.count(header.generic_string()))
            continue;
        std::set<std::string> defined;
        fs::path body = header;
        if (fs::exists(Source / body.replace_extension(".cpp")))
            for (const std::string &line : LinesOf(body))
                defined.insert(FunctionOf(line));
        const std::vector<std::string> lines = LinesOf(header);
        for (size_t n = 0; n < lines.size(); ++n) {
            const std::string declared = FunctionOf(lines[n]);
            seen += !declared.empty();
            EXPECT_TRUE(declared.empty() || defined.count(declared)) << Where(header, n) << ": " << declared;
        }
    }
    EXPECT_GT(seen, 150) << "the declarations were not read";
}

TEST(Structure, NothingAboveTheSeamGoesAroundIt) {
    // What the language itself offers; a machine's services come through src/platform.
    static const std::set<std::string> headers = {
        "<algorithm", "<array",       "<bit",     "<cassert", "<climits",          "<cmath",    "<concepts", "<cstddef",
        "<cstdint",   "<cstdio",      "<cstdlib", "<cstring", "<initializer_list", "<iterator", "<limits",   "<numbers",
        "<span",      "<type_traits", "<utility"};
    constexpr struct {
        const char *Words, *Reason;
        bool InMoneyAlone;
    } rules[] = {
        {"fopen fread fwrite fclose printf fprintf puts getenv system exit abort localtime gmtime strftime setlocale "
         "usleep nanosleep rand srand",
         "what a machine gives comes through src/platform", false},
        {"std::string std::u16string std::vector std::map std::function std::unique_ptr std::shared_ptr",
         "plain structures and fixed arrays", false},
        {"malloc calloc realloc free new delete", "no allocation", false},
        {"throw try catch dynamic_cast typeid", "no exceptions, no RTTI", false},
        {"virtual", "the link decides, not a virtual table", false},
        {"float double", "money and dates are whole numbers", true},
    };
    std::map<std::string, size_t> ruleOf;
    for (size_t n = 0; n < std::size(rules); ++n)
        for (const std::string &word : WordsOf(rules[n].Words))
            ruleOf[word] = n;
    for (const fs::path &file : SourceFiles()) {
        if (FloorOf(file)->Level == Hosts)
            continue;
        const std::string top = file.begin()->string();
        const bool countsMoney = top == "ledger" || top == "store" || top == "exchange";
        const std::vector<std::string> lines = LinesOf(file);
        for (size_t n = 0; n < lines.size(); ++n) {
            const std::string included = IncludedBy(lines[n]);
            if (!included.empty()) {
                EXPECT_TRUE(included[0] == '"' || headers.count(included)) << Where(file, n) << ": " << lines[n];
                continue;
            }
            EXPECT_EQ(lines[n].find("TODO"), std::string::npos) << Where(file, n) << ": what stands here is finished";
            for (const std::string &word : WordsOf(CodeOf(lines[n]))) {
                const auto found = ruleOf.find(word);
                const bool broken = found != ruleOf.end() && (countsMoney || !rules[found->second].InMoneyAlone);
                EXPECT_FALSE(broken) << Where(file, n) << ": " << word << ": " << rules[found->second].Reason;
            }
        }
    }
}

// What is shown is the business of those who show it; the floors below are told a place.
TEST(Structure, WordsStayOnTheirFloors) {
    constexpr struct {
        const char *Words, *Folders, *Reason; // folders in which a word may stand
    } rules[] = {
        {"CurrentScreen ArchiveView CurAccount", "state drawing frame forms screens input program",
         "an operation is told its place"},
        {"Beep ShowHelp ShowHelpMessage ForceHelp RepeatHelp Paint",
         "platform state store drawing frame forms screens input program",
         "rules return an outcome; screens say and paint it"},
    };
    for (const auto &rule : rules) {
        std::istringstream words(rule.Words), folders(rule.Folders);
        const std::set<std::string> watched{std::istream_iterator<std::string>(words), {}};
        const std::set<std::string> allowed{std::istream_iterator<std::string>(folders), {}};
        int seen = 0;
        for (const fs::path &file : SourceFiles()) {
            const std::string top = file.begin()->string();
            if (FloorOf(file)->Level == Hosts || top == "resources")
                continue;
            const std::vector<std::string> lines = LinesOf(file);
            for (size_t n = 0; n < lines.size(); ++n)
                for (const std::string &word : WordsOf(CodeOf(lines[n])))
                    if (watched.count(word)) {
                        ++seen;
                        EXPECT_TRUE(allowed.count(top)) << Where(file, n) << ": " << word << ": " << rule.Reason;
                    }
        }
        EXPECT_GT(seen, 20) << rule.Words;
    }
}

// Records are bytes of no type in their tables and on the way to and from a file, and nowhere else.
TEST(Structure, NoRecordLosesItsType) {
    static const std::set<std::string> tables = {"records/fields.h", "records/fields.cpp", "store/lists.h",
                                                 "store/lists.cpp",  "store/catalogue.h",  "store/catalogue.cpp",
                                                 "cipher/hooks.h",   "cipher/hooks.cpp", "state/state.cpp"};
    for (const fs::path &file : SourceFiles()) {
        const std::string top = file.begin()->string();
        if (FloorOf(file)->Level == Hosts || top == "platform" || tables.count(file.generic_string()))
            continue;
        const std::vector<std::string> lines = LinesOf(file);
        for (size_t n = 0; n < lines.size(); ++n)
            EXPECT_EQ(CodeOf(lines[n]).find("void *"), std::string::npos) << Where(file, n) << ": " << lines[n];
    }
}
