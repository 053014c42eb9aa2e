#pragma once

#include "actions/action_steps.h"
#include "actions/actions.h"
#include "core/game_flow.h"
#include "support/scripted_random.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace amorra::testing {

// A draw that makes no chance event happen at luck 0..100 (x lands on L,
// never on the 3 of the fine and the cat or the 9 of the found money).
inline constexpr double kCalm = 0.999;

using Button = void (*)(Game &);
using Strings = std::vector<std::string>;

// One game on a recording view, with every draw scripted by the test.
struct PlayFixture : ::testing::Test
{
    RecordingView view;
    ScriptedRandom random;
    Game game{view, random};

    // A fresh game on a fresh screen as the main screen's load starts it (Tom
    // and Lisa, sliders 50/50/50, her threshold 21), then the given figures.
    GameState &newGame(int heart = 10, int money = 50, double looks = 50, int luck = 50)
    {
        view = RecordingView();
        random = ScriptedRandom{pick(1, 11), pick(2, 10), pick(1, 15)};
        game.setSetup({"Tom", 50, 50, 50});
        startFirstGame(game);
        view.clearCalls();
        GameState &s = game.state();
        s.heart = static_cast<i16>(heart);
        s.money = static_cast<i16>(money);
        s.player.looks = looks;
        s.player.luck = static_cast<i16>(luck);
        return s;
    }
    void calm(int draws) { random.push(kCalm, draws); }
    GameState &state() { return game.state(); }

    // Select a row as the player would and press the action button.
    void choose(int row)
    {
        onListClick(game);
        view.selectRow(row);
        onActionButton(game);
    }

    // Calls as "Name(args)", in order; with names, only calls of those.
    Strings calls(std::initializer_list<const char *> names = {}) const
    {
        Strings out;
        for (const auto &c : view.calls)
            if (names.size() == 0 || std::find(names.begin(), names.end(), c.name) != names.end())
                out.push_back(c.str());
        return out;
    }

    Strings sounds() const
    {
        Strings out;
        for (const auto &c : view.callsNamed("PlaySound"))
            out.push_back(c.args.at(0));
        return out;
    }

    void expectDrawsUsedUp() const
    {
        EXPECT_FALSE(random.overrun) << "the logic drew more often than scripted";
        EXPECT_EQ(random.remaining(), 0u) << "the logic drew less often than scripted";
    }
};

} // namespace amorra::testing
