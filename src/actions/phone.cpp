#include "action_steps.h"
#include "actions.h"

namespace amorra {

namespace {
// A row of places or gifts that one of her answers gives an opinion on;
// row 0 marks nothing.
struct Mark
{
    bool gift = false; // else a place
    int row = 0;
};

struct QuestionMarks
{
    int question;
    Mark likes[2];    // answer 3 sets "+"
    Mark dislikes[2]; // answer 1 sets "-"
};

constexpr Mark place(int row) { return {false, row}; }
constexpr Mark gift(int row) { return {true, row}; }

const QuestionMarks kMarks[] = {
    {3, {place(8)}, {place(8)}},
    {4, {place(11)}, {place(11)}},
    {5, {place(10)}, {place(10)}},
    {6, {gift(3)}, {gift(3)}},
    {8, {}, {place(2)}},
    {9, {gift(4)}, {gift(4)}},
    {10, {place(1)}, {}},
    {11, {gift(2)}, {gift(2)}},
    {12, {gift(10), gift(7)}, {gift(7)}},
    {13, {place(7)}, {place(7)}},
    {14, {gift(8)}, {}},
    {15, {gift(9)}, {}},
    {17, {place(4)}, {}},
    {18, {place(9)}, {place(9)}},
    {20, {place(4)}, {}},
    {23, {place(10)}, {place(10)}},
};

void setOpinions(GameState &s, int question, bool liked)
{
    for (const QuestionMarks &q : kMarks) {
        if (q.question != question)
            continue;
        for (const Mark &m : liked ? q.likes : q.dislikes)
            if (m.row > 0)
                (m.gift ? s.gifts[m.row] : s.places[m.row]).extra = liked ? "+" : "-";
    }
}
} // namespace

void onCallHer(Game &game)
{
    // The ask-out button stays: this is where she can be asked.
    if (!modeButtonOpening(game, false))
        return;
    GameState &s = game.state();
    GameView &view = game.view();
    view.SetListTip("Topics you can talk about");
    s.work_streak = 0;
    if (!s.date_agreed)
        view.ShowAskOut(true);
    s.action_count = add16(s.action_count, 1);

    if (s.money < 5) {
        showTextNotice(game, "Were you thinking of calling REVERSE charge!!");
        return;
    }
    game.add_money(-5);
    s.spent_total = add16(s.spent_total, 5);
    game.play_sound("\\sounds\\phonet.wav", SoundMode::Async);
    view.SetOkCaption("ASK");
    view.SetListTitle(kTitlePhone);
    const std::string &her = s.girl.Gname;
    const std::string &him = s.player.player_name;
    view.SetTalk(her + ": " + " Hello?" + kCrLf + him + ": " + "Hi " + her + " this is " + him + kCrLf + her + ": " +
                 "Ohh .... How are you???");
    view.ClearList();
    for (int i = 0; i < kQuestionCount; ++i)
        view.AddListRow(s.questions[i].question);
}

void askQuestion(Game &game, int i)
{
    GameState &s = game.state();
    GameView &view = game.view();
    QuestionRec &q = s.questions[i];
    const std::string asked = s.player.player_name + ": " + q.question + kCrLf;

    view.SetTalk(asked);
    game.set_heart(static_cast<long long>(s.heart) + (s.heart < 50 ? 2 : 1));

    if (!q.asked) {
        s.call_questions = add16(s.call_questions, 1);
        q.asked = true;
        const int d = game.draw(10);
        const std::string *answer = &q.answer[1];
        if (d == 3) {
            answer = &q.answer[2];
            setOpinions(s, i, true);
        } else if (d == 7) {
            answer = &q.answer[0];
            setOpinions(s, i, false);
        }
        view.SetTalk(asked + s.girl.Gname + ": " + *answer);
    } else {
        game.play_sound("\\sounds\\sigh.wav", SoundMode::Async);
        view.SetTalk(asked + s.girl.Gname + ": " + "You asked me that before! You don't remember anything about me.");
        game.set_heart(static_cast<long long>(s.heart) - 8);
        s.call_questions = add16(s.call_questions, 1);
    }

    if (s.call_questions >= 3) {
        game.advance_days(1);
        s.call_questions = 0;
        view.ShowAskOut(false);
        view.SetTalk(view.GetTalk() + kCrLf + s.girl.Gname + ":" + " I have to go now. BYE!!");
        game.play_sound("\\sounds\\phoned.wav", SoundMode::Async);
        view.ClearList();
    }
}

} // namespace amorra
