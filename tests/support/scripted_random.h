#pragma once

#include "core/random_source.h"

#include <deque>
#include <initializer_list>

namespace amorra::testing {

// Hands out exactly the draws a test scripts, in order. Running dry answers
// 0.999, the least eventful draw, and sets `overrun` for the test to report.
class ScriptedRandom : public RandomSource
{
public:
    ScriptedRandom(std::initializer_list<double> values = {}) : m_values(values) {}
    void push(std::initializer_list<double> values) { m_values.insert(m_values.end(), values); }
    void push(double value, int times = 1) { m_values.insert(m_values.end(), static_cast<size_t>(times), value); }
    size_t remaining() const { return m_values.size(); }
    bool overrun = false;

    double uniform() override
    {
        overrun = overrun || m_values.empty();
        if (m_values.empty())
            return 0.999;
        const double v = m_values.front();
        m_values.pop_front();
        return v;
    }

private:
    std::deque<double> m_values;
};

// The value that makes Int(Rnd * k + 1) come out as n: the middle of its slice.
inline double pick(int n, double k)
{
    return (n - 0.5) / k;
}

} // namespace amorra::testing
