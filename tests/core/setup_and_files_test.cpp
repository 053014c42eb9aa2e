#include "core/cp1252.h"
#include "core/data_files.h"
#include "core/setup_rules.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <random>

using namespace amorra;
using amorra::testing::TempDir;

namespace {

// Overspending is taken from the two partners, half the excess (rounded half
// to even) from each, and what one cannot give without going below 0 from
// the other; the label is written whenever no points are overspent after.
TEST(Sliders, shareOneHundredFiftyPointsAtThePartnersExpense)
{
    struct Row { const char *name; Slider moved; SliderValues before, after; const char *label; }; // "": the label keeps its text
    const Row table[] = {
        {"looks up ten takes five from each", Slider::Looks, {60, 50, 50}, {60, 45, 45}, "Points Left:0"},
        {"an excess of one corrects nothing", Slider::Looks, {51, 50, 50}, {51, 50, 50}, ""},
        {"an excess of three takes two each", Slider::Luck, {50, 50, 53}, {48, 48, 53}, "Points Left:1"},
        {"an excess of five takes two each", Slider::Smart, {50, 55, 50}, {48, 55, 48}, ""},
        {"the other partner gives what one at 0 cannot", Slider::Looks, {100, 10, 90}, {100, 0, 50}, "Points Left:0"},
        {"the first partner short, the second gives the rest", Slider::Luck, {100, 25, 100}, {49, 0, 100}, "Points Left:1"},
        {"lowering frees points", Slider::Smart, {50, 30, 50}, {50, 30, 50}, "Points Left:20"},
        {"exactly spent", Slider::Luck, {40, 40, 70}, {40, 40, 70}, "Points Left:0"},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.name);
        const auto out = moveSlider(c.moved, c.before);
        EXPECT_EQ(out.values, c.after);
        EXPECT_EQ(out.pointsLabel.value_or(""), c.label);
    }
}

// Keys (Home, End, page and arrow steps) and drags in any order never
// overspend more than the rule's odd point, and the label tells the truth.
TEST(Sliders, anySequenceOfKeysAndDragsKeepsTheSumAndTheLabelHonest)
{
    for (const unsigned seed : {1u, 2u, 3u}) {
        SCOPED_TRACE(seed);
        std::mt19937 dice(seed);
        SliderValues v;
        std::string label = initialPointsLabel();
        for (int step = 0; step < 5000; ++step) {
            const Slider moved = Slider(dice() % 3);
            int &value = moved == Slider::Looks ? v.looks : moved == Slider::Smart ? v.smart : v.luck;
            const int keys[] = {0, 100, value - 10, value - 1, value + 1, value + 10};
            value = dice() % 4 ? std::clamp(keys[dice() % 6], 0, 100) : int(dice() % 101); // a key, or a drag
            const std::string before = label;
            const SliderOutcome out = moveSlider(moved, v);
            v = out.values;
            label = out.pointsLabel.value_or(label);
            const int sum = v.looks + v.smart + v.luck;
            ASSERT_TRUE(std::min({v.looks, v.smart, v.luck}) >= 0 && std::max({v.looks, v.smart, v.luck}) <= 100);
            ASSERT_LE(sum, 151);
            ASSERT_EQ(label, sum <= 150 ? "Points Left:" + std::to_string(150 - sum) : before) << step;
        }
    }
}

// A typed name is stored trimmed, in Windows-1252, one byte a character, cut
// or filled with spaces to 20 bytes. Whatever else the file holds reads as
// something harmless, and reading leaves it as it was.
TEST(LastFile, remembersTheNameInTwentyBytesAndShrugsOffDamage)
{
    struct Row { const char *typed; std::string bytes; const char *shown; }; // typed nullptr: the bytes are written as they are
    const std::string spaces(14, ' ');
    const Row table[] = {
        {"  Tom  ", "Tom                 ", "Tom"},
        {"Jos\xC3\xA9 \xE2\x82\xAC", "Jos\xE9 \x80" + spaces, "Jos\xC3\xA9 \xE2\x82\xAC"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXY", "ABCDEFGHIJKLMNOPQRST", "ABCDEFGHIJKLMNOPQRST"},
        {"     ", std::string(20, ' '), ""},
        {nullptr, "", ""},
        {nullptr, "Tom", ""}, // shorter than a record
        {nullptr, "Tom                 EXTRA", "Tom"},
        {nullptr, "\xFF\xFF" + std::string(18, ' '), "\xC3\xBF\xC3\xBF"},
        {nullptr, "\x01Tom\x81\x7F" + spaces, "?Tom??"},
        {nullptr, "\x81\x8D\x8F\x90\x9D" + spaces + " ", "?????"}, // the five bytes Windows-1252 leaves unassigned
        {nullptr, std::string(20, '\0'), ""},
    };
    for (const Row &c : table) {
        SCOPED_TRACE(c.shown);
        TempDir dir;
        if (c.typed)
            ASSERT_TRUE(writeLastName(dir.file("last"), c.typed));
        else
            dir.write("last", c.bytes);
        EXPECT_EQ(readLastName(dir.file("last")), c.shown);
        EXPECT_EQ(dir.read("last"), c.bytes);
    }
}

TEST(DataFiles, aMissingFileIsCreatedEmptyAndADirectoryIsLeftAlone)
{
    TempDir dir;
    EXPECT_EQ(readLastName(dir.file("last")), "");
    EXPECT_EQ(readTuteShow(dir.file("tuteshow")), 0); // the guide is not shown
    EXPECT_TRUE(std::filesystem::is_regular_file(dir.file("last")) && std::filesystem::is_regular_file(dir.file("tuteshow")));
    EXPECT_EQ(dir.read("last") + dir.read("tuteshow"), "");
    std::filesystem::create_directory(dir.file("dir"));
    EXPECT_EQ(readLastName(dir.file("dir")), "");
    EXPECT_FALSE(writeLastName(dir.file("dir"), "Tom"));
    EXPECT_TRUE(std::filesystem::is_directory(dir.file("dir")));
}

// A handle left open by every read would run out after some hundreds of games.
TEST(DataFiles, everyReadClosesItsFile)
{
    TempDir dir;
    dir.write("last", "Tom");
    rlimit saved{}, few{};
    getrlimit(RLIMIT_NOFILE, &saved);
    few = {128, saved.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    for (int i = 0; i < 300; ++i)
        readLastName(dir.file("last"));
    dir.write("last", "Tom                 ");
    const std::string name = readLastName(dir.file("last"));
    setrlimit(RLIMIT_NOFILE, &saved);
    EXPECT_EQ(name, "Tom");
}

// One little-endian 16-bit value, 1 shows the guide; a short file reads 0.
TEST(TuteShowFile, holdsOneLittleEndianSixteenBitValue)
{
    const std::pair<std::string, int> table[] = {{std::string("\x01\x00", 2), 1}, {std::string("\x00\x01", 2), 256}, {"\xFF\xFF", -1},
                                                 {"", 0}, {"\x01", 0}, {std::string("\x01\x00zz", 4), 1}};
    for (const auto &[bytes, value] : table) {
        TempDir dir;
        dir.write("tuteshow", bytes);
        EXPECT_EQ(readTuteShow(dir.file("tuteshow")), value) << value;
    }
    TempDir dir;
    ASSERT_TRUE(writeTuteShow(dir.file("tuteshow"), -2)); // "don't show again" writes 0; any value round-trips
    EXPECT_EQ(dir.read("tuteshow"), "\xFE\xFF");
}

TEST(Cp1252, roundTripsEveryAssignedByteAndMarksTheRest)
{
    std::string all;
    for (int b = 0x20; b <= 0xFF; ++b)
        if (b != 0x7F && b != 0x81 && b != 0x8D && b != 0x8F && b != 0x90 && b != 0x9D)
            all += static_cast<char>(b);
    EXPECT_EQ(toCp1252(fromCp1252(all)), all);
    const std::pair<const char *, const char *> table[] = {
        {"\xE4\xB8\xAD", "?"}, {"A\xC3", "A?"}, {"\x80Z", "?Z"}, {"\xF0\x9F\x98\x80", "?"}, // CJK, cut off, stray continuation, emoji
        {"\xC2\x80", "?"}, // U+0080, a control that byte 0x80 does not stand for
    };
    for (const auto &[utf8, bytes] : table)
        EXPECT_EQ(toCp1252(utf8), bytes) << utf8;
}

} // namespace
