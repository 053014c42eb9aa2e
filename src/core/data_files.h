#pragma once

#include "numbers.h"

#include <optional>
#include <string>

namespace amorra {

// Reads at most `limit` bytes; nothing when the path is not a readable file.
std::optional<std::string> readFileBytes(const std::string &path, size_t limit);

// Creates an empty file when none exists; false when it cannot.
bool ensureFileExists(const std::string &path);

// Writes a file so that it is either wholly replaced or left as it was:
// the bytes go to a temporary file beside it, which is then renamed over it.
bool replaceFileContents(const std::string &path, const std::string &bytes);

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
