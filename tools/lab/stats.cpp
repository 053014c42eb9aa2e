#include "stats.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace amorra::lab {

double quantile(std::vector<double> values, double q)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    const double at = q * static_cast<double>(values.size() - 1);
    const auto lo = static_cast<size_t>(std::floor(at));
    const size_t hi = std::min(lo + 1, values.size() - 1);
    return values[lo] + (at - static_cast<double>(lo)) * (values[hi] - values[lo]);
}

double mean(const std::vector<double> &values)
{
    if (values.empty())
        return 0;
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

const char *outcomeName(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Won:
        return "won";
    case Outcome::LostHeart:
        return "lost-heart";
    case Outcome::LostMonth:
        return "lost-month";
    case Outcome::Stuck:
        break;
    }
    return "stuck";
}

std::vector<Summary> summarise(const std::vector<GameRow> &rows)
{
    std::vector<std::string> order;
    for (const GameRow &r : rows)
        if (std::find(order.begin(), order.end(), r.strategy) == order.end())
            order.push_back(r.strategy);

    std::vector<Summary> out;
    for (const std::string &name : order) {
        Summary s;
        s.strategy = name;
        std::vector<double> scores, days, presses, spent;
        for (const GameRow &r : rows) {
            if (r.strategy != name)
                continue;
            ++s.games;
            switch (r.outcome) {
            case Outcome::Won:
                ++s.wins;
                scores.push_back(r.score);
                break;
            case Outcome::LostHeart:
                ++s.lostHeart;
                break;
            case Outcome::LostMonth:
                ++s.lostMonth;
                break;
            case Outcome::Stuck:
                ++s.stuck;
                break;
            }
            days.push_back(r.days);
            presses.push_back(r.presses);
            spent.push_back(r.spent);
        }
        s.medianScore = quantile(scores, 0.5);
        s.p90Score = quantile(scores, 0.9);
        s.meanDays = mean(days);
        s.meanPresses = mean(presses);
        s.meanSpent = mean(spent);
        out.push_back(s);
    }
    return out;
}

namespace {

std::string fixed(double v, int decimals)
{
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
    return buf;
}

} // namespace

std::string formatTable(const std::vector<Summary> &summaries)
{
    const std::vector<std::string> header = {"strategy", "games", "wins", "lost: heart", "lost: month",
                                             "median score", "p90 score", "mean days", "mean presses", "mean $ on her"};
    std::vector<std::vector<std::string>> cells{header};
    for (const Summary &s : summaries) {
        const bool won = s.wins > 0;
        cells.push_back({s.strategy, std::to_string(s.games), std::to_string(s.wins), std::to_string(s.lostHeart),
                         std::to_string(s.lostMonth), won ? fixed(s.medianScore, 0) : "-", won ? fixed(s.p90Score, 0) : "-",
                         fixed(s.meanDays, 1), fixed(s.meanPresses, 1), fixed(s.meanSpent, 1)});
        if (s.stuck)
            cells.back()[0] += " (" + std::to_string(s.stuck) + " stuck)";
    }
    std::vector<size_t> width(header.size(), 0);
    for (const auto &line : cells)
        for (size_t c = 0; c < line.size(); ++c)
            width[c] = std::max(width[c], line[c].size());

    std::string out;
    for (size_t l = 0; l < cells.size(); ++l) {
        for (size_t c = 0; c < cells[l].size(); ++c) {
            const std::string &t = cells[l][c];
            const std::string pad(width[c] - t.size(), ' ');
            // Names to the left, figures to the right.
            out += c == 0 ? t + pad : "  " + pad + t;
        }
        out += '\n';
        if (l == 0) {
            size_t total = 0;
            for (size_t w : width)
                total += w + 2;
            out += std::string(total - 2, '-') + '\n';
        }
    }
    return out;
}

std::string formatCsv(const std::vector<GameRow> &rows)
{
    std::string out = "strategy,game,seed,outcome,score,days,presses,spent,clicks\n";
    for (const GameRow &r : rows) {
        out += r.strategy + ',' + std::to_string(r.game) + ',' + std::to_string(r.seed) + ',' + outcomeName(r.outcome) + ',' +
               fixed(r.score, 0) + ',' + std::to_string(r.days) + ',' + std::to_string(r.presses) + ',' +
               std::to_string(r.spent) + ',' + std::to_string(r.clicks) + '\n';
    }
    return out;
}

} // namespace amorra::lab
