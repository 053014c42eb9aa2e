#include "score_bytes.h"

#include <cstring>

namespace amorra::testing {

namespace {
std::string littleEndian(std::uint64_t value, int size)
{
    std::string out;
    for (int i = 0; i < size; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
    return out;
}
} // namespace

std::string scoreRecord(const std::string &name, double score, int days, std::int64_t spentUnits)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &score, sizeof bits);
    std::string padded = name.substr(0, 20);
    padded.resize(20, ' ');
    return padded + littleEndian(bits, 8) + littleEndian(static_cast<std::uint16_t>(days), 2) +
           littleEndian(static_cast<std::uint64_t>(spentUnits), 8);
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
