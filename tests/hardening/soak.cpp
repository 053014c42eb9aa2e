// Plays many whole games with random clicks, the way a restless player
// would, and checks after every click what a player must always be able to
// trust. Usage: soak [clicks] [seed]
#include "actions/actions.h"
#include "core/game_flow.h"
#include "core/random_source.h"
#include "scores/score_table.h"
#include "view/recording_view.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

using namespace amorra;

namespace {

// Counts end screens; everything else is RecordingView's state.
class SoakView : public RecordingView
{
public:
    int endScreens = 0;
    void ShowWin(const std::string &m, const std::string &d, const std::string &s) override
    {
        ++endScreens;
        RecordingView::ShowWin(m, d, s);
    }
    void ShowLose(const std::string &t) override
    {
        ++endScreens;
        RecordingView::ShowLose(t);
    }
};

struct Soak
{
    SoakView view;
    SystemRandom gameDice;
    SystemRandom playerDice;
    Game game{view, gameDice};
    ScoreTable table{};
    std::string scoresPath;
    bool courtingGame = false;
    int dateTurn = 0;
    long long clicks = 0, games = 0, wins = 0, heartLosses = 0, monthLosses = 0, failures = 0;

    Soak(std::uint64_t seed, std::string path)
        : gameDice(seed)
        , playerDice(seed ^ 0x9E3779B97F4A7C15ull)
        , scoresPath(std::move(path))
    {
        view.recording = false;
    }

    int pick(int n) { return static_cast<int>(playerDice.uniform() * n); }

    void fail(const char *what)
    {
        ++failures;
        if (failures <= 10)
            std::fprintf(stderr, "click %lld (game %lld): %s\n", clicks, games, what);
    }

    // Every other game is played by someone who courts her in earnest, so
    // wins (and their scores) get checked as often as losses. The setup
    // screen is filled in afresh before every new game.
    void chooseStyle()
    {
        courtingGame = pick(2) == 0;
        const int looks = courtingGame ? 50 : pick(101);
        const int smart = courtingGame ? 50 : pick(151 - looks > 101 ? 101 : 151 - looks);
        game.setSetup({"Soak", looks, smart, 150 - looks - smart > 100 ? 100 : 150 - looks - smart});
    }

    void newGame()
    {
        chooseStyle();
        startFirstGame(game);
        view.openScreens.clear();
        view.mainEnabled = true;
        view.endScreens = 0;
        ++games;
    }

    void confirmScreen()
    {
        const std::string name = view.openScreens[static_cast<size_t>(pick(static_cast<int>(view.openScreens.size())))];
        if (name == "Win") {
            onWinOk(game);
        } else if (name == "Lose") {
            onLoseOk(game);
        } else if (name == "GameOver") {
            if (pick(2)) {
                chooseStyle();
                gameOverPlayAgain(game);
                view.endScreens = 0;
                ++games;
            } else {
                gameOverOk(game);
            }
        } else if (name == "HighScores") {
            const auto data = openHighScores(game.state().result, table, scoresPath);
            if (std::filesystem::file_size(scoresPath) != static_cast<std::uintmax_t>(kScoreFileSize))
                fail("the Scores file is not 798 bytes after a save");
            if (data.rows.size() != static_cast<size_t>(kShownScores))
                fail("the Top 20 window does not have 20 rows");
            view.EnableMain(true);
            view.FocusMain();
        } else {
            for (auto kind : {NoticeKind::Cat, NoticeKind::FoundMoney, NoticeKind::SpeedingFine, NoticeKind::Ignoring,
                              NoticeKind::Boring, NoticeKind::TextNotice})
                if (name == noticeKindName(kind))
                    OnNoticeOk(game, kind);
        }
        view.closeScreen(name);
    }

    // Someone courting her in earnest: new questions only, asks her out once
    // her heart is surely high enough, cheap dates in a rotation that never
    // bores her, pizza delivery when broke. One click per call, like a player.
    void clickCourting()
    {
        const GameState &s = game.state();
        if (view.okShown) {
            onActionButton(game);
            return;
        }
        if (!view.rows.empty()) {
            int row = -1;
            if (view.listTitle == "Things to ask her") {
                for (int i = 0; i < static_cast<int>(view.rows.size()) && row < 0; ++i)
                    if (!s.questions[static_cast<size_t>(i)].asked)
                        row = i;
            } else if (view.listTitle == "Places to Go") {
                static const int cheapPlaces[] = {2, 4, 3, 5}; // picnic, pizza, beach, bowling
                row = cheapPlaces[dateTurn++ % 4];
            } else if (view.listTitle == "Job Noticeboard") {
                // Parking pays best for his smarts; pizza when that is not offered.
                for (int job : {1, 0})
                    if (row < 0 && view.rows[static_cast<size_t>(job)].find("NOT") == std::string::npos)
                        row = job;
            }
            if (row >= 0) {
                view.selectRow(row);
                onListClick(game);
                return;
            }
        }
        bool questionsLeft = false;
        for (int i = 0; i < kQuestionCount; ++i)
            questionsLeft = questionsLeft || !s.questions[static_cast<size_t>(i)].asked;
        if (view.askOutShown && s.heart >= 21)
            onAskOut(game);
        else if (s.money < 40)
            onGoToWork(game);
        else if (view.takeHerOutEnabled && (!questionsLeft || pick(2) == 0))
            onTakeHerOut(game);
        else if (questionsLeft)
            onCallHer(game);
        else
            onGoToWork(game);
    }

    void clickMain()
    {
        // Weighted so that games get somewhere: calls, work and dates are
        // what a real player does most, and most rows get carried out.
        // gift, call, date, work, shop, row, action button, ask out, menu
        static const int restless[] = {2, 4, 4, 4, 1, 6, 7, 3, 1};
        static const int courting[] = {1, 4, 8, 3, 0, 7, 7, 8, 0};
        const int *weights = courtingGame ? courting : restless;
        int roll = pick(32), choice = 0;
        while (roll >= weights[choice]) {
            roll -= weights[choice];
            ++choice;
        }
        switch (choice) {
        case 0: onBuyGift(game); break;
        case 1: onCallHer(game); break;
        case 2:
            if (view.takeHerOutEnabled)
                onTakeHerOut(game);
            break;
        case 3:
            if (!courtingGame || game.state().money < 40)
                onGoToWork(game);
            break;
        case 4: onGoShopping(game); break;
        case 5:
            if (!view.rows.empty()) {
                int row = pick(static_cast<int>(view.rows.size()));
                // A player mostly remembers what he already asked her.
                if (view.listTitle == "Things to ask her")
                    for (int tries = 0; tries < 8 && game.state().questions[static_cast<size_t>(row)].asked; ++tries)
                        row = pick(static_cast<int>(view.rows.size()));
                view.selectRow(row);
                onListClick(game);
            }
            break;
        case 6:
            if (view.okShown)
                onActionButton(game);
            break;
        case 7:
            if (view.askOutShown)
                onAskOut(game);
            break;
        default:
            if (pick(10) == 0) {
                chooseStyle();
                playAgainFromMenu(game);
                view.endScreens = 0;
                ++games;
            }
            break;
        }
    }

    void checkInvariants(bool wonBefore)
    {
        const GameState &s = game.state();
        if (view.moneyLabel != "Bank Balance: $" + std::to_string(s.money))
            fail("the bank balance label disagrees with the money");
        if (view.dayLabel != "Day " + std::to_string(s.day))
            fail("the day label disagrees with the day");
        const int shown = s.heart >= 100 ? 100 : s.heart <= 0 ? 0 : s.heart;
        if (view.heartLabel != std::to_string(shown))
            fail("the heart label disagrees with the heart");
        const int lit = static_cast<int>(std::nearbyint(s.heart / 100.0 * 20.0));
        if (view.heartLit != (lit > 20 ? 20 : lit < 0 ? 0 : lit))
            fail("the heart meter disagrees with the heart");
        for (long v : {long(s.money), long(s.day), long(s.heart), long(s.spent_total), long(s.action_count)})
            if (v <= -32768 || v >= 32767)
                fail("a counter ran into the 16-bit limit");
        if (view.endScreens > 1)
            fail("more than one end screen in one game");
        if (view.openScreens.empty() && !view.mainEnabled)
            fail("every window is confirmed but the main screen stays locked");
        if (!wonBefore && s.game_over && s.heart >= 100 && s.result.result_score > 0) {
            const long double exact = 1e10L / (static_cast<long double>(s.day) * s.action_count * s.spent_total);
            if (std::fabs(static_cast<double>(std::floor(exact)) - s.result.result_score) > 1.0)
                fail("the score does not follow the formula");
            ++wins;
        }
        if (!wonBefore && s.game_over && s.heart < 100) {
            if (s.heart <= 0)
                ++heartLosses;
            else
                ++monthLosses;
        }
    }

    void run(long long totalClicks)
    {
        newGame();
        while (clicks < totalClicks) {
            const bool wonBefore = game.state().game_over;
            if (!view.openScreens.empty() && (!view.mainEnabled || pick(3) == 0))
                confirmScreen();
            else if (view.mainEnabled && courtingGame && pick(100) != 0)
                clickCourting();
            else if (view.mainEnabled)
                clickMain();
            ++clicks;
            checkInvariants(wonBefore);
        }
    }
};

} // namespace

int main(int argc, char **argv)
{
    const long long clicks = argc > 1 ? std::atoll(argv[1]) : 20000;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 20261123;
    // A folder of this run's own: runs side by side must not remove each other's Scores file.
    const auto dir = std::filesystem::temp_directory_path() / ("amorra-soak-" + std::to_string(seed) + "-" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    Soak soak(seed, (dir / "Scores").string());
    soak.run(clicks);
    std::filesystem::remove_all(dir);
    std::printf("soak: %lld clicks, %lld games (%lld won, %lld lost by heart, %lld by the month), %lld failures\n",
                soak.clicks, soak.games, soak.wins, soak.heartLosses, soak.monthLosses, soak.failures);
    std::printf("%d passed, %lld failed\n", soak.failures == 0 ? 1 : 0, soak.failures == 0 ? 0LL : 1LL);
    return soak.failures == 0 ? 0 : 1;
}
