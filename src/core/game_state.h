#pragma once

#include "catalogues.h"
#include "numbers.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace amorra {

struct PlayerProfile
{
    std::string player_name;
    double looks = 0;
    double smart = 0; // held 10 below what the player chose; shown with 10 added back
    i16 luck = 0;
};

struct GirlProfile
{
    std::string Gname;
    i16 askout_need = 0;
};

// A won game on its way to the Top 20 table.
struct GameResult
{
    bool result_pending = false;
    std::string result_name;
    double result_score = 0;
    i16 result_days = 0;
    std::int64_t result_spent = 0; // whole dollars
};

struct GameState
{
    PlayerProfile player;
    GirlProfile girl;
    GameResult result;

    i16 money = 0;        // only through Game::add_money
    i16 day = 0;          // only through Game::advance_days
    i16 heart = 0;        // every change followed by Game::display_heart
    i16 spent_total = 0;
    i16 gift_spent = 0;
    i16 action_count = 0;
    i16 call_questions = 0;
    i16 work_streak = 0;                // survives Restart
    std::array<i16, kPlaceCount + 1> last_visit{}; // indexed 1..11
    i16 boring_gap = 0;
    std::array<bool, kJobCount + 1> job_open{};     // survives Restart; [0] stays false
    bool date_agreed = false;
    bool game_over = false;
    bool sound_on = false;

    std::vector<std::string> girl_names;
    PlaceTable places{};
    GiftTable gifts{};
    JobTable jobs{};
    SelfItemTable self_items{};
    QuestionTable questions{};
};

} // namespace amorra
