#include "proc_watch.h"

#include <dirent.h>

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

TaskCost taskCost(pid_t pid)
{
    TaskCost cost;
    const std::string base = "/proc/" + std::to_string(pid);
    {
        // Fields 14 and 15 of stat, after the command name in parentheses.
        std::ifstream in(base + "/stat");
        std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        const auto close = all.rfind(')');
        if (close != std::string::npos) {
            std::istringstream fields(all.substr(close + 2));
            std::string f;
            for (int i = 3; i <= 15 && fields >> f; ++i)
                if (i == 14 || i == 15)
                    cost.ticks += std::stoll(f);
        }
    }
    DIR *tasks = opendir((base + "/task").c_str());
    if (!tasks)
        return cost;
    while (const dirent *e = readdir(tasks)) {
        if (e->d_name[0] == '.')
            continue;
        const std::string task = base + "/task/" + e->d_name;
        std::ifstream sched(task + "/schedstat");
        long long run = 0;
        if (sched >> run)
            cost.runNs += run;
        std::ifstream status(task + "/status");
        for (std::string line; std::getline(status, line);)
            if (line.rfind("voluntary_ctxt_switches:", 0) == 0)
                cost.wakeups += std::stoll(line.substr(line.find(':') + 1));
    }
    closedir(tasks);
    return cost;
}

} // namespace amorra::bench
