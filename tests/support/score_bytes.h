#pragma once

#include <cstdint>
#include <string>

namespace amorra::testing {

// One 38-byte record of the Scores file. `name` is the stored bytes
// (Windows-1252), padded here with spaces to 20; `spentUnits` is the money
// field as stored, ten-thousandths of a dollar.
std::string scoreRecord(const std::string &name, double score, int days, std::int64_t spentUnits);
// The same with whole dollars, as the game itself writes them.
std::string dollarRecord(const std::string &name, double score, int days, std::int64_t dollars);
// An empty slot: 20 spaces and 18 zero bytes.
std::string emptyScoreRecord();

} // namespace amorra::testing
