// amorra-lab: plays thousands of games with scripted players and shows how
// their ways of playing fare. Same rules as the game: the game's handlers.
#include "lab.h"
#include "svg_plot.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

using namespace amorra::lab;

namespace {

const char kUsage[] =
    "Usage: amorra-lab [options]\n"
    "  --games N          games per strategy (default 1000)\n"
    "  --seed S           seed of the run; the same seed plays the same games (default 1)\n"
    "  --looks L --smart M --luck K\n"
    "                     the player's setup, 0..100 each, summing to 150 (default 50 50 50)\n"
    "  --strategies LIST  comma-separated, from: random, worker, sweet-talker, best (default all)\n"
    "  --csv [FILE]       the raw per-game rows: to FILE, or instead of the table when no FILE\n"
    "  --plot FILE.svg    draws the score distributions\n"
    "  --help\n";

bool number(const char *text, long long &out)
{
    char *end = nullptr;
    out = std::strtoll(text, &end, 10);
    return *text && end && *end == '\0';
}

bool writeFile(const std::string &path, const std::string &content)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << content;
    out.close();
    return static_cast<bool>(out);
}

int fail(const std::string &message)
{
    std::cerr << "amorra-lab: " << message << "\n" << kUsage;
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    LabConfig config;
    std::string csvPath, plotPath;
    bool csvToStdout = false;

    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        auto value = [&](long long &out) { return i + 1 < argc && number(argv[++i], out); };
        long long v = 0;
        if (arg == "--help" || arg == "-h") {
            std::cout << kUsage;
            return 0;
        } else if (arg == "--games") {
            if (!value(v) || v < 1 || v > 100000000)
                return fail("--games needs a whole number from 1 up");
            config.games = static_cast<int>(v);
        } else if (arg == "--seed") {
            if (!value(v) || v < 0)
                return fail("--seed needs a whole number from 0 up");
            config.seed = static_cast<std::uint64_t>(v);
        } else if (arg == "--looks" || arg == "--smart" || arg == "--luck") {
            if (!value(v) || v < 0 || v > 100)
                return fail(arg + " needs a rating from 0 to 100");
            (arg == "--looks" ? config.ratings.looks : arg == "--smart" ? config.ratings.smart : config.ratings.luck) = static_cast<int>(v);
        } else if (arg == "--strategies") {
            if (i + 1 >= argc)
                return fail("--strategies needs a list");
            config.strategies.clear();
            std::stringstream list(argv[++i]);
            for (std::string name; std::getline(list, name, ',');) {
                if (!makeStrategy(name))
                    return fail("unknown strategy '" + name + "'");
                config.strategies.push_back(name);
            }
        } else if (arg == "--csv") {
            if (i + 1 < argc && std::strncmp(argv[i + 1], "--", 2) != 0)
                csvPath = argv[++i];
            else
                csvToStdout = true;
        } else if (arg == "--plot") {
            if (i + 1 >= argc)
                return fail("--plot needs a file name");
            plotPath = argv[++i];
        } else {
            return fail("unknown option '" + arg + "'");
        }
    }
    const Ratings &r = config.ratings;
    if (r.looks + r.smart + r.luck != 150)
        return fail("the ratings must sum to 150 (looks " + std::to_string(r.looks) + " + smart " + std::to_string(r.smart) +
                    " + luck " + std::to_string(r.luck) + ")");

    const LabRun run = runLab(config);

    if (!csvPath.empty() && !writeFile(csvPath, formatCsv(run.rows)))
        return fail("cannot write " + csvPath);
    if (!plotPath.empty()) {
        std::vector<ScoreSeries> series;
        for (const std::string &name : config.strategies) {
            ScoreSeries s{name, {}, 0};
            for (const GameRow &row : run.rows)
                if (row.strategy == name) {
                    ++s.games;
                    if (row.outcome == Outcome::Won)
                        s.scores.push_back(row.score);
                }
            series.push_back(std::move(s));
        }
        if (!writeFile(plotPath, scorePlotSvg(series)))
            return fail("cannot write " + plotPath);
    }
    if (csvToStdout) {
        std::cout << formatCsv(run.rows);
        return 0;
    }

    std::printf("Amorra balance lab: %d games per strategy, seed %llu, looks %d smart %d luck %d\n\n", config.games,
                static_cast<unsigned long long>(config.seed), r.looks, r.smart, r.luck);
    std::cout << formatTable(summarise(run.rows));
    std::printf("\nThroughput, one core, null view (processor time of the playing thread):\n");
    for (size_t i = 0; i < config.strategies.size() && i < run.secondsPerStrategy.size(); ++i) {
        const double s = run.secondsPerStrategy[i];
        std::printf("  %-14s %10.0f games/s\n", config.strategies[i].c_str(), s > 0 ? config.games / s : 0.0);
    }
    const double all = static_cast<double>(run.rows.size());
    std::printf("  %-14s %10.0f games/s (%zu games in %.3f s)\n", "all", run.seconds > 0 ? all / run.seconds : 0.0,
                run.rows.size(), run.seconds);
    return 0;
}
