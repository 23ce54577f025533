// What the documents say of the program is what the program's own tables say.
#include "resources/key_guide.h"
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

TEST(Words, TheReadMeListsTheKeysOfTheGuide) {
    std::ifstream stream(PROJECT_DIRECTORY "/README.md");
    const std::string text = {std::istreambuf_iterator<char>(stream), {}};
    for (const KeyWords &row : KeyGuide)
        EXPECT_NE(text.find(std::string("| ") + row.Keys + " | " + row.Does + " |\n"), std::string::npos) << row.Keys;
}
