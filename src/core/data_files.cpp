#include "data_files.h"

#include "cp1252.h"
#include "setup_rules.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdint>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace amorra {

namespace {

using Clock = std::chrono::steady_clock;

// Another game holds the folder only while it writes 798 bytes; a lock
// held longer than this belongs to a game that hangs, and is not waited for.
constexpr auto kLongestLockWait = std::chrono::seconds(2);
constexpr auto kLockPoll = std::chrono::milliseconds(5);
constexpr size_t kReadChunk = 64 * 1024;

// Follows a chain of links to the file they name; a path that is no link
// is its own target. A loop is cut short and fails later, when opened.
std::string resolveLinks(std::string path)
{
    for (int hops = 0; hops < 40; ++hops) {
        char target[PATH_MAX];
        const ssize_t n = ::readlink(path.c_str(), target, sizeof target);
        if (n <= 0 || static_cast<size_t>(n) >= sizeof target)
            return path;
        std::string next(target, static_cast<size_t>(n));
        const auto slash = path.rfind('/');
        if (next[0] != '/' && slash != std::string::npos)
            next.insert(0, path, 0, slash + 1);
        path = next;
    }
    return path;
}

std::string folderOf(const std::string &path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Unique enough that two games never pick one name at once; O_EXCL makes
// sure of it.
std::string randomTag()
{
    static std::atomic<std::uint64_t> counter{0};
    std::uint64_t x = static_cast<std::uint64_t>(Clock::now().time_since_epoch().count()) ^
                      (static_cast<std::uint64_t>(::getpid()) << 40) ^ (++counter * 0x9E3779B97F4A7C15ULL);
    x ^= x >> 31;
    x *= 0xBF58476D1CE4E5B9ULL;
    x ^= x >> 29;
    static const char digits[] = "0123456789abcdefghijklmnopqrstuv";
    std::string tag;
    for (int i = 0; i < 10; ++i, x >>= 5)
        tag += digits[x & 31];
    return tag;
}

// Opens for reading only a plain file: the kind of thing standing there is
// asked first, so a FIFO or a device is never opened. Should one be swapped
// in between, the open does not wait on it and the second look refuses it.
// (A plain file renamed over the first is fine: that is how files are saved.)
int openChecked(const std::string &path, FileSystem &files, ReadOutcome &outcome)
{
    outcome = ReadOutcome::Failed;
    struct stat before{};
    if (::stat(path.c_str(), &before) != 0) {
        if (errno == ENOENT)
            outcome = ReadOutcome::Missing;
        return -1;
    }
    if (!S_ISREG(before.st_mode))
        return -1;
    const int fd = files.open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0);
    if (fd < 0) {
        if (errno == ENOENT)
            outcome = ReadOutcome::Missing;
        return -1;
    }
    struct stat opened{};
    if (::fstat(fd, &opened) != 0 || !S_ISREG(opened.st_mode)) {
        files.close(fd);
        return -1;
    }
    outcome = ReadOutcome::Read;
    return fd;
}

bool writeAll(FileSystem &files, int fd, const std::string &bytes)
{
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = files.write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

} // namespace

int FileSystem::open(const char *path, int flags, mode_t mode)
{
    return ::open(path, flags, mode);
}

ssize_t FileSystem::read(int fd, void *buffer, size_t size)
{
    return ::read(fd, buffer, size);
}

ssize_t FileSystem::write(int fd, const void *bytes, size_t size)
{
    return ::write(fd, bytes, size);
}

int FileSystem::fsync(int fd)
{
    return ::fsync(fd);
}

int FileSystem::close(int fd)
{
    return ::close(fd);
}

int FileSystem::rename(const char *from, const char *to)
{
    return ::rename(from, to);
}

FileSystem &systemFiles()
{
    static FileSystem system;
    return system;
}

FileRead readPlayerFile(const std::string &path, size_t limit, FileSystem &files)
{
    FileRead result;
    const int fd = openChecked(path, files, result.outcome);
    if (fd < 0)
        return result;
    // One byte more than asked tells a file that is too long.
    const size_t wanted = limit + 1;
    std::string bytes;
    size_t got = 0;
    for (;;) {
        if (got == bytes.size()) {
            if (got == wanted)
                break;
            bytes.resize(std::min(wanted, got + kReadChunk));
        }
        const ssize_t n = files.read(fd, &bytes[got], bytes.size() - got);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            files.close(fd);
            return FileRead{};
        }
        if (n == 0)
            break;
        got += static_cast<size_t>(n);
    }
    files.close(fd);
    result.longer = got > limit;
    bytes.resize(std::min(got, limit));
    result.bytes = std::move(bytes);
    return result;
}

std::optional<std::string> readFileBytes(const std::string &path, size_t limit)
{
    FileRead file = readPlayerFile(path, limit);
    if (file.outcome != ReadOutcome::Read)
        return std::nullopt;
    return std::move(file.bytes);
}

int openPlayerFile(const std::string &path)
{
    ReadOutcome outcome{};
    return openChecked(path, systemFiles(), outcome);
}

bool ensureFileExists(const std::string &path)
{
    // O_EXCL: whatever already stands there is not opened, only looked at.
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOCTTY | O_CLOEXEC, 0666);
    if (fd >= 0)
        return ::close(fd) == 0;
    struct stat st{};
    return errno == EEXIST && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool replaceFileContents(const std::string &path, const std::string &bytes, FileSystem &files)
{
    const std::string target = resolveLinks(path);
    struct stat old{};
    const bool exists = ::lstat(target.c_str(), &old) == 0;
    if ((exists && !S_ISREG(old.st_mode)) || (!exists && errno != ENOENT))
        return false;

    std::string temp;
    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        temp = target + "." + randomTag() + ".saving";
        fd = files.open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                        exists ? (old.st_mode & 0777) : 0666);
        if (fd < 0 && errno != EEXIST)
            return false;
    }
    if (fd < 0)
        return false;
    bool ok = true;
    if (exists) {
        // The owner first: changing it may clear mode bits.
        // Only root may give a file away; anyone else keeps it as his own.
        if (old.st_uid != ::geteuid() || old.st_gid != ::getegid()) {
            [[maybe_unused]] const int given = ::fchown(fd, old.st_uid, old.st_gid);
        }
        ok = ::fchmod(fd, old.st_mode & 07777) == 0;
    }
    ok = ok && writeAll(files, fd, bytes) && files.fsync(fd) == 0;
    ok = (files.close(fd) == 0) && ok;
    ok = ok && files.rename(temp.c_str(), target.c_str()) == 0;
    if (!ok) {
        ::unlink(temp.c_str());
        return false;
    }
    // The rename itself reaches the disk with the folder.
    const int folder = ::open(folderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        files.fsync(folder);
        ::close(folder);
    }
    return true;
}

void removeLeftoverSaves(const std::string &path)
{
    const std::string target = resolveLinks(path);
    const std::string prefix = target.substr(target.rfind('/') + 1) + ".";
    std::error_code ec;
    for (const auto &entry : std::filesystem::directory_iterator(folderOf(target), ec)) {
        const std::string name = entry.path().filename().string();
        // Exactly the names replaceFileContents gives: prefix, ten characters, ".saving".
        if (name.size() == prefix.size() + 17 && name.compare(0, prefix.size(), prefix) == 0 &&
            name.compare(name.size() - 7, 7, ".saving") == 0 && entry.is_regular_file(ec))
            std::filesystem::remove(entry.path(), ec);
    }
}

FolderLock::FolderLock(const std::string &path)
{
    m_fd = ::open(folderOf(resolveLinks(path)).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_fd < 0)
        return;
    const Clock::time_point giveUp = Clock::now() + kLongestLockWait;
    while (::flock(m_fd, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || Clock::now() >= giveUp) {
            ::close(m_fd);
            m_fd = -1;
            return;
        }
        std::this_thread::sleep_for(kLockPoll);
    }
}

FolderLock::~FolderLock()
{
    if (m_fd >= 0)
        ::close(m_fd); // closing lets the lock go
}

std::string lastNameRecord(const std::string &name)
{
    std::string bytes = toCp1252(name);
    // Trailing spaces end up in the padding anyway.
    bytes.erase(0, bytes.find_first_not_of(' '));
    bytes.resize(kNameLength, ' ');
    return bytes;
}

std::string lastNameFromRecord(const std::string &bytes)
{
    if (bytes.size() < static_cast<size_t>(kNameLength))
        return {};
    // Only the padding goes: spaces the name begins with are the player's.
    std::string name = fromCp1252(bytes.substr(0, kNameLength));
    const auto last = name.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : name.substr(0, last + 1);
}

std::string readLastName(const std::string &path)
{
    ensureFileExists(path);
    return lastNameFromRecord(readPlayerFile(path, kNameLength).bytes);
}

bool writeLastName(const std::string &path, const std::string &name)
{
    return replaceFileContents(path, lastNameRecord(name));
}

i16 tuteShowFromBytes(const std::string &bytes)
{
    if (bytes.size() < 2)
        return 0;
    const auto lo = static_cast<unsigned char>(bytes[0]);
    const auto hi = static_cast<unsigned char>(bytes[1]);
    return static_cast<i16>(static_cast<std::uint16_t>(lo | (hi << 8)));
}

i16 readTuteShow(const std::string &path)
{
    ensureFileExists(path);
    return tuteShowFromBytes(readPlayerFile(path, 2).bytes);
}

bool writeTuteShow(const std::string &path, i16 value)
{
    const auto u = static_cast<std::uint16_t>(value);
    std::string bytes{static_cast<char>(u & 0xFF), static_cast<char>(u >> 8)};
    return replaceFileContents(path, bytes);
}

} // namespace amorra
