#pragma once

#include "strategies.h"

namespace amorra::lab {

// The settings of the lab's best strategy; the defaults are the tuned ones.
struct BestKnobs
{
    int stopTalkingAt = 50;    // from here on a question earns only half
    int flowersWhenBehind = 1; // buy the cheap gift when dates alone will not make it in time
    int dateRate10 = 28;       // heart a date day is expected to bring, in tenths
    int sureWinGift = 1;       // finish with a gift when one surely reaches 100
    int likedGiftBudget = 100; // dearer gifts she likes cost more than they bring
};

std::unique_ptr<Strategy> makeBest(const BestKnobs &knobs);

} // namespace amorra::lab
