#pragma once

#include <string>

namespace amorra {

// The game's files keep names in Windows-1252, one byte a character.
// In memory every text is UTF-8.

// Characters with no Windows-1252 byte (and broken UTF-8) become '?'.
std::string toCp1252(const std::string &utf8);

// Control bytes and the five unassigned bytes become '?', NUL a space,
// so a damaged file never puts invisible or garbled text on screen.
std::string fromCp1252(const std::string &bytes);

} // namespace amorra
