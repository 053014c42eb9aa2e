#pragma once

#include <string>
#include <vector>

namespace amorra::lab {

// The q-quantile (0 <= q <= 1) of `values`, interpolating linearly between
// the two nearest ranks (the usual "type 7" definition, so q = 0.5 is the
// ordinary median). 0 for an empty list.
double quantile(std::vector<double> values, double q);
double mean(const std::vector<double> &values);

enum class Outcome { Won, LostHeart, LostMonth, Stuck };
const char *outcomeName(Outcome outcome);

// One complete game as the lab saw it.
struct GameRow
{
    std::string strategy;
    int game = 0;
    unsigned long long seed = 0;
    Outcome outcome = Outcome::Stuck;
    double score = 0; // 0 unless won
    int days = 0;
    int presses = 0;
    int spent = 0;
    int clicks = 0;
};

struct Summary
{
    std::string strategy;
    int games = 0, wins = 0, lostHeart = 0, lostMonth = 0, stuck = 0;
    double medianScore = 0, p90Score = 0; // over won games
    double meanDays = 0, meanPresses = 0, meanSpent = 0;
};

// One summary per strategy, in the order the strategies first appear.
std::vector<Summary> summarise(const std::vector<GameRow> &rows);

// The summaries as an aligned text table.
std::string formatTable(const std::vector<Summary> &summaries);

// The raw rows, one line each, with a header line.
std::string formatCsv(const std::vector<GameRow> &rows);

} // namespace amorra::lab
