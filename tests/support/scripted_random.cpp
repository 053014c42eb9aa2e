#include "scripted_random.h"

namespace amorra::testing {

ScriptedRandom::ScriptedRandom(std::initializer_list<double> values)
    : m_values(values)
{
}

void ScriptedRandom::push(std::initializer_list<double> values)
{
    m_values.insert(m_values.end(), values);
}

void ScriptedRandom::push(double value)
{
    m_values.push_back(value);
}

double ScriptedRandom::uniform()
{
    ++m_taken;
    if (m_values.empty()) {
        overrun = true;
        return fallback;
    }
    const double v = m_values.front();
    m_values.pop_front();
    return v;
}

double pick(int n, double k)
{
    // The middle of the n-th slice of [0, 1).
    return (n - 0.5) / k;
}

} // namespace amorra::testing
