// The art is drawn at the sizes that the table of images gives: another one would be stretched, or cut off.
#include "resources/art.h"
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>

namespace {

const std::filesystem::path Art = std::filesystem::path(PROJECT_DIRECTORY) / "src/resources/art";

std::string TextOf(const std::filesystem::path &file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Art, EveryImageIsDrawnOnceAtItsSizeFromOutlinesAlone) {
    std::set<std::string> drawn;
    for (const Image &image : Images) {
        const std::string name = std::to_string(image.Id) + ".svg", text = TextOf(Art / name);
        ASSERT_FALSE(text.empty()) << name << " is missing";
        const std::string width = std::to_string(image.Width), height = std::to_string(image.Height);
        EXPECT_NE(text.find("viewBox=\"0 0 " + width + " " + height + "\""), std::string::npos) << name;
        EXPECT_NE(text.find("width=\"" + width + "\" height=\"" + height + "\""), std::string::npos) << name;
        for (const char *costly : {"<image", "<filter", "<text"})
            EXPECT_EQ(text.find(costly), std::string::npos) << name << " holds a " << costly;
        EXPECT_TRUE(drawn.insert(name).second) << name << " has two rows";
    }
    for (const auto &file : std::filesystem::directory_iterator(Art))
        EXPECT_TRUE(drawn.count(file.path().filename().string())) << file.path() << " has no row";
}

} // namespace
