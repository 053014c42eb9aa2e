#pragma once

#include <optional>
#include <string>

namespace amorra {

enum class Slider { Looks, Smart, Luck };

struct SliderValues
{
    int looks = 50;
    int smart = 50;
    int luck = 50;
    bool operator==(const SliderValues &o) const { return looks == o.looks && smart == o.smart && luck == o.luck; }
};

struct SliderOutcome
{
    SliderValues values;
    // The new "Points Left:" text, or nothing when the label keeps its text.
    std::optional<std::string> pointsLabel;
};

constexpr int kSetupPoints = 150;
constexpr int kNameLength = 20;

// The 150-point rule after one slider moved: an overspend is taken from the
// two partners, half the excess each (rounded half to even); what one
// partner cannot give without going below 0 comes from the other. The label
// follows whenever the points are not overspent afterwards; an odd excess
// can leave one point overspent, and then the label keeps its text.
SliderOutcome moveSlider(Slider moved, SliderValues values);

// The label's text when the setup screen opens.
std::string initialPointsLabel();

} // namespace amorra
