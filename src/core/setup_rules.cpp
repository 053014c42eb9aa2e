#include "setup_rules.h"

#include "numbers.h"

#include <algorithm>

namespace amorra {

std::string initialPointsLabel()
{
    return "Points Left :0";
}

SliderOutcome moveSlider(Slider moved, SliderValues v)
{
    const int sum = v.looks + v.smart + v.luck;
    const int left = kSetupPoints - sum;
    if (left >= 0)
        return {v, "Points Left:" + toDecimal(left)};

    const int half = static_cast<int>(roundHalfEven((sum - kSetupPoints) / 2.0));
    auto lower = [half](int &slider) { slider = std::max(0, slider - half); };
    switch (moved) {
    case Slider::Looks:
        lower(v.smart);
        lower(v.luck);
        break;
    case Slider::Luck:
        lower(v.smart);
        lower(v.looks);
        break;
    case Slider::Smart:
        lower(v.looks);
        lower(v.luck);
        break;
    }
    return {v, std::nullopt};
}

} // namespace amorra
