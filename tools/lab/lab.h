#pragma once

#include "player.h"
#include "stats.h"
#include "strategies.h"

#include <cstdint>
#include <string>
#include <vector>

namespace amorra::lab {

struct LabConfig
{
    int games = 1000;          // per strategy
    std::uint64_t seed = 1;
    Ratings ratings;
    std::vector<std::string> strategies = strategyNames();
    int clickLimit = 20000;    // a game still running after this many clicks is "stuck"
};

struct LabRun
{
    std::vector<GameRow> rows;
    double seconds = 0; // processor time spent playing, on this one thread
    std::vector<double> secondsPerStrategy; // in the order of the strategies played
};

// Game `game` of a run with seed `seed` gets its own dice from this, the same
// for every strategy, so strategies meet the same girls.
std::uint64_t gameSeed(std::uint64_t seed, int game);

// Plays one complete game from the start screen to the last "OK".
GameRow playGame(Player &player, Strategy &strategy, std::uint64_t seed, const Ratings &ratings, int clickLimit);

// Plays every strategy `games` times. Unknown strategy names are skipped.
LabRun runLab(const LabConfig &config);

} // namespace amorra::lab
