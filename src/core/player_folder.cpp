#include "player_folder.h"

#include "data_files.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace amorra {

namespace fs = std::filesystem;

namespace {

// Far more than the guide needs; a FIFO or device in its place stops here.
constexpr size_t kGuideLimit = 1 << 20;

std::string failure(const std::string &what, const std::error_code &ec)
{
    return ec ? what + ": " + ec.message() : what;
}

// Written through a temporary name, so an interrupted first start leaves no
// half file that would never be replaced.
void seed(const fs::path &file, const std::string &bytes, std::vector<std::string> &problems)
{
    std::error_code ec;
    if (fs::symlink_status(file, ec).type() != fs::file_type::not_found)
        return;
    if (!replaceFileContents(file.string(), bytes))
        problems.push_back("cannot write " + file.string());
}

} // namespace

std::string programFolder()
{
    std::error_code ec;
    const fs::path self = fs::read_symlink("/proc/self/exe", ec);
    return ec ? std::string() : self.parent_path().string();
}

std::string locateAssetDir(const std::string &programDir)
{
    const fs::path dir(programDir);
    const fs::path installed = (dir / "../share/games/amorra").lexically_normal();
    std::error_code ec;
    if (fs::is_directory(installed, ec))
        return installed.string();
    return (dir / "assets").lexically_normal().string();
}

std::string playerFolder(const char *xdgDataHome, const char *home)
{
    fs::path root;
    if (xdgDataHome && xdgDataHome[0] == '/')
        root = xdgDataHome;
    else if (home && home[0] != '\0')
        root = fs::path(home) / ".local/share";
    else
        return {};
    return (root / "amorra").lexically_normal().string();
}

FolderOutcome enterPlayerFolder(const std::string &folder, const std::string &guide)
{
    FolderOutcome out;
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec || !fs::is_directory(folder)) {
        out.problems.push_back(failure("cannot create your data folder " + folder, ec));
        return out;
    }
    // The Top 20 could never be saved: better say so now than after a won game.
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        out.problems.push_back("cannot write to your data folder " + folder);
        return out;
    }
    const fs::path dir(folder);
    // 1 as a 16-bit little-endian number: the guide opens at the first start.
    seed(dir / "tuteshow", std::string("\1\0", 2), out.problems);
    if (fs::symlink_status(dir / "qsguide.rtf", ec).type() == fs::file_type::not_found) {
        if (const auto text = readFileBytes(guide, kGuideLimit))
            seed(dir / "qsguide.rtf", *text, out.problems);
        else
            out.problems.push_back("the quick start guide is not installed: " + guide);
    }
    fs::current_path(dir, ec);
    if (ec) {
        out.problems.insert(out.problems.begin(), failure("cannot enter your data folder " + folder, ec));
        return out;
    }
    out.entered = true;
    return out;
}

} // namespace amorra
