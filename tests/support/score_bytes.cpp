#include "score_bytes.h"

#include <cstring>

namespace amorra::testing {

std::string scoreRecord(const std::string &name, double score, int days, std::int64_t spentUnits)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &score, sizeof bits);
    std::string out = name.substr(0, 20);
    out.resize(20, ' ');
    // Little-endian: the 8-byte score, the 2-byte days, the 8-byte money.
    for (const auto &[value, size] : {std::pair{bits, 8}, {static_cast<std::uint16_t>(days), 2}, {static_cast<std::uint64_t>(spentUnits), 8}})
        for (int i = 0; i < size; ++i)
            out += static_cast<char>((value >> (8 * i)) & 0xFF);
    return out;
}

std::string dollarRecord(const std::string &name, double score, int days, std::int64_t dollars)
{
    return scoreRecord(name, score, days, dollars * 10000);
}

std::string emptyScoreRecord()
{
    return std::string(20, ' ') + std::string(18, '\0');
}

} // namespace amorra::testing
