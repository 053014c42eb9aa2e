#include "recording_view.h"

#include <algorithm>

namespace amorra {

namespace {
std::string flag(bool b)
{
    return b ? "true" : "false";
}
} // namespace

std::string ViewCall::str() const
{
    std::string s = name + "(";
    for (size_t i = 0; i < args.size(); ++i) {
        if (i)
            s += "|";
        s += args[i];
    }
    return s + ")";
}

void RecordingView::record(const char *name, std::vector<std::string> args)
{
    if (recording)
        calls.push_back({name, std::move(args)});
}

void RecordingView::selectRow(int row)
{
    selectedRow = (row >= 0 && row < static_cast<int>(rows.size())) ? row : -1;
}

bool RecordingView::closeScreen(const std::string &name)
{
    auto it = std::find(openScreens.rbegin(), openScreens.rend(), name);
    if (it == openScreens.rend())
        return false;
    openScreens.erase(std::next(it).base());
    return true;
}

std::vector<std::string> RecordingView::callNames() const
{
    std::vector<std::string> names;
    for (const auto &c : calls)
        names.push_back(c.name);
    return names;
}

int RecordingView::countCalls(const std::string &name) const
{
    return static_cast<int>(std::count_if(calls.begin(), calls.end(), [&](const ViewCall &c) { return c.name == name; }));
}

std::vector<ViewCall> RecordingView::callsNamed(const std::string &name) const
{
    std::vector<ViewCall> out;
    for (const auto &c : calls)
        if (c.name == name)
            out.push_back(c);
    return out;
}

void RecordingView::SetTalk(const std::string &text)
{
    talk = text;
    record("SetTalk", {text});
}

std::string RecordingView::GetTalk() const
{
    return talk;
}

void RecordingView::SetListTitle(const std::string &text)
{
    listTitle = text;
    record("SetListTitle", {text});
}

std::string RecordingView::GetListTitle() const
{
    return listTitle;
}

void RecordingView::ClearList()
{
    rows.clear();
    selectedRow = -1;
    record("ClearList");
}

void RecordingView::AddListRow(const std::string &text)
{
    rows.push_back(text);
    record("AddListRow", {text});
}

int RecordingView::GetListIndex() const
{
    return selectedRow;
}

void RecordingView::SetListTip(const std::string &text)
{
    listTip = text;
    record("SetListTip", {text});
}

void RecordingView::SetOkCaption(const std::string &text)
{
    okCaption = text;
    record("SetOkCaption", {text});
}

void RecordingView::ShowOk(bool shown)
{
    okShown = shown;
    record("ShowOk", {flag(shown)});
}

void RecordingView::ShowAskOut(bool shown)
{
    askOutShown = shown;
    record("ShowAskOut", {flag(shown)});
}

void RecordingView::EnableTakeHerOut(bool enabled)
{
    takeHerOutEnabled = enabled;
    record("EnableTakeHerOut", {flag(enabled)});
}

void RecordingView::SetMoneyLabel(const std::string &text)
{
    moneyLabel = text;
    record("SetMoneyLabel", {text});
}

void RecordingView::SetDayLabel(const std::string &text)
{
    dayLabel = text;
    record("SetDayLabel", {text});
}

void RecordingView::SetSpentLabel(const std::string &text)
{
    spentLabel = text;
    record("SetSpentLabel", {text});
}

void RecordingView::SetStatBars(int looks, int brains, int luck)
{
    looksBar = looks;
    brainsBar = brains;
    luckBar = luck;
    if (recording)
        record("SetStatBars", {std::to_string(looks), std::to_string(brains), std::to_string(luck)});
}

void RecordingView::SetHeartBar(int lit)
{
    heartLit = lit;
    if (recording)
        record("SetHeartBar", {std::to_string(lit)});
}

void RecordingView::SetHeartLabel(const std::string &text)
{
    heartLabel = text;
    record("SetHeartLabel", {text});
}

void RecordingView::SetFace(const std::string &picture, const std::string &tooltip)
{
    facePicture = picture;
    faceTooltip = tooltip;
    record("SetFace", {picture, tooltip});
}

void RecordingView::EnableMain(bool enabled)
{
    mainEnabled = enabled;
    record("EnableMain", {flag(enabled)});
}

void RecordingView::FocusMain()
{
    record("FocusMain");
}

int RecordingView::LoadedScreenCount() const
{
    return permanentScreens + static_cast<int>(openScreens.size());
}

void RecordingView::ShowNotice(NoticeKind kind, const std::string &text)
{
    openScreens.push_back(noticeKindName(kind));
    record("ShowNotice", {noticeKindName(kind), text});
}

void RecordingView::ShowGameOver()
{
    openScreens.push_back("GameOver");
    record("ShowGameOver");
}

void RecordingView::ShowWin(const std::string &moneyText, const std::string &daysText, const std::string &scoreText)
{
    openScreens.push_back("Win");
    record("ShowWin", {moneyText, daysText, scoreText});
}

void RecordingView::ShowLose(const std::string &text)
{
    openScreens.push_back("Lose");
    record("ShowLose", {text});
}

void RecordingView::ShowHighScores()
{
    openScreens.push_back("HighScores");
    record("ShowHighScores");
}

void RecordingView::ShowSetup()
{
    record("ShowSetup");
}

void RecordingView::ShowTutorial()
{
    openScreens.push_back("Tutorial");
    record("ShowTutorial");
}

void RecordingView::ShowAbout()
{
    openScreens.push_back("About");
    record("ShowAbout");
}

void RecordingView::ShowMessage(const std::string &text, const std::string &title, bool exclamation)
{
    record("ShowMessage", {text, title, flag(exclamation)});
}

void RecordingView::PlaySound(const std::string &path, SoundMode mode)
{
    record("PlaySound", {path, mode == SoundMode::Wait ? "Wait" : "Async"});
}

} // namespace amorra
