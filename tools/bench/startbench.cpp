// Start-up, memory and click-to-repaint of the game against a minimal Qt
// window, in the same run and on the same display. Each program is started
// with the probe preloaded, from an empty folder of its own.
#include "stats.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;
using amorra::lab::quantile;

namespace {

long long monotonicNs()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<long long>(ts.tv_sec) * 1000000000LL + ts.tv_nsec;
}

struct Probed
{
    bool ok = false;
    double startupMs = 0;
    double paintHwmKb = 0, endHwmKb = 0;
    std::string ending;
    std::map<std::string, std::vector<double>> clicksUs; // by kind
    int unpainted = 0;
};

// Starts `program` with the probe and waits for its report (60 s at most).
Probed runOnce(const std::string &program, const std::string &probe, const char *mode)
{
    Probed r;
    char dirTemplate[] = "/tmp/amorra-bench-XXXXXX";
    const char *dir = mkdtemp(dirTemplate);
    if (!dir)
        return r;
    const std::string out = std::string(dir) + "/probe.txt";

    const long long start = monotonicNs();
    const pid_t pid = fork();
    if (pid == 0) {
        if (chdir(dir) != 0)
            _exit(126);
        // The game plays in $XDG_DATA_HOME/amorra: here, not in the player's own folder.
        setenv("XDG_DATA_HOME", dir, 1);
        setenv("LD_PRELOAD", probe.c_str(), 1);
        setenv("AMORRA_PROBE_MODE", mode, 1);
        setenv("AMORRA_PROBE_OUT", out.c_str(), 1);
        std::freopen("/dev/null", "w", stdout);
        std::freopen("/dev/null", "w", stderr);
        execl(program.c_str(), program.c_str(), static_cast<char *>(nullptr));
        _exit(127);
    }
    int status = 0;
    bool done = false;
    for (int waited = 0; waited < 60000 && !done; waited += 2) {
        if (waitpid(pid, &status, WNOHANG) == pid)
            done = true;
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    if (!done) {
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
    }

    std::ifstream in(out);
    for (std::string line; std::getline(in, line);) {
        const auto eq = line.find('=');
        if (eq == std::string::npos)
            continue;
        const std::string key = line.substr(0, eq), value = line.substr(eq + 1);
        if (key == "paint_ns") {
            r.startupMs = static_cast<double>(std::atoll(value.c_str()) - start) / 1e6;
            r.ok = true;
        } else if (key == "paint_hwm_kb") {
            r.paintHwmKb = std::atof(value.c_str());
        } else if (key == "end_hwm_kb") {
            r.endHwmKb = std::atof(value.c_str());
        } else if (key == "ending") {
            r.ending = value;
        } else if (key == "click_us") {
            const auto colon = value.find(':');
            const std::string kind = value.substr(0, colon), us = value.substr(colon + 1);
            if (us == "none")
                ++r.unpainted;
            else
                r.clicksUs[kind].push_back(std::atof(us.c_str()));
        }
    }
    std::error_code ec;
    fs::remove_all(dir, ec);
    return r;
}

int usage()
{
    std::fprintf(stderr, "Usage: amorra-startbench --game PATH --minimal PATH --probe PATH [--minimal-sound PATH] [--runs N] [--games N] [--label TEXT]\n");
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    std::string game, minimal, minimalSound, probe, label = "this display";
    int runs = 15, games = 3;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string a = argv[i];
        if (a == "--game")
            game = argv[i + 1];
        else if (a == "--minimal")
            minimal = argv[i + 1];
        else if (a == "--minimal-sound")
            minimalSound = argv[i + 1];
        else if (a == "--probe")
            probe = argv[i + 1];
        else if (a == "--runs")
            runs = std::max(1, std::atoi(argv[i + 1]));
        else if (a == "--games")
            games = std::max(1, std::atoi(argv[i + 1]));
        else if (a == "--label")
            label = argv[i + 1];
        else
            return usage();
    }
    if (game.empty() || minimal.empty() || probe.empty())
        return usage();
    probe = fs::absolute(probe).string();
    game = fs::absolute(game).string();
    minimal = fs::absolute(minimal).string();
    if (!minimalSound.empty())
        minimalSound = fs::absolute(minimalSound).string();

    // One start of each first: the font cache and the disk cache settle.
    runOnce(minimal, probe, "paint");
    runOnce(game, probe, "paint");

    std::vector<double> startMin, startGame;
    for (int i = 0; i < runs; ++i) {
        // Alternate, so that a slow spell of the machine hits both alike.
        const Probed m = runOnce(minimal, probe, "paint");
        const Probed g = runOnce(game, probe, "paint");
        if (!m.ok || !g.ok) {
            std::fprintf(stderr, "amorra-startbench: no first paint seen (%s)\n", !m.ok ? "minimal window" : "game");
            return 1;
        }
        startMin.push_back(m.startupMs);
        startGame.push_back(g.startupMs);
    }

    std::vector<double> memMin, memGame, memSound;
    std::map<std::string, std::vector<double>> clicks, minimalClicks;
    int unpainted = 0;
    std::map<std::string, int> endings;
    for (int i = 0; i < games; ++i) {
        const Probed m = runOnce(minimal, probe, "game");
        const Probed g = runOnce(game, probe, "game");
        if (!m.ok || !g.ok) {
            std::fprintf(stderr, "amorra-startbench: a scripted game did not run\n");
            return 1;
        }
        memMin.push_back(m.endHwmKb);
        memGame.push_back(g.endHwmKb);
        if (!minimalSound.empty()) {
            const Probed s = runOnce(minimalSound, probe, "game");
            if (s.ok)
                memSound.push_back(s.endHwmKb);
        }
        ++endings[g.ending];
        unpainted += g.unpainted;
        for (const auto &[kind, v] : g.clicksUs)
            clicks[kind].insert(clicks[kind].end(), v.begin(), v.end());
        for (const auto &[kind, v] : m.clicksUs)
            minimalClicks[kind].insert(minimalClicks[kind].end(), v.begin(), v.end());
    }

    const double sMin = quantile(startMin, 0.5), sGame = quantile(startGame, 0.5);
    const double kMin = quantile(memMin, 0.5), kGame = quantile(memGame, 0.5);
    std::printf("\nStart-up and memory on %s (%d starts and %d scripted games each)\n", label.c_str(), runs, games);
    std::printf("%-16s %18s %10s %26s\n", "program", "first paint (ms)", "p90 (ms)", "peak RSS after a game (MB)");
    std::printf("%-16s %18.1f %10.1f %26.1f\n", "minimal window", sMin, quantile(startMin, 0.9), kMin / 1024);
    std::printf("%-16s %18.1f %10.1f %26.1f\n", "amorra-game", sGame, quantile(startGame, 0.9), kGame / 1024);
    std::printf("%-16s %17.2fx %10s %25.2fx\n", "game / minimal", sGame / sMin, "", kGame / kMin);
    std::printf("%-16s %18s %10s %26s\n", "target", "<= 1.25x", "", "<= 1.3x");
    if (!memSound.empty()) {
        // What any window pays once it has played a sound on this machine.
        const double kSound = quantile(memSound, 0.5);
        std::printf("%-16s %18s %10s %26.1f\n", "minimal + sound", "", "", kSound / 1024);
        std::printf("%-16s %18s %10s %25.2fx\n", "game / that", "", "", kGame / kSound);
    }
    const bool startOk = sGame <= 1.25 * sMin, memOk = kGame <= 1.3 * kMin;

    std::printf("\nClick to repaint on %s, real widgets (target: within one 60 Hz frame, 16.7 ms)\n", label.c_str());
    constexpr double kFrameUs = 1e6 / 60;
    std::printf("%-24s %7s %12s %12s %12s %12s\n", "click", "clicks", "median (ms)", "p99 (ms)", "max (ms)", "over a frame");
    std::vector<double> all;
    auto row = [&](const std::string &name, const std::vector<double> &v) {
        const double mx = v.empty() ? 0 : *std::max_element(v.begin(), v.end());
        const auto over = std::count_if(v.begin(), v.end(), [&](double us) { return us > kFrameUs; });
        std::printf("%-24s %7zu %12.3f %12.3f %12.3f %12ld\n", name.c_str(), v.size(), quantile(v, 0.5) / 1000,
                    quantile(v, 0.99) / 1000, mx / 1000, static_cast<long>(over));
    };
    for (const auto &[kind, v] : clicks) {
        row("game: " + kind, v);
        all.insert(all.end(), v.begin(), v.end());
    }
    row("game: every click", all);
    for (const auto &[kind, v] : minimalClicks)
        row("minimal: " + kind, v);
    const auto late = std::count_if(all.begin(), all.end(), [&](double us) { return us > kFrameUs; });
    const bool clickOk = unpainted == 0 && !all.empty() && late == 0;
    std::printf("Game endings:");
    for (const auto &[e, n] : endings)
        std::printf(" %s %d", e.c_str(), n);
    std::printf("; clicks never repainted: %d\n", unpainted);

    std::printf("\nVerdict on %s: start-up %s, memory %s, click to repaint %s", label.c_str(), startOk ? "within" : "OVER",
                memOk ? "within" : "OVER", clickOk ? "within (every click)" : "OVER");
    if (!clickOk && !all.empty())
        std::printf(" (%ld of %zu clicks later than a frame; p99 %.1f ms)", static_cast<long>(late), all.size(),
                    quantile(all, 0.99) / 1000);
    std::printf("\n");
    return 0;
}
