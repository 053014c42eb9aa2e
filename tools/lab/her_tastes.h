#pragma once

#include "core/catalogues.h"

#include <array>
#include <string>

namespace amorra::lab {

// What a player has learnt on the phone about her tastes: +1 she said she
// likes it, -1 she said she does not, 0 nothing known. Rows as in the lists
// (1-based, index 0 unused).
struct HerTastes
{
    std::array<int, kGiftCount + 1> gift{};
    std::array<int, kPlaceCount + 1> place{};
    std::array<bool, kQuestionCount> asked{};

    // Reads her answer to question `question` off the talk box and notes
    // what it says about gifts and places.
    void learn(int question, const std::string &talk);
    // 1, 2 or 3: which of the question's three answers the talk box shows; 0 if none.
    static int answerShown(int question, const std::string &talk);
    // Questions whose answers can tell something, the cheap gifts first.
    static const std::array<int, 16> &telling();
    // The next question worth asking: the telling ones first, then any not
    // yet asked; -1 when every question has been asked.
    int nextQuestion() const;
};

// The amount after the last "$" of a list row ("Flowers<TAB>$40" gives 40); -1 if none.
int rowPrice(const std::string &row);

} // namespace amorra::lab
