#include "lab.h"

#include <ctime>

namespace amorra::lab {

namespace {
// The playing thread's own processor time: what one core spends, however
// busy the rest of the machine is.
double threadSeconds()
{
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) / 1e9;
}
} // namespace

std::uint64_t gameSeed(std::uint64_t seed, int game)
{
    Dice mix(seed * 0x100000001B3ull + static_cast<std::uint64_t>(game));
    return mix.next();
}

GameRow playGame(Player &player, Strategy &strategy, std::uint64_t seed, const Ratings &ratings, int clickLimit)
{
    player.startGame(seed, ratings);
    // The strategy's own choices come from dice of their own, so that its
    // thinking does not shift the game's draws.
    strategy.newGame(Dice(seed ^ 0x5DEECE66Dull).next());
    int idle = 0;
    while (!player.ended() && player.clicks() < clickLimit && idle < 3) {
        const int before = player.clicks();
        strategy.move(player);
        idle = player.clicks() == before ? idle + 1 : 0;
    }
    player.confirmWindows();

    GameRow row;
    row.strategy = strategy.name();
    row.seed = seed;
    switch (player.ending()) {
    case NullView::Ending::Won:
        row.outcome = Outcome::Won;
        break;
    case NullView::Ending::LostHeart:
        row.outcome = Outcome::LostHeart;
        break;
    case NullView::Ending::LostMonth:
        row.outcome = Outcome::LostMonth;
        break;
    case NullView::Ending::None:
        row.outcome = Outcome::Stuck;
        break;
    }
    row.score = player.score();
    row.days = player.day();
    row.presses = player.presses();
    row.spent = player.spent();
    row.clicks = player.clicks();
    return row;
}

LabRun runLab(const LabConfig &config)
{
    LabRun run;
    Player player;
    const double start = threadSeconds();
    for (const std::string &name : config.strategies) {
        auto strategy = makeStrategy(name);
        if (!strategy)
            continue;
        const double begun = threadSeconds();
        for (int g = 0; g < config.games; ++g) {
            GameRow row = playGame(player, *strategy, gameSeed(config.seed, g), config.ratings, config.clickLimit);
            row.game = g;
            run.rows.push_back(std::move(row));
        }
        run.secondsPerStrategy.push_back(threadSeconds() - begun);
    }
    run.seconds = threadSeconds() - start;
    return run;
}

} // namespace amorra::lab
