#include "action_steps.h"
#include "actions.h"

namespace amorra {

namespace {
// The smart rating a job needs, strictly exceeded; row 1 needs nothing.
const double kSmartNeeded[kJobCount + 1] = {0, 0, 25, 45, 65, 75, 85};
} // namespace

void showTextNotice(Game &game, const std::string &text)
{
    game.view().ShowNotice(NoticeKind::TextNotice, text);
    game.view().EnableMain(false);
}

void onGoToWork(Game &game)
{
    if (!modeButtonOpening(game, true))
        return;
    GameState &s = game.state();
    GameView &view = game.view();
    view.SetListTip("List of jobs");
    s.action_count = add16(s.action_count, 1);
    s.work_streak = add16(s.work_streak, 1);
    game.play_sound("\\sounds\\car.wav", SoundMode::Async);
    view.SetOkCaption("WORK");
    view.SetListTitle(kTitleWork);
    view.SetTalk("");
    view.ClearList();

    // Each job is offered on its own draw; more luck, more offers.
    const float luckSpan = static_cast<float>(add16(s.player.luck, 11));
    for (int i = 1; i <= kJobCount; ++i) {
        const bool open = game.draw(luckSpan) > 10;
        s.job_open[i] = open;
        view.AddListRow(s.jobs[i].label + "\t$" + toDecimal(s.jobs[i].amount) + "\t" +
                        (open ? "available" : "NOT available today"));
    }

    if (s.work_streak > 3) {
        complain(game, 'w');
        s.work_streak = 1;
    }
    game.advance_days(1);
    found_money_event(game);
    speeding_fine_event(game);
}

void takeJob(Game &game, int i)
{
    GameState &s = game.state();
    if (!s.job_open[i]) {
        showTextNotice(game, "Can't you see that this job is NOT available today!!");
        return;
    }
    if (i == 1 || s.player.smart > kSmartNeeded[i]) {
        game.add_money(s.jobs[i].amount);
        game.play_sound("\\sounds\\money.wav", SoundMode::Async);
        game.view().ClearList(); // one pay per opening of the noticeboard
    } else {
        game.play_sound("\\sounds\\laff.wav", SoundMode::Async);
        showTextNotice(game, "I think my grandma's more qualified!!!");
    }
}

} // namespace amorra
