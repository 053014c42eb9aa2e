#include "game_view.h"

namespace amorra {

const char *noticeKindName(NoticeKind kind)
{
    switch (kind) {
    case NoticeKind::Cat:
        return "Cat";
    case NoticeKind::FoundMoney:
        return "FoundMoney";
    case NoticeKind::SpeedingFine:
        return "SpeedingFine";
    case NoticeKind::Ignoring:
        return "Ignoring";
    case NoticeKind::Boring:
        return "Boring";
    case NoticeKind::TextNotice:
        return "TextNotice";
    }
    return "?";
}

} // namespace amorra
