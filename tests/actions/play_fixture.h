#pragma once

#include "actions/action_steps.h"
#include "actions/actions.h"
#include "core/game.h"
#include "core/game_flow.h"
#include "support/scripted_random.h"
#include "view/recording_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace amorra::testing {

// Draws that make no chance event happen at luck 50: x lands on L, never on
// the 3 of the fine and the cat or the 9 of the found money.
inline constexpr double kCalm = 0.999;

// One game on a recording view, with every draw scripted by the test.
struct PlayFixture : ::testing::Test
{
    RecordingView view;
    ScriptedRandom random;
    Game game{view, random};

    // A fresh game as the main screen's load starts it: Tom and Lisa,
    // sliders 50/50/50, her threshold `need` (21..35).
    void newGame(int need = 21, SetupValues setup = {"Tom", 50, 50, 50})
    {
        game.setSetup(setup);
        random.push({pick(1, 11), pick(2, 10), pick(need - 20, 15)});
        startFirstGame(game);
        view.clearCalls();
    }

    // Select a row as the player would and press the action button.
    void choose(int row)
    {
        onListClick(game);
        view.selectRow(row);
        onActionButton(game);
    }

    std::vector<std::string> calls() const
    {
        std::vector<std::string> out;
        for (const auto &c : view.calls)
            out.push_back(c.str());
        return out;
    }

    // Calls of the given names, in order, as "Name(args)".
    std::vector<std::string> calls(std::initializer_list<const char *> names) const
    {
        std::vector<std::string> out;
        for (const auto &c : view.calls)
            for (const char *n : names)
                if (c.name == n)
                    out.push_back(c.str());
        return out;
    }

    std::vector<std::string> sounds() const
    {
        std::vector<std::string> out;
        for (const auto &c : view.callsNamed("PlaySound"))
            out.push_back(c.args.at(0));
        return out;
    }

    // Every scripted draw was used, and no more.
    void expectDrawsUsedUp() const
    {
        EXPECT_FALSE(random.overrun) << "the logic drew more often than scripted";
        EXPECT_EQ(random.remaining(), 0u) << "the logic drew less often than scripted";
    }

    GameState &state() { return game.state(); }
};

} // namespace amorra::testing
