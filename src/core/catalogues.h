#pragma once

#include <array>
#include <string>
#include <vector>

namespace amorra {

// One row of places, gifts, jobs or self_items. The label is shown exactly as
// written, spaces included; `extra` holds her opinion ("n", "+", "-") for
// places and gifts, or the rating word for self_items.
struct CatalogueRow
{
    std::string label;
    int amount = 0;
    std::string extra;
};

struct QuestionRec
{
    std::string question;
    std::array<std::string, 3> answer; // answers 1, 2, 3
    bool asked = false;
};

constexpr int kPlaceCount = 11;
constexpr int kGiftCount = 11;
constexpr int kJobCount = 6;
constexpr int kSelfItemCount = 11;
constexpr int kQuestionCount = 24;
constexpr int kQuestionRoom = 101;

// Rows are numbered from 1; slot 0 is an empty row so row numbers index directly.
using PlaceTable = std::array<CatalogueRow, kPlaceCount + 1>;
using GiftTable = std::array<CatalogueRow, kGiftCount + 1>;
using JobTable = std::array<CatalogueRow, kJobCount + 1>;
using SelfItemTable = std::array<CatalogueRow, kSelfItemCount + 1>;
using QuestionTable = std::array<QuestionRec, kQuestionRoom>;

std::vector<std::string> makeGirlNames(); // rows 1..10 at indices 0..9
PlaceTable makePlaces();
GiftTable makeGifts();
JobTable makeJobs();
SelfItemTable makeSelfItems();
QuestionTable makeQuestions();

} // namespace amorra
