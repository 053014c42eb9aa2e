#pragma once

// What the machine and a process are doing, read from /proc: the load while
// a benchmark runs, and what a program costs while it should be idle.
#include <sys/types.h>

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

// A process's running time and wakeups so far, over all its threads.
struct TaskCost
{
    long long runNs = 0;      // time on a CPU (schedstat)
    long long ticks = 0;      // utime + stime, in clock ticks
    long long wakeups = 0;    // voluntary context switches: each time it slept and was woken
};
TaskCost taskCost(pid_t pid);

} // namespace amorra::bench
