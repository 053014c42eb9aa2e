#include "null_view.h"

#include <algorithm>

namespace amorra::lab {

void NullView::reset()
{
    talk.clear();
    listTitle.clear();
    heartLabel.clear();
    loseText.clear();
    okCaption.clear();
    rowCount = 0;
    selectedRow = -1;
    okShown = askOutShown = takeHerOutEnabled = false;
    mainEnabled = true;
    openScreens.clear();
    ending = Ending::None;
}

void NullView::AddListRow(const std::string &text)
{
    // Reuse the row's old storage: a refill then costs no allocation.
    if (rowCount < static_cast<int>(rowText.size()))
        rowText[static_cast<size_t>(rowCount)].assign(text);
    else
        rowText.push_back(text);
    ++rowCount;
}

bool NullView::closeScreen(Screen screen)
{
    auto it = std::find(openScreens.rbegin(), openScreens.rend(), screen);
    if (it == openScreens.rend())
        return false;
    openScreens.erase(std::next(it).base());
    return true;
}

bool NullView::isOpen(Screen screen) const
{
    return std::find(openScreens.begin(), openScreens.end(), screen) != openScreens.end();
}

static_assert(static_cast<int>(NoticeKind::TextNotice) == 5, "notice kinds map onto the first six screens");

void NullView::ShowNotice(NoticeKind kind, const std::string &)
{
    static constexpr Screen kByKind[] = {Screen::Cat, Screen::FoundMoney, Screen::SpeedingFine,
                                         Screen::Ignoring, Screen::Boring, Screen::TextNotice};
    openScreens.push_back(kByKind[static_cast<int>(kind)]);
}

void NullView::ShowWin(const std::string &, const std::string &, const std::string &)
{
    if (ending == Ending::None)
        ending = Ending::Won;
    openScreens.push_back(Screen::Win);
}

void NullView::ShowLose(const std::string &text)
{
    // The heart loss keeps the screen's standing text; the month limit brings its own.
    if (ending == Ending::None)
        ending = text.empty() ? Ending::LostHeart : Ending::LostMonth;
    loseText = text;
    openScreens.push_back(Screen::Lose);
}

} // namespace amorra::lab
