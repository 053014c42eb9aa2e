#include "her_tastes.h"

namespace amorra::lab {

namespace {

// What each question is about, as a player comes to understand it: her
// enthusiastic answer (the third) tells a like, her flat refusal (the first)
// a dislike. Negative numbers are places, positive ones gifts, 0 is nothing.
struct Topic
{
    int question;
    std::array<int, 2> likes;
    std::array<int, 2> dislikes;
};

constexpr Topic kTopics[] = {
    {3, {-8, 0}, {-8, 0}},   // plays: the drama
    {4, {-11, 0}, {-11, 0}}, // drinks: the pub
    {5, {-10, 0}, {-10, 0}}, // parties: the nightclub
    {6, {3, 0}, {3, 0}},     // reading: the book
    {8, {0, 0}, {-2, 0}},    // films: the movie
    {9, {4, 0}, {4, 0}},     // pop: the CDs
    {10, {-1, 0}, {0, 0}},   // fine food: the restaurant
    {11, {2, 0}, {2, 0}},    // chocolate
    {12, {10, 7}, {7, 0}},   // diamonds: the ring and jewellery
    {13, {-7, 0}, {-7, 0}},  // hard rock: the concert
    {14, {8, 0}, {0, 0}},    // always on the move: the phone
    {15, {9, 0}, {0, 0}},    // clothes: the dress
    {17, {-4, 0}, {0, 0}},   // sandcastles: the beach
    {18, {-9, 0}, {-9, 0}},  // ferris wheel: the carnival
    {20, {-4, 0}, {0, 0}},   // water sports: the beach
    {23, {-10, 0}, {-10, 0}} // smoking: the nightclub
};

const QuestionTable &questionTexts()
{
    static const QuestionTable table = makeQuestions();
    return table;
}

void note(HerTastes &t, int item, int opinion)
{
    if (item > 0)
        t.gift[static_cast<size_t>(item)] = opinion;
    else if (item < 0)
        t.place[static_cast<size_t>(-item)] = opinion;
}

} // namespace

int HerTastes::answerShown(int question, const std::string &talk)
{
    const QuestionRec &q = questionTexts()[static_cast<size_t>(question)];
    // Her line is "<name>: <answer>", either last or followed by her goodbye.
    for (int a = 3; a >= 1; --a) {
        const std::string &answer = q.answer[static_cast<size_t>(a - 1)];
        for (size_t at = talk.find(": " + answer); at != std::string::npos; at = talk.find(": " + answer, at + 1)) {
            const size_t end = at + 2 + answer.size();
            if (end == talk.size() || talk.compare(end, 2, "\r\n") == 0)
                return a;
        }
    }
    return 0;
}

void HerTastes::learn(int question, const std::string &talk)
{
    if (question < 0 || question >= kQuestionCount)
        return;
    asked[static_cast<size_t>(question)] = true;
    const int a = answerShown(question, talk);
    for (const Topic &topic : kTopics) {
        if (topic.question != question)
            continue;
        if (a == 3)
            for (int item : topic.likes)
                note(*this, item, +1);
        if (a == 1)
            for (int item : topic.dislikes)
                note(*this, item, -1);
    }
}

const std::array<int, 16> &HerTastes::telling()
{
    static const std::array<int, 16> order = {11, 6, 9, 17, 20, 3, 18, 12, 5, 23, 4, 10, 13, 8, 14, 15};
    return order;
}

int rowPrice(const std::string &row)
{
    const size_t at = row.rfind('$');
    if (at == std::string::npos)
        return -1;
    // Read by hand: the lab reads thousands of rows a second.
    int amount = 0;
    for (size_t i = at + 1; i < row.size() && row[i] >= '0' && row[i] <= '9'; ++i)
        amount = amount * 10 + (row[i] - '0');
    return amount;
}

int HerTastes::nextQuestion() const
{
    for (int q : telling())
        if (!asked[static_cast<size_t>(q)])
            return q;
    for (int q = 0; q < kQuestionCount; ++q)
        if (!asked[static_cast<size_t>(q)])
            return q;
    return -1;
}

} // namespace amorra::lab
