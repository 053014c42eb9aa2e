#pragma once

#include <string>
#include <vector>

namespace amorra {

// The folder of the running program, from the kernel's link to it, so a
// symlink such as /usr/local/bin/amorra still leads to the real place.
// Empty when it cannot be told.
std::string programFolder();

// Where the pictures, sounds, help and guide are: the installed share
// folder seen from the games folder (/usr/games -> /usr/share/games/amorra),
// else an "assets" folder beside the program (the build tree links one).
// When neither exists, the latter, so every picture is simply missing.
std::string locateAssetDir(const std::string &programDir);

// $XDG_DATA_HOME/amorra, or $HOME/.local/share/amorra when XDG_DATA_HOME is
// unset, empty or relative (the XDG rules call relative ones invalid).
// Empty when neither variable gives a folder. Either argument may be null.
std::string playerFolder(const char *xdgDataHome, const char *home);

// The game opens its files (last, tuteshow, Scores, qsguide.rtf) by their
// bare names, so it runs inside the player's folder. This makes the folder,
// seeds what a first start needs when it is absent (tuteshow holding 1, so
// the quick start guide opens once, and a copy of `guide`), then enters it.
struct FolderOutcome
{
    bool entered = false;
    // One line each, for the player; when `entered` is false the first one
    // says why the game cannot start.
    std::vector<std::string> problems;
};
FolderOutcome enterPlayerFolder(const std::string &folder, const std::string &guide);

} // namespace amorra
