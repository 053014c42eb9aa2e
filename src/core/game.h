#pragma once

#include "game_state.h"
#include "random_source.h"
#include "../view/game_view.h"

#include <string>

namespace amorra {

// What the (hidden) setup screen holds: every Restart reads it again.
struct SetupValues
{
    std::string name; // as typed, untrimmed
    int looks = 50;
    int smart = 50;
    int luck = 50;
};

// The game score: 10000000000 / (day * presses * spent), in the fixed order
// of operations the game has always used, truncated.
double computeScore(i16 day, i16 actionCount, i16 spentTotal);

// The one game of a program run, with the view it draws on and its dice.
// Logic changes money, day and heart only through the operations below.
class Game
{
public:
    Game(GameView &view, RandomSource &random);

    GameState &state() { return m_state; }
    const GameState &state() const { return m_state; }
    GameView &view() { return m_view; }

    void setSetup(const SetupValues &setup) { m_setup = setup; }
    const SetupValues &setup() const { return m_setup; }

    // One uniform draw in [0, 1), and Int(Rnd * k + 1).
    double rnd();
    int draw(double k);

    void display_heart(i16 h);
    void add_money(long long amount);
    void advance_days(i16 days);
    void updatestats();
    void Restart(bool new_girl);
    void ChangeFace();

    // Plays through the view only while sound is on.
    void play_sound(const std::string &path, SoundMode mode = SoundMode::Async);

    // Sets heart and runs display_heart, the pair every heart change needs.
    void set_heart(long long value);

private:
    GameState m_state;
    GameView &m_view;
    RandomSource &m_random;
    SetupValues m_setup;
};

} // namespace amorra
