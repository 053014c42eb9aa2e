// Whatever the Scores file holds, the Top 20 table must come out sorted, with
// plain printable cells, and save back as exactly 798 bytes that read the same,
// every record it kept unchanged.
#include "scores/score_table.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace amorra;

namespace {
void check(bool ok)
{
    if (!ok)
        std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    ScoreTable table{};
    overlayScoreFile(bytes, table);
    SortScores(table);
    for (int i = 2; i <= kScoreSlots; ++i)
        check(!(table[i].score > table[i - 1].score));

    const HighScoreScreenData grid = FillGrid(table);
    check(grid.rows.size() == static_cast<size_t>(kShownScores));
    for (const auto &row : grid.rows) {
        for (const auto &cell : row.cells)
            for (unsigned char c : cell)
                check(c >= 0x20 && c != 0x7F);
        // The score column is plain digits, however large a damaged file made it.
        check(row.cells[4].find_first_not_of("0123456789") == std::string::npos);
    }

    const std::string saved = encodeScoreFile(table);
    check(saved.size() == static_cast<size_t>(kScoreFileSize));
    // A record the game keeps goes back to the file as it came, byte for byte.
    for (size_t at = 0; at + kScoreRecordSize <= std::min<size_t>(bytes.size(), kScoreFileSize); at += kScoreRecordSize) {
        ScoreTable one{};
        overlayScoreFile(bytes.substr(at, kScoreRecordSize), one);
        check(!one[1].occupied() || saved.find(bytes.substr(at, kScoreRecordSize)) != std::string::npos);
    }
    ScoreTable again{};
    overlayScoreFile(saved, again);
    check(encodeScoreFile(again) == saved);
    return 0;
}
