// What the documents say of the program is what the program's own tables say, and what they show is there.
#include "resources/key_guide.h"
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <string>

namespace {

const std::filesystem::path Project = PROJECT_DIRECTORY;

std::string TextOf(const char *name) {
    std::ifstream stream(Project / name);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Words, TheReadMeListsTheKeysOfTheGuide) {
    const std::string text = TextOf("README.md");
    for (const KeyWords &row : KeyGuide)
        EXPECT_NE(text.find(std::string("| ") + row.Keys + " | " + row.Does + " |\n"), std::string::npos) << row.Keys;
}

TEST(Words, TheReadMeShowsEveryPictureAndNoOther) {
    const std::string text = TextOf("README.md");
    for (const auto &file : std::filesystem::directory_iterator(Project / "docs/pictures"))
        EXPECT_NE(text.find("(docs/pictures/" + file.path().filename().string() + ")"), std::string::npos) << file;
    const std::regex link("\\]\\((docs/[^)]*)\\)");
    for (std::sregex_iterator it(text.begin(), text.end(), link), end; it != end; ++it)
        EXPECT_TRUE(std::filesystem::exists(Project / (*it)[1].str())) << (*it)[1];
}

} // namespace
