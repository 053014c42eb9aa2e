#pragma once

// What the machine and a process are doing, read from /proc: the load while
// a benchmark runs, and what a program costs while it should be idle.
#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace amorra::bench {

// Busy and total time of each core so far, in clock ticks.
struct CpuTimes
{
    std::vector<unsigned long long> busy, total;
};
CpuTimes cpuTimes();
// How busy each core was between two samples, in percent.
std::vector<double> busyPercent(const CpuTimes &before, const CpuTimes &after);
// The first three fields of /proc/loadavg.
std::string loadAverage();

// A thread's running time and wakeups so far.
struct TaskCost
{
    long long runNs = 0;   // time on a CPU (schedstat)
    long long wakeups = 0; // voluntary context switches: each time it slept and was woken
};
// Every thread of a process, by thread id.
std::map<long, TaskCost> threadCosts(pid_t pid);
// What the process cost between two readings.
TaskCost costBetween(const std::map<long, TaskCost> &before, const std::map<long, TaskCost> &after);

} // namespace amorra::bench
