#include "score_table.h"

#include "core/cp1252.h"
#include "core/data_files.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace amorra {

namespace {
constexpr int kNameBytes = 20;
constexpr std::int64_t kCurrencyScale = 10000; // the file keeps money to 1/10,000 dollar

std::uint64_t readLittleEndian(const std::string &bytes, size_t at, int size)
{
    std::uint64_t value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<size_t>(i)]);
    return value;
}

void appendLittleEndian(std::string &out, std::uint64_t value, int size)
{
    for (int i = 0; i < size; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::string trimmed(const std::string &s, bool leading)
{
    const auto last = s.find_last_not_of(' ');
    if (last == std::string::npos)
        return {};
    const auto first = leading ? s.find_first_not_of(' ') : 0;
    return s.substr(first, last - first + 1);
}

std::string wholeNumber(double value)
{
    char buffer[400]; // room for the largest double written out in full
    std::snprintf(buffer, sizeof buffer, "%.0f", value);
    return buffer;
}

ScoreRecord decodeRecord(const std::string &bytes, size_t at)
{
    ScoreRecord r;
    r.name = bytes.substr(at, kNameBytes);
    const std::uint64_t scoreBits = readLittleEndian(bytes, at + 20, 8);
    std::memcpy(&r.score, &scoreBits, sizeof r.score);
    r.days = static_cast<i16>(static_cast<std::uint16_t>(readLittleEndian(bytes, at + 28, 2)));
    r.spent = static_cast<std::int64_t>(readLittleEndian(bytes, at + 30, 8));
    return r;
}

void encodeRecord(std::string &out, const ScoreRecord &r)
{
    std::string name = r.name;
    name.resize(kNameBytes, ' ');
    out += name;
    std::uint64_t scoreBits = 0;
    std::memcpy(&scoreBits, &r.score, sizeof r.score);
    appendLittleEndian(out, scoreBits, 8);
    appendLittleEndian(out, static_cast<std::uint16_t>(r.days), 2);
    appendLittleEndian(out, static_cast<std::uint64_t>(r.spent), 8);
}

// Dollars as the file keeps them; clamped so that the scaling cannot overflow.
std::int64_t storedMoney(std::int64_t dollars)
{
    constexpr std::int64_t kMaxDollars = std::numeric_limits<std::int64_t>::max() / kCurrencyScale;
    return std::clamp(dollars, -kMaxDollars, kMaxDollars) * kCurrencyScale;
}

} // namespace

std::string encodeScoreFile(const ScoreTable &table)
{
    std::string out;
    out.reserve(kScoreFileSize);
    for (int n = 1; n <= kScoreSlots; ++n)
        encodeRecord(out, table[static_cast<size_t>(n)]);
    return out;
}

void overlayScoreFile(const std::string &bytes, ScoreTable &table)
{
    for (int n = 1; n <= kScoreSlots; ++n) {
        const size_t at = static_cast<size_t>(n - 1) * kScoreRecordSize;
        if (at + kScoreRecordSize > bytes.size())
            break; // a short file: the rest counts as empty
        const ScoreRecord r = decodeRecord(bytes, at);
        // A damaged score (NaN, infinite) is as good as none.
        if (std::isfinite(r.score) && r.score > 0)
            table[static_cast<size_t>(n)] = r;
    }
}

std::string recordName(const std::string &utf8)
{
    std::string name = toCp1252(utf8);
    name.resize(kNameBytes, ' ');
    return name;
}

bool LoadScores(const std::string &path, ScoreTable &table, FileSystem &files)
{
    const FileRead file = readPlayerFile(path, kScoreFileSize, files);
    overlayScoreFile(file.bytes, table);
    return file.outcome != ReadOutcome::Failed;
}

void SortScores(ScoreTable &table)
{
    // Selection sort, taking the last of equal scores first: a new result
    // in the intake slot ranks above the entries it ties.
    ScoreTable sorted;
    for (int i = 1; i <= kScoreSlots; ++i) {
        double best = 0;
        int k = 1;
        for (int j = 1; j <= kScoreSlots; ++j) {
            if (table[static_cast<size_t>(j)].score >= best) {
                best = table[static_cast<size_t>(j)].score;
                k = j;
            }
        }
        sorted[static_cast<size_t>(i)] = table[static_cast<size_t>(k)];
        table[static_cast<size_t>(k)] = ScoreRecord{};
    }
    for (int i = 1; i <= kScoreSlots; ++i)
        table[static_cast<size_t>(i)] = sorted[static_cast<size_t>(i)];
}

bool SaveScores(const std::string &path, const ScoreTable &table, FileSystem &files)
{
    return replaceFileContents(path, encodeScoreFile(table), files);
}

HighScoreScreenData FillGrid(const ScoreTable &table)
{
    HighScoreScreenData data;
    data.headers = {"", "Name", "Total Days  ", "Money Spent ", "Score  "};
    data.rows.resize(kShownScores);
    for (int n = 1; n <= kShownScores; ++n) {
        const ScoreRecord &r = table[static_cast<size_t>(n)];
        if (r.occupied())
            data.rows[static_cast<size_t>(n) - 1].cells = {toDecimal(n), fromCp1252(r.name), toDecimal(r.days) + " Days",
                                                           "$" + toDecimal(r.spent / kCurrencyScale),
                                                           wholeNumber(r.score)};
    }
    if (table[1].occupied())
        data.champion = trimmed(fromCp1252(table[1].name), true);
    return data;
}

void MarkNewEntry(GameResult &result, const ScoreTable &table, HighScoreScreenData *data)
{
    if (result.result_pending && data) {
        const std::string name = trimmed(recordName(result.result_name), false);
        for (int n = 1; n <= kShownScores; ++n) {
            const ScoreRecord &r = table[static_cast<size_t>(n)];
            if (trimmed(r.name, false) == name && r.score == result.result_score)
                data->rows[static_cast<size_t>(n) - 1].red = true;
        }
    }
    result.result_pending = false;
}

HighScoreScreenData openHighScores(GameResult &result, ScoreTable &table, const std::string &path,
                                   FileSystem &files)
{
    // Held from reading to writing: a game that saved in between would
    // otherwise lose its row to ours.
    const FolderLock lock(path);
    if (lock.held())
        removeLeftoverSaves(path);
    const bool loaded = LoadScores(path, table, files);
    if (result.result_pending) {
        ScoreRecord &intake = table[kScoreSlots];
        intake.name = recordName(result.result_name);
        intake.score = result.result_score;
        intake.days = result.result_days;
        intake.spent = storedMoney(result.result_spent);
    }
    SortScores(table);
    HighScoreScreenData data = FillGrid(table);
    MarkNewEntry(result, table, &data);
    data.loadFailed = !loaded;
    data.saveFailed = loaded && !(lock.held() && SaveScores(path, table, files));
    MarkNewEntry(result, table, nullptr);
    return data;
}

} // namespace amorra
