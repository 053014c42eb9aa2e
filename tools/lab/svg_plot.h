#pragma once

#include <string>
#include <vector>

namespace amorra::lab {

struct ScoreSeries
{
    std::string name;
    std::vector<double> scores; // won games only
    int games = 0;              // all games, to show the wins as a share
};

// Score distributions as an SVG picture: one histogram per strategy on a
// shared logarithmic score axis, the bar heights a share of all its games,
// with the median and the 90th percentile marked.
std::string scorePlotSvg(const std::vector<ScoreSeries> &series);

} // namespace amorra::lab
