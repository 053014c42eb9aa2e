#include "core/cp1252.h"
#include "core/data_files.h"
#include "core/setup_rules.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace amorra;
using amorra::testing::TempDir;

namespace {

struct SliderCase
{
    const char *name;
    Slider moved;
    SliderValues before; // after the move, before the correction
    SliderValues after;
    const char *label;   // "" when the label keeps its text
};

void PrintTo(const SliderCase &c, std::ostream *os)
{
    *os << c.name;
}

class Sliders : public ::testing::TestWithParam<SliderCase>
{
};

TEST_P(Sliders, shareOneHundredFiftyPointsAtThePartnersExpense)
{
    const auto c = GetParam();
    const auto out = moveSlider(c.moved, c.before);
    EXPECT_EQ(out.values, c.after);
    EXPECT_EQ(out.pointsLabel.value_or(""), c.label);
}

INSTANTIATE_TEST_SUITE_P(
    Moves, Sliders,
    ::testing::Values(
        SliderCase{"looks_up_ten_takes_five_from_each", Slider::Looks, {60, 50, 50}, {60, 45, 45}, ""},
        SliderCase{"excess_of_one_corrects_nothing", Slider::Looks, {51, 50, 50}, {51, 50, 50}, ""},
        SliderCase{"excess_of_three_takes_two_each", Slider::Luck, {50, 50, 53}, {48, 48, 53}, ""},
        SliderCase{"excess_of_five_takes_two_each", Slider::Smart, {50, 55, 50}, {48, 55, 48}, ""},
        SliderCase{"partners_never_go_below_zero", Slider::Looks, {100, 10, 90}, {100, 0, 65}, ""},
        SliderCase{"lowering_frees_points", Slider::Smart, {50, 30, 50}, {50, 30, 50}, "Points Left:20"},
        SliderCase{"exactly_spent", Slider::Luck, {40, 40, 70}, {40, 40, 70}, "Points Left:0"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(LastFile, remembersTheTrimmedNamePaddedToTwentyBytes)
{
    TempDir dir;
    ASSERT_TRUE(writeLastName(dir.file("last"), "  Tom  "));
    EXPECT_EQ(dir.read("last"), "Tom                 ");
    EXPECT_EQ(readLastName(dir.file("last")), "Tom");
}

TEST(LastFile, keepsAccentedNamesInWindows1252)
{
    TempDir dir;
    ASSERT_TRUE(writeLastName(dir.file("last"), "Jos\xC3\xA9 \xE2\x82\xAC"));      // "José €"
    EXPECT_EQ(dir.read("last"), std::string("Jos\xE9 \x80") + std::string(14, ' ')); // one byte each
    EXPECT_EQ(readLastName(dir.file("last")), "Jos\xC3\xA9 \xE2\x82\xAC");
}

TEST(LastFile, cutsLongNamesAndStoresAllSpacesAsBlank)
{
    TempDir dir;
    writeLastName(dir.file("last"), "ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_EQ(dir.read("last"), "ABCDEFGHIJKLMNOPQRST");
    writeLastName(dir.file("last"), "     ");
    EXPECT_EQ(dir.read("last"), std::string(20, ' '));
    EXPECT_EQ(readLastName(dir.file("last")), "");
}

struct DamagedCase
{
    const char *name;
    std::string bytes;
    std::string expected;
};

void PrintTo(const DamagedCase &c, std::ostream *os)
{
    *os << c.name;
}

std::string repeat(const std::string &s, int n)
{
    std::string out;
    for (int i = 0; i < n; ++i)
        out += s;
    return out;
}

class DamagedLastFile : public ::testing::TestWithParam<DamagedCase>
{
};

TEST_P(DamagedLastFile, readsAsSomethingHarmless)
{
    const auto c = GetParam();
    TempDir dir;
    dir.write("last", c.bytes);
    EXPECT_EQ(readLastName(dir.file("last")), c.expected);
    EXPECT_EQ(dir.read("last"), c.bytes); // reading never changes the file
}

INSTANTIATE_TEST_SUITE_P(
    Contents, DamagedLastFile,
    ::testing::Values(DamagedCase{"empty", "", ""}, DamagedCase{"short_record", "Tom", ""},
                      DamagedCase{"longer_than_a_record", "Tom                 EXTRA", "Tom"},
                      DamagedCase{"all_ff_bytes_read_as_y_diaeresis", std::string(20, '\xFF'), repeat("\xC3\xBF", 20)},
                      DamagedCase{"control_and_unassigned_bytes", std::string("\x01Tom\x81\x7F") + std::string(14, ' '), "?Tom??"},
                      DamagedCase{"nul_bytes", std::string(20, '\0'), ""}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(LastFile, missingFileIsCreatedEmptyAndReadsBlank)
{
    TempDir dir;
    EXPECT_EQ(readLastName(dir.file("last")), "");
    EXPECT_TRUE(std::filesystem::exists(dir.file("last")));
    EXPECT_EQ(dir.read("last"), "");
}

TEST(LastFile, aDirectoryInItsPlaceReadsBlankAndCannotBeWritten)
{
    TempDir dir;
    std::filesystem::create_directory(dir.file("last"));
    EXPECT_EQ(readLastName(dir.file("last")), "");
    EXPECT_FALSE(writeLastName(dir.file("last"), "Tom"));
    EXPECT_TRUE(std::filesystem::is_directory(dir.file("last")));
}

struct TuteCase
{
    const char *name;
    std::string bytes;
    int value;
};

void PrintTo(const TuteCase &c, std::ostream *os)
{
    *os << c.name;
}

class TuteShowFile : public ::testing::TestWithParam<TuteCase>
{
};

TEST_P(TuteShowFile, holdsOneLittleEndianSixteenBitValue)
{
    const auto c = GetParam();
    TempDir dir;
    dir.write("tuteshow", c.bytes);
    EXPECT_EQ(readTuteShow(dir.file("tuteshow")), c.value);
}

INSTANTIATE_TEST_SUITE_P(Contents, TuteShowFile,
                         ::testing::Values(TuteCase{"one_shows_the_guide", std::string("\x01\x00", 2), 1},
                                           TuteCase{"zero", std::string("\x00\x00", 2), 0},
                                           TuteCase{"big_endian_one_is_256", std::string("\x00\x01", 2), 256},
                                           TuteCase{"minus_one", std::string("\xFF\xFF", 2), -1},
                                           TuteCase{"empty", "", 0},
                                           TuteCase{"one_byte_only", std::string("\x01", 1), 0},
                                           TuteCase{"extra_bytes_ignored", std::string("\x01\x00zz", 4), 1}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(TuteShowFile, missingFileIsCreatedEmptyAndDoesNotShowTheGuide)
{
    TempDir dir;
    EXPECT_EQ(readTuteShow(dir.file("tuteshow")), 0);
    EXPECT_TRUE(std::filesystem::exists(dir.file("tuteshow")));
}

TEST(TuteShowFile, dontShowAgainWritesTwoZeroBytes)
{
    TempDir dir;
    dir.write("tuteshow", std::string("\x01\x00", 2));
    ASSERT_TRUE(writeTuteShow(dir.file("tuteshow"), 0));
    EXPECT_EQ(dir.read("tuteshow"), std::string("\x00\x00", 2));
    EXPECT_EQ(readTuteShow(dir.file("tuteshow")), 0);
}

TEST(Cp1252, roundTripsEveryAssignedByte)
{
    std::string all;
    for (int b = 0x20; b <= 0xFF; ++b)
        if (b != 0x7F && b != 0x81 && b != 0x8D && b != 0x8F && b != 0x90 && b != 0x9D)
            all += static_cast<char>(b);
    EXPECT_EQ(toCp1252(fromCp1252(all)), all);
}

TEST(Cp1252, unmappableAndBrokenTextBecomesQuestionMarks)
{
    EXPECT_EQ(toCp1252("\xE4\xB8\xAD"), "?");    // a CJK character
    EXPECT_EQ(toCp1252("A\xC3"), "A?");          // cut-off sequence
    EXPECT_EQ(toCp1252("\x80Z"), "?Z");          // stray continuation byte
    EXPECT_EQ(toCp1252("\xF0\x9F\x98\x80"), "?"); // emoji
}

} // namespace
