#include "core/player_folder.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

TEST(PlayerFolder, isUnderXdgDataHomeOnlyWhenThatIsAbsolute)
{
    EXPECT_EQ(amorra::playerFolder("/srv/data/", "/home/ann"), "/srv/data/amorra");
    EXPECT_EQ(amorra::playerFolder("relative/data", "/home/ann"), "/home/ann/.local/share/amorra");
    EXPECT_EQ(amorra::playerFolder(nullptr, nullptr), "");
}

TEST(PlayerFolder, firstStartSeedsItAndLaterStartsKeepThePlayersFiles)
{
    const std::string on("\1\0", 2), off("\0\0", 2);
    // The player's tuteshow and guide before and after the start ("" when absent).
    const struct { const char *name; bool blocked; std::string tuteshow, guide, installed, tuteshowAfter, guideAfter, problem; } rows[] = {
        {"first start", false, "", "", "guide", on, "guide", ""},
        {"guide switched off, own notes", false, off, "own notes", "guide", off, "own notes", ""},
        {"guide not installed", false, "", "", "", on, "", "quick start guide is not installed"},
        {"a file where the folder belongs", true, "", "", "guide", "", "", "cannot create your data folder"},
    };
    const fs::path started = fs::current_path();
    for (const auto &r : rows) {
        SCOPED_TRACE(r.name);
        const amorra::testing::TempDir tmp;
        const std::string folder = tmp.file("data/amorra");
        if (r.blocked)
            tmp.write("data", "");
        if (!r.tuteshow.empty() && fs::create_directories(folder)) {
            tmp.write("data/amorra/tuteshow", r.tuteshow);
            tmp.write("data/amorra/qsguide.rtf", r.guide);
        }
        if (!r.installed.empty())
            tmp.write("installed.rtf", r.installed);
        const amorra::FolderOutcome out = amorra::enterPlayerFolder(folder, tmp.file("installed.rtf"));
        EXPECT_EQ(fs::current_path(), r.blocked ? started : fs::path(folder));
        fs::current_path(started);
        EXPECT_EQ(out.entered, !r.blocked);
        const std::string said = out.problems.empty() ? "" : out.problems.front();
        EXPECT_TRUE(said.find(r.problem) != std::string::npos && said.empty() == r.problem.empty()) << said;
        EXPECT_EQ(tmp.read("data/amorra/tuteshow"), r.tuteshowAfter);
        EXPECT_EQ(tmp.read("data/amorra/qsguide.rtf"), r.guideAfter);
        const long files = fs::is_directory(folder) ? std::distance(fs::directory_iterator(folder), {}) : 0;
        EXPECT_EQ(files, !r.tuteshowAfter.empty() + !r.guideAfter.empty()) << "a half-written file is left";
    }
}
