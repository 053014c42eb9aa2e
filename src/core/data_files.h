#pragma once

#include "numbers.h"

#include <cstddef>
#include <optional>
#include <string>
#include <sys/types.h>

namespace amorra {

// The system calls through which the game reads and writes its files.
// The real one passes them on; a test can make any of them fail.
class FileSystem
{
public:
    virtual ~FileSystem() = default;
    virtual int open(const char *path, int flags, mode_t mode);
    virtual ssize_t read(int fd, void *buffer, size_t size);
    virtual ssize_t write(int fd, const void *bytes, size_t size);
    virtual int fsync(int fd);
    virtual int close(int fd);
    virtual int rename(const char *from, const char *to);
};

FileSystem &systemFiles();

enum class ReadOutcome
{
    Read,
    Missing, // no file by that name
    Failed,  // there, but not a plain file or not readable
};

struct FileRead
{
    ReadOutcome outcome = ReadOutcome::Failed;
    std::string bytes;   // at most the limit asked for
    bool longer = false; // the file held more than that
};

// Reads at most `limit` bytes of a plain file (a link to one will do).
// Anything else standing there (a folder, a FIFO, a device) is refused
// without opening it, so reading never blocks and never runs on forever.
FileRead readPlayerFile(const std::string &path, size_t limit, FileSystem &files = systemFiles());

// The same, for a caller that only asks whether there was a file to read.
std::optional<std::string> readFileBytes(const std::string &path, size_t limit);

// Creates an empty file when none exists; false when it cannot.
bool ensureFileExists(const std::string &path);

// Opens a plain file for reading as `readPlayerFile` does; -1 when it
// cannot. The caller closes it.
int openPlayerFile(const std::string &path);

// Replaces a file's contents so that a reader sees either the old file or
// the new one, whole, even if the game dies half way: the bytes go to a
// fresh temporary file beside it, reach the disk, and are renamed over it.
// A link stays a link (its target gets the bytes); the mode is kept.
// False, with the old file untouched, when any step fails.
bool replaceFileContents(const std::string &path, const std::string &bytes, FileSystem &files = systemFiles());

// Removes the temporary files that games killed while saving `path` left
// beside it. Only while holding its FolderLock: then no game is writing one.
void removeLeftoverSaves(const std::string &path);

// While alive, holds the lock of the folder the file lies in (after its
// links), so that two games saving one file take turns. Waits a little
// for another game to finish, never for long.
class FolderLock
{
public:
    explicit FolderLock(const std::string &path);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    bool held() const { return m_fd >= 0; }

private:
    int m_fd = -1;
};

// File "last": one 20-byte record, the name space-padded, Windows-1252.
// Missing, empty or short files read as an empty name.
std::string readLastName(const std::string &path);
bool writeLastName(const std::string &path, const std::string &name);
std::string lastNameRecord(const std::string &name); // the 20 bytes written
std::string lastNameFromRecord(const std::string &bytes); // what a record reads as

// File "tuteshow": one signed 16-bit little-endian value; 1 shows the guide.
i16 readTuteShow(const std::string &path);
bool writeTuteShow(const std::string &path, i16 value);
i16 tuteShowFromBytes(const std::string &bytes);

} // namespace amorra
