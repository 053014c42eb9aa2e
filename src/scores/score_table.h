#pragma once

#include "core/data_files.h"
#include "core/game_state.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace amorra {

constexpr int kScoreSlots = 21;   // 20 shown, the 21st is the intake slot
constexpr int kShownScores = 20;
constexpr int kScoreRecordSize = 38;
constexpr int kScoreFileSize = kScoreSlots * kScoreRecordSize; // 798

// The table's file, by its bare name: it lives in the working directory.
inline constexpr const char *kScoresFileName = "Scores";

// A record is kept exactly as the file holds it, so that one the game only
// reads and sorts is written back byte for byte.
struct ScoreRecord
{
    std::string name = std::string(20, ' '); // the 20 stored bytes, Windows-1252, padding included
    double score = 0;
    i16 days = 0;
    std::int64_t spent = 0; // ten-thousandths of a dollar, as stored
    bool occupied() const { return score > 0; }
};

// Slots 1..21; index 0 is unused so slot numbers index directly.
using ScoreTable = std::array<ScoreRecord, kScoreSlots + 1>;

// The 38-byte records of the Scores file.
std::string encodeScoreFile(const ScoreTable &table);
// Overlays the occupied records of `bytes` onto `table`; missing or short
// records leave their slots unchanged.
void overlayScoreFile(const std::string &bytes, ScoreTable &table);

// The stored bytes of a player's name: Windows-1252, cut or padded to 20.
std::string recordName(const std::string &utf8);

// Overlays the file's occupied records; a missing file leaves the table as
// it was. False when the file is there but could not be read.
bool LoadScores(const std::string &path, ScoreTable &table, FileSystem &files = systemFiles());
void SortScores(ScoreTable &table);
// Writes all 21 records so that a reader sees the old file or the new one,
// whole; false when it failed, in which case the old file is untouched.
bool SaveScores(const std::string &path, const ScoreTable &table, FileSystem &files = systemFiles());

// What the Top 20 window shows for one rank.
struct ScoreRow
{
    std::array<std::string, 5> cells; // rank, name, days, money, score; all "" for an empty slot
    bool red = false;                 // the game just won
};

struct HighScoreScreenData
{
    std::array<std::string, 5> headers; // "", "Name", "Total Days  ", "Money Spent ", "Score  "
    std::vector<ScoreRow> rows;         // ranks 1..20
    std::string champion;               // slot 1's name, trimmed
    bool loadFailed = false; // so nothing was saved: a file that could not be read is never written over
    bool saveFailed = false;
};

// The grid's texts for ranks 1..20 and the champion's name; no row red yet.
HighScoreScreenData FillGrid(const ScoreTable &table);

// Marks red every shown row holding the pending result (when `data` is
// given), then clears `result_pending` in any case.
void MarkNewEntry(GameResult &result, const ScoreTable &table, HighScoreScreenData *data);

// Opening the Top 20 window: load, take in a pending result, sort, fill,
// save, mark. `table` lives for the whole program run. The folder is locked
// from reading to writing, so two games ending at once both keep their rows.
HighScoreScreenData openHighScores(GameResult &result, ScoreTable &table, const std::string &path,
                                   FileSystem &files = systemFiles());

} // namespace amorra
