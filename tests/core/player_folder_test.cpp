#include "core/player_folder.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace amorra;
namespace fs = std::filesystem;

TEST(PlayerFolder, isUnderXdgDataHomeOnlyWhenThatIsAbsolute)
{
    const struct { const char *xdg, *home, *expected; } rows[] = {
        {"/srv/data", "/home/ann", "/srv/data/amorra"},
        {"/srv/data/", "/home/ann", "/srv/data/amorra"},
        {nullptr, "/home/ann", "/home/ann/.local/share/amorra"},
        {"", "/home/ann", "/home/ann/.local/share/amorra"},
        {"relative/data", "/home/ann", "/home/ann/.local/share/amorra"},
        {"relative/data", nullptr, ""},
        {nullptr, "", ""},
    };
    for (const auto &r : rows) {
        SCOPED_TRACE(std::string(r.xdg ? r.xdg : "(unset)") + " / " + (r.home ? r.home : "(unset)"));
        EXPECT_EQ(playerFolder(r.xdg, r.home), r.expected);
    }
}

TEST(PlayerFolder, firstStartSeedsItAndLaterStartsKeepThePlayersFiles)
{
    const struct {
        const char *name;
        const char *tuteshow, *guide; // already there (both or neither)
        bool installedGuide, blocked;
        bool entered;
        std::string tuteshowAfter, guideAfter, problem;
    } rows[] = {
        {"first start", nullptr, nullptr, true, false, true, {"\1\0", 2}, "installed guide", ""},
        {"guide switched off, own notes", "\0\0", "my notes", true, false, true, {"\0\0", 2}, "my notes", ""},
        {"guide not installed", nullptr, nullptr, false, false, true, {"\1\0", 2}, "", "guide is not installed"},
        {"a file where the folder belongs", nullptr, nullptr, true, true, false, "", "", "cannot create your data folder"},
    };
    const fs::path started = fs::current_path();
    for (const auto &r : rows) {
        SCOPED_TRACE(r.name);
        const amorra::testing::TempDir tmp;
        const std::string folder = tmp.file(r.blocked ? "data/amorra" : "deep/data/amorra");
        if (r.blocked)
            tmp.write("data", "");
        if (r.tuteshow) {
            fs::create_directories(folder);
            tmp.write("deep/data/amorra/tuteshow", std::string(r.tuteshow, 2));
            tmp.write("deep/data/amorra/qsguide.rtf", r.guide);
        }
        if (r.installedGuide)
            tmp.write("installed.rtf", "installed guide");

        const FolderOutcome out = enterPlayerFolder(folder, tmp.file("installed.rtf"));
        EXPECT_EQ(out.entered, r.entered);
        EXPECT_EQ(fs::current_path(), out.entered ? fs::path(folder) : started);
        fs::current_path(started);
        const std::string said = out.problems.empty() ? "" : out.problems.front();
        EXPECT_EQ(said.empty(), r.problem.empty()) << said;
        EXPECT_NE(said.find(r.problem), std::string::npos) << said;
        if (r.entered) {
            EXPECT_EQ(tmp.read("deep/data/amorra/tuteshow"), r.tuteshowAfter);
            EXPECT_EQ(tmp.read("deep/data/amorra/qsguide.rtf"), r.guideAfter);
            EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), r.guideAfter.empty() ? 1 : 2) << "a temporary file is left";
        }
    }
}

TEST(PlayerFolder, gameFilesAreTheInstalledShareElseTheAssetsBesideTheProgram)
{
    const amorra::testing::TempDir tmp;
    fs::create_directories(tmp.file("usr/games"));
    fs::create_directories(tmp.file("usr/share/games/amorra"));
    fs::create_directories(tmp.file("build/src/app"));
    EXPECT_EQ(locateAssetDir(tmp.file("usr/games")), tmp.file("usr/share/games/amorra"));
    EXPECT_EQ(locateAssetDir(tmp.file("build/src/app")), tmp.file("build/src/app/assets"));
}
