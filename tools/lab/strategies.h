#pragma once

#include "player.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace amorra::lab {

// The strategy's own dice, apart from the game's: SplitMix64.
class Dice
{
public:
    explicit Dice(std::uint64_t seed = 0) : m_state(seed) {}
    std::uint64_t next();
    // Uniform over 0..n-1 (n > 0).
    int below(int n);

private:
    std::uint64_t m_state;
};

// A way of playing. `move` makes one decision (one click or a short run of
// clicks) on the player's screen; the lab calls it until the game ends.
class Strategy
{
public:
    virtual ~Strategy() = default;
    virtual std::string name() const = 0;
    virtual void newGame(std::uint64_t seed) = 0;
    virtual void move(Player &player) = 0;
};

std::unique_ptr<Strategy> makeRandomClicker();
std::unique_ptr<Strategy> makeWorker();
std::unique_ptr<Strategy> makeSweetTalker();
std::unique_ptr<Strategy> makeBest();

// The names the lab knows, in table order: random, worker, sweet-talker, best.
std::vector<std::string> strategyNames();
// Nullptr for an unknown name.
std::unique_ptr<Strategy> makeStrategy(const std::string &name);

// Shared moves of the scripted players. Each first confirms open windows
// and returns false once the game has ended or the control is not there.
namespace moves {
bool click(Player &p, Button button);
bool choose(Player &p, int row);
// Presses the mode button, picks the row and presses the action button.
bool doRow(Player &p, Button mode, int row);
// Opens the job noticeboard and takes the best paid job on offer that he
// believes he can do; `ceiling` is the best pay he has not been turned down
// for, lowered when the agency laughs at him.
void work(Player &p, int &ceiling);
} // namespace moves

} // namespace amorra::lab
