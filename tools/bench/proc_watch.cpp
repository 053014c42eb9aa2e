#include "proc_watch.h"

#include <dirent.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace amorra::bench {

CpuTimes cpuTimes()
{
    CpuTimes t;
    std::ifstream in("/proc/stat");
    for (std::string line; std::getline(in, line);) {
        // "cpu0 user nice system idle iowait irq softirq steal ..."
        if (line.rfind("cpu", 0) != 0 || line.size() < 4 || line[3] == ' ')
            continue;
        std::istringstream fields(line.substr(line.find(' ')));
        unsigned long long v = 0, total = 0, idle = 0;
        for (int i = 0; i < 8 && fields >> v; ++i) {
            total += v;
            if (i == 3 || i == 4)
                idle += v;
        }
        t.busy.push_back(total - idle);
        t.total.push_back(total);
    }
    return t;
}

std::vector<double> busyPercent(const CpuTimes &before, const CpuTimes &after)
{
    std::vector<double> out;
    for (size_t i = 0; i < after.total.size() && i < before.total.size(); ++i) {
        const double total = double(after.total[i] - before.total[i]);
        out.push_back(total > 0 ? 100.0 * double(after.busy[i] - before.busy[i]) / total : 0.0);
    }
    return out;
}

std::string loadAverage()
{
    std::ifstream in("/proc/loadavg");
    std::string a, b, c;
    in >> a >> b >> c;
    return a + " " + b + " " + c;
}

std::map<long, TaskCost> threadCosts(pid_t pid)
{
    std::map<long, TaskCost> threads;
    const std::string base = "/proc/" + std::to_string(pid) + "/task/";
    DIR *tasks = opendir(base.c_str());
    if (!tasks)
        return threads;
    while (const dirent *e = readdir(tasks)) {
        if (e->d_name[0] == '.')
            continue;
        TaskCost &cost = threads[std::atol(e->d_name)];
        const std::string task = base + e->d_name;
        std::ifstream sched(task + "/schedstat");
        sched >> cost.runNs;
        std::ifstream status(task + "/status");
        for (std::string line; std::getline(status, line);)
            if (line.rfind("voluntary_ctxt_switches:", 0) == 0)
                cost.wakeups = std::stoll(line.substr(line.find(':') + 1));
    }
    closedir(tasks);
    return threads;
}

TaskCost costBetween(const std::map<long, TaskCost> &before, const std::map<long, TaskCost> &after)
{
    // Thread by thread: a thread that ended takes its counts with it, one
    // that started brings all of its own.
    TaskCost d;
    for (const auto &[tid, cost] : after) {
        const auto was = before.find(tid);
        d.runNs += cost.runNs - (was == before.end() ? 0 : was->second.runNs);
        d.wakeups += cost.wakeups - (was == before.end() ? 0 : was->second.wakeups);
    }
    return d;
}

} // namespace amorra::bench
