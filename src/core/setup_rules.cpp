#include "setup_rules.h"

#include "numbers.h"

#include <algorithm>

namespace amorra {

namespace {

int total(const SliderValues &v)
{
    return v.looks + v.smart + v.luck;
}

std::optional<std::string> labelFor(const SliderValues &v)
{
    const int left = kSetupPoints - total(v);
    if (left < 0)
        return std::nullopt;
    return "Points Left:" + toDecimal(left);
}

} // namespace

std::string initialPointsLabel()
{
    return "Points Left :0";
}

SliderOutcome moveSlider(Slider moved, SliderValues v)
{
    const int excess = total(v) - kSetupPoints;
    if (excess <= 0)
        return {v, labelFor(v)};

    // The partners in the order they give up their points.
    int *first = &v.smart;
    int *second = &v.luck;
    if (moved == Slider::Luck)
        second = &v.looks;
    else if (moved == Slider::Smart)
        first = &v.looks;
    const int half = static_cast<int>(roundHalfEven(excess / 2.0));
    int owed = 0;
    for (int *partner : {first, second}) {
        const int given = std::min(half, *partner);
        *partner -= given;
        owed += half - given;
    }
    // What a partner at 0 could not give, the other gives. Together they
    // always can: the moved slider holds at most 100 of the 150 points.
    for (int *partner : {first, second}) {
        const int given = std::min(owed, *partner);
        *partner -= given;
        owed -= given;
    }
    return {v, labelFor(v)};
}

} // namespace amorra
