#pragma once

#include "core/random_source.h"

#include <deque>
#include <initializer_list>

namespace amorra::testing {

// Hands out exactly the draws a test scripts, in order. Running dry is a
// test failure waiting to be reported: `overrun` says it happened.
class ScriptedRandom : public RandomSource
{
public:
    ScriptedRandom() = default;
    ScriptedRandom(std::initializer_list<double> values);
    void push(std::initializer_list<double> values);
    void push(double value);
    double uniform() override;
    size_t remaining() const { return m_values.size(); }
    int drawsTaken() const { return m_taken; }
    bool overrun = false;
    double fallback = 0.999; // what a dry source answers: the least eventful draw

private:
    std::deque<double> m_values;
    int m_taken = 0;
};

// The value that makes Int(Rnd * k + 1) come out as n.
double pick(int n, double k);

} // namespace amorra::testing
