// Start-up, memory, click-to-repaint and idle cost of the game against a
// bare Qt window, in the same run and on the same display. The probe is
// preloaded to time from inside; under X (--x11) the same figures are also
// taken from outside, as a compositor sees them: the first change on the
// screen after the start, and real input to the last change it caused.
#include "proc_watch.h"
#include "stats.h"
#include "x_watch.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;
using amorra::lab::quantile;
using namespace amorra::bench;

namespace {

constexpr double kFrameUs = 1e6 / 60;

struct Options
{
    std::string game, minimal, minimalSound, probe, entry, guide, label = "this display";
    int runs = 15, games = 1, idleSeconds = 30;
    std::string seed = "10"; // with the probe's way of playing, a won game with two notices
    bool x11 = false;
};

struct Idle
{
    double cpuPercent = 0, wakeupsPerSecond = 0;
};

// What one run of a program told: from its probe and from outside.
struct Run
{
    bool ok = false;
    double startupMs = 0;  // inside: the probe's first paint
    double outsideMs = 0;  // outside: the first change on the screen
    double endHwmKb = 0;
    int clicks = 0, games = 0;
    std::string ending, pluginsMain;
    std::map<std::string, std::vector<double>> insideUs, outsideUs; // by kind of click
    std::map<std::string, Idle> idle;
    int unpainted = 0;
};

struct Launch
{
    std::string program;
    bool probe = false;
    std::string mode = "paint";
    std::string dir;                // working folder; a fresh one when empty
    std::vector<std::string> env;   // NAME=value
    bool seedGuide = false;         // tuteshow = 1 and the guide beside it
    int minimalClicks = 0;
};

Launch launch(const std::string &program, bool probe, const std::string &mode = "paint")
{
    Launch l;
    l.program = program;
    l.probe = probe;
    l.mode = mode;
    return l;
}

// Lines from a pipe, as they come.
class LineReader
{
public:
    explicit LineReader(int fd) : m_fd(fd) {}
    bool next(std::string &line)
    {
        for (;;) {
            const auto nl = m_buffer.find('\n');
            if (nl != std::string::npos) {
                line = m_buffer.substr(0, nl);
                m_buffer.erase(0, nl + 1);
                return true;
            }
            char chunk[512];
            const ssize_t n = read(m_fd, chunk, sizeof chunk);
            if (n <= 0)
                return false;
            m_buffer.append(chunk, size_t(n));
        }
    }
    bool hasLine() const { return m_buffer.find('\n') != std::string::npos; }

private:
    int m_fd;
    std::string m_buffer;
};

std::vector<Rect> parseRects(std::istringstream &in)
{
    std::vector<Rect> rects;
    for (std::string r; in >> r;) {
        Rect rect;
        if (std::sscanf(r.c_str(), "%d,%d,%d,%d", &rect.x, &rect.y, &rect.w, &rect.h) == 4)
            rects.push_back(rect);
    }
    return rects;
}

Idle watchIdle(pid_t pid, int seconds)
{
    // Let the window settle (its first frames, a sound finishing) first.
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const auto before = threadCosts(pid);
    const long long t0 = monotonicNs();
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const TaskCost cost = costBetween(before, threadCosts(pid));
    const double ns = double(monotonicNs() - t0);
    return {100.0 * double(cost.runNs) / ns, double(cost.wakeups) * 1e9 / ns};
}

class Bench
{
public:
    explicit Bench(const Options &o) : m_o(o)
    {
        if (o.x11)
            m_x = XWatch::open();
    }
    bool hasX() const { return m_x != nullptr; }

    Run run(const Launch &l)
    {
        Run r;
        char dirTemplate[] = "/tmp/amorra-bench-XXXXXX";
        const std::string tmp = mkdtemp(dirTemplate) ? dirTemplate : "";
        if (tmp.empty())
            return r;
        const std::string dir = l.dir.empty() ? tmp : l.dir;
        const std::string out = tmp + "/probe.txt";
        if (l.seedGuide) {
            // The player's folder of a first start ($XDG_DATA_HOME/amorra):
            // the guide shows at START.
            const std::string folder = dir + "/amorra";
            std::error_code ec;
            fs::create_directories(folder, ec);
            std::ofstream(folder + "/tuteshow", std::ios::binary).write("\1\0", 2);
            fs::copy_file(m_o.guide, folder + "/qsguide.rtf", fs::copy_options::overwrite_existing, ec);
        }
        int req[2] = {-1, -1}, ack[2] = {-1, -1};
        const bool driven = m_x && l.probe && l.mode == "game";
        if (driven && (pipe(req) != 0 || pipe(ack) != 0))
            return r;
        if (m_x) {
            settle();
        }
        const long long start = monotonicNs();
        const pid_t pid = fork();
        if (pid == 0) {
            if (chdir(dir.c_str()) != 0)
                _exit(126);
            // The game plays in $XDG_DATA_HOME/amorra: here, not in the player's own folder.
            setenv("XDG_DATA_HOME", dir.c_str(), 1);
            for (const std::string &e : l.env)
                putenv(strdup(e.c_str()));
            if (l.probe) {
                setenv("LD_PRELOAD", m_o.probe.c_str(), 1);
                setenv("AMORRA_PROBE_MODE", l.mode.c_str(), 1);
                setenv("AMORRA_PROBE_OUT", out.c_str(), 1);
                setenv("AMORRA_PROBE_SEED", m_o.seed.c_str(), 1);
                setenv("AMORRA_PROBE_CLICKS", std::to_string(l.minimalClicks).c_str(), 1);
            }
            if (driven) {
                close(req[0]);
                close(ack[1]);
                setenv("AMORRA_PROBE_REQ_FD", std::to_string(req[1]).c_str(), 1);
                setenv("AMORRA_PROBE_ACK_FD", std::to_string(ack[0]).c_str(), 1);
            }
            if (!std::freopen("/dev/null", "w", stdout) || !std::freopen("/dev/null", "w", stderr))
                _exit(125);
            execl(l.program.c_str(), l.program.c_str(), static_cast<char *>(nullptr));
            _exit(127);
        }
        if (driven) {
            close(req[1]);
            close(ack[0]);
            drive(pid, req[0], ack[1], r);
            close(req[0]);
            close(ack[1]);
        } else if (m_x && !l.probe) {
            const long long first = m_x->waitForDamage(20000000000LL);
            if (first > 0) {
                r.outsideMs = double(first - start) / 1e6;
                r.ok = true;
            }
            kill(pid, SIGTERM);
        }
        reap(pid);
        if (l.probe)
            readProbe(out, start, r);
        std::error_code ec;
        fs::remove_all(tmp, ec);
        return r;
    }

private:
    // Waits until nothing changes on the screen any more (a window that
    // just went away uncovers the desktop), so the next start begins clean.
    void settle()
    {
        m_x->lastDamage(monotonicNs(), 50000000LL, 2000000000LL, {});
    }

    void reap(pid_t pid)
    {
        int status = 0;
        for (int waited = 0; waited < 60000; waited += 2) {
            if (waitpid(pid, &status, WNOHANG) == pid)
                return;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
    }

    // Serves the probe's requests: clicks through the X server, timed from
    // outside, and idle spells, until it ends.
    void drive(pid_t pid, int reqFd, int ackFd, Run &r)
    {
        LineReader lines(reqFd);
        std::string line;
        auto answer = [&] {
            if (write(ackFd, "ok\n", 3) != 3)
                return;
        };
        const bool trace = std::getenv("AMORRA_BENCH_TRACE") != nullptr;
        while (lines.next(line)) {
            if (trace)
                std::fprintf(stderr, "probe: %s\n", line.c_str());
            std::istringstream in(line);
            std::string verb;
            in >> verb;
            if (verb == "end")
                return;
            if (verb == "idle") {
                std::string what;
                std::getline(in >> std::ws, what);
                // Each window's idle cost is taken once per bench run.
                if (m_idleTaken.insert(what).second)
                    r.idle[what] = watchIdle(pid, m_o.idleSeconds);
                m_x->drain();
                answer();
                continue;
            }
            if (verb != "click")
                continue;
            int x = 0, y = 0;
            std::string kind;
            in >> x >> y;
            std::getline(in >> std::ws, kind);
            // The pointer first, and whatever hovering repaints, untimed.
            m_x->move(x, y);
            m_x->lastDamage(monotonicNs(), 30000000LL, 500000000LL, {});
            const long long t0 = m_x->click(x, y);
            std::vector<std::pair<long long, Rect>> seen;
            std::string done;
            for (;;) {
                pollfd p[2] = {{m_x->fd(), POLLIN, 0}, {reqFd, POLLIN, 0}};
                poll(p, 2, 5);
                m_x->readPending(seen);
                if ((p[1].revents & (POLLIN | POLLHUP)) || lines.hasLine()) {
                    if (!lines.next(done))
                        return;
                    break;
                }
            }
            std::istringstream doneIn(done);
            std::string word, inside;
            doneIn >> word >> inside;
            const std::vector<Rect> animations = parseRects(doneIn);
            long long last = m_x->lastDamage(t0, 15000000LL, 3000000000LL, animations);
            for (const auto &[t, rect] : seen) {
                const bool animation = std::any_of(animations.begin(), animations.end(),
                                                   [&](const Rect &a) { return a.contains(rect); });
                if (t >= t0 && !animation)
                    last = std::max(last, t);
            }
            if (last > 0)
                r.outsideUs[kind].push_back(double(last - t0) / 1000.0);
            if (trace)
                std::fprintf(stderr, "  %s: inside %s us, outside %.0f us\n", kind.c_str(), inside.c_str(),
                             last > 0 ? double(last - t0) / 1000.0 : -1.0);
            answer();
        }
    }

    void readProbe(const std::string &path, long long start, Run &r)
    {
        std::ifstream in(path);
        for (std::string line; std::getline(in, line);) {
            const auto eq = line.find('=');
            if (eq == std::string::npos)
                continue;
            const std::string key = line.substr(0, eq), value = line.substr(eq + 1);
            if (key == "paint_ns") {
                r.startupMs = static_cast<double>(std::atoll(value.c_str()) - start) / 1e6;
                r.ok = true;
            } else if (key == "end_hwm_kb") {
                r.endHwmKb = std::atof(value.c_str());
            } else if (key == "ending") {
                r.ending = value;
            } else if (key == "clicks") {
                r.clicks = std::atoi(value.c_str());
            } else if (key == "games") {
                r.games = std::atoi(value.c_str());
            } else if (key == "plugins_main") {
                r.pluginsMain = value;
            } else if (key == "click_us") {
                const auto colon = value.rfind(':');
                const std::string kind = value.substr(0, colon), us = value.substr(colon + 1);
                if (us == "none")
                    ++r.unpainted;
                else
                    r.insideUs[kind].push_back(std::atof(us.c_str()));
            }
        }
    }

    const Options &m_o;
    std::unique_ptr<XWatch> m_x;
    std::set<std::string> m_idleTaken;
};

std::string ratioVerdict(double ratio, double limit)
{
    char buf[96];
    std::snprintf(buf, sizeof buf, "%5.2fx  (target <= %.2fx: %s)", ratio, limit, ratio <= limit ? "within" : "OVER");
    return buf;
}

void pairedRow(const std::vector<double> &ratios)
{
    if (!ratios.empty())
        std::printf("  %-44s %5.2fx  (p10 %.2f, p90 %.2f)\n", "  paired, start by start (median)", quantile(ratios, 0.5),
                    quantile(ratios, 0.1), quantile(ratios, 0.9));
}

void startupRow(const char *name, const std::vector<double> &v)
{
    std::printf("  %-44s %8.1f ms   (p10 %.1f, p90 %.1f)\n", name, quantile(v, 0.5), quantile(v, 0.1), quantile(v, 0.9));
}

int usage()
{
    std::fprintf(stderr, "Usage: amorra-startbench --game PATH --minimal PATH --probe PATH --guide PATH [--entry PATH]\n"
                         "       [--minimal-sound PATH]\n"
                         "       [--runs N] [--games N] [--idle-seconds N] [--seed N] [--label TEXT] [--x11]\n");
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    Options o;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        const char *v = i + 1 < argc ? argv[i + 1] : "";
        if (a == "--x11") {
            o.x11 = true;
            continue;
        }
        ++i;
        if (a == "--game")
            o.game = v;
        else if (a == "--minimal")
            o.minimal = v;
        else if (a == "--probe")
            o.probe = v;
        else if (a == "--minimal-sound")
            o.minimalSound = fs::absolute(v).string();
        else if (a == "--entry")
            o.entry = v;
        else if (a == "--guide")
            o.guide = v;
        else if (a == "--runs")
            o.runs = std::max(1, std::atoi(v));
        else if (a == "--games")
            o.games = std::max(1, std::atoi(v));
        else if (a == "--idle-seconds")
            o.idleSeconds = std::max(1, std::atoi(v));
        else if (a == "--seed")
            o.seed = v;
        else if (a == "--label")
            o.label = v;
        else
            return usage();
    }
    if (o.game.empty() || o.minimal.empty() || o.probe.empty() || o.guide.empty())
        return usage();
    for (std::string *p : {&o.game, &o.minimal, &o.probe, &o.guide})
        *p = fs::absolute(*p).string();

    Bench bench(o);
    if (o.x11 && !bench.hasX()) {
        std::fprintf(stderr, "amorra-startbench: --x11 needs a display with XDamage and XTest\n");
        return 1;
    }
    const bool outside = bench.hasX();
    const std::string loadBefore = loadAverage();
    const CpuTimes cpuBefore = cpuTimes();
    const long long wallBefore = monotonicNs();

    // The player's own data folder for the installed command, kept across
    // starts as a player's is: only the first start seeds it.
    char homeTemplate[] = "/tmp/amorra-bench-home-XXXXXX";
    const std::string home = mkdtemp(homeTemplate) ? homeTemplate : "/tmp";
    const std::vector<std::string> entryEnv = {"HOME=" + home, "XDG_DATA_HOME=" + home + "/data"};

    // The game's starts, like the entry's, use that folder: a player's
    // usual start, not the first one that fills it.
    const Launch bareIn = launch(o.minimal, true), bareOut = launch(o.minimal, false);
    Launch gameIn = launch(o.game, true), gameOut = launch(o.game, false), entryOut = launch(o.entry, false);
    gameIn.env = gameOut.env = entryOut.env = entryEnv;
    // One start of each first: the font cache and the disk cache settle.
    bench.run(bareIn);
    bench.run(gameIn);
    if (outside && !o.entry.empty())
        bench.run(entryOut);

    std::vector<double> sBareIn, sGameIn, sBareOut, sGameOut, sEntryOut;
    // Each start against the bare window's started beside it: this machine
    // now and then runs a third faster or slower for a while, which moves
    // the medians of the two programs apart when it changes mid-run.
    std::vector<double> pairedIn, pairedEntry;
    for (int i = 0; i < o.runs; ++i) {
        // Alternate, so that a slow spell of the machine hits all alike.
        const Run m = bench.run(bareIn), g = bench.run(gameIn);
        if (!m.ok || !g.ok) {
            std::fprintf(stderr, "amorra-startbench: no first paint seen (%s)\n", !m.ok ? "bare window" : "game");
            return 1;
        }
        sBareIn.push_back(m.startupMs);
        sGameIn.push_back(g.startupMs);
        pairedIn.push_back(g.startupMs / m.startupMs);
        if (!outside)
            continue;
        const Run mo = bench.run(bareOut), go = bench.run(gameOut);
        if (mo.ok && go.ok) {
            sBareOut.push_back(mo.outsideMs);
            sGameOut.push_back(go.outsideMs);
        }
        if (!o.entry.empty()) {
            const Run eo = bench.run(entryOut);
            if (eo.ok)
                sEntryOut.push_back(eo.outsideMs);
            if (eo.ok && mo.ok)
                pairedEntry.push_back(eo.outsideMs / mo.outsideMs);
        }
    }

    // Whole games: the game won (a lost game plays again), the quick start
    // guide at START and the Top 20 window after the win; the bare window
    // gets as many clicks.
    std::vector<double> memBare, memGame, memSound;
    std::map<std::string, std::vector<double>> inside, outsideClicks, bareInside, bareOutside;
    std::map<std::string, std::vector<double>> idleCpu, idleWake;
    int unpainted = 0, won = 0, clicks = 0, games = 0;
    std::string plugins;
    for (int i = 0; i < o.games; ++i) {
        Launch play = launch(o.game, true, "game");
        play.seedGuide = true;
        const Run g = bench.run(play);
        Launch bare = launch(o.minimal, true, "game");
        bare.minimalClicks = g.clicks;
        const Run m = bench.run(bare);
        if (!g.ok || !m.ok) {
            std::fprintf(stderr, "amorra-startbench: a scripted game did not run\n");
            return 1;
        }
        memGame.push_back(g.endHwmKb);
        memBare.push_back(m.endHwmKb);
        if (!o.minimalSound.empty()) {
            // The same window beeping through ALSA at each click: what any
            // program holds once it has made a sound on this machine.
            Launch beeping = launch(o.minimalSound, true, "game");
            beeping.minimalClicks = g.clicks;
            if (const Run b = bench.run(beeping); b.ok)
                memSound.push_back(b.endHwmKb);
        }
        won += g.ending == "won";
        clicks += g.clicks;
        games += g.games;
        unpainted += g.unpainted;
        plugins = g.pluginsMain;
        for (const auto &[k, v] : g.insideUs)
            inside[k].insert(inside[k].end(), v.begin(), v.end());
        for (const auto &[k, v] : g.outsideUs)
            outsideClicks[k].insert(outsideClicks[k].end(), v.begin(), v.end());
        for (const auto &[k, v] : m.insideUs)
            bareInside[k].insert(bareInside[k].end(), v.begin(), v.end());
        for (const auto &[k, v] : m.outsideUs)
            bareOutside[k].insert(bareOutside[k].end(), v.begin(), v.end());
        for (const Run *r : {&g, &m})
            for (const auto &[what, cost] : r->idle) {
                idleCpu[what].push_back(cost.cpuPercent);
                idleWake[what].push_back(cost.wakeupsPerSecond);
            }
    }

    const std::string loadAfter = loadAverage();
    const std::vector<double> busy = busyPercent(cpuBefore, cpuTimes());
    const double wall = double(monotonicNs() - wallBefore) / 1e9;
    rusage self{}, children{};
    getrusage(RUSAGE_SELF, &self);
    getrusage(RUSAGE_CHILDREN, &children);
    auto seconds = [](const timeval &t) { return double(t.tv_sec) + double(t.tv_usec) / 1e6; };
    const double ours = seconds(self.ru_utime) + seconds(self.ru_stime) + seconds(children.ru_utime) + seconds(children.ru_stime);

    std::printf("\n%s: %d starts of each program, %d whole game(s), idle spells of %d s\n", o.label.c_str(), o.runs,
                o.games, o.idleSeconds);
    std::printf("Machine load: before %s, after %s; cores busy", loadBefore.c_str(), loadAfter.c_str());
    for (size_t c = 0; c < busy.size(); ++c)
        std::printf(" cpu%zu %.0f%%", c, busy[c]);
    std::printf("; the programs measured used %.2f of a core on average, the rest was other work\n", ours / wall);

    std::printf("\nStart-up to the first painted window (median)\n");
    bool ok = true;
    if (outside) {
        std::printf(" from outside (launch to the first change on the screen):\n");
        startupRow("bare Qt window", sBareOut);
        if (!sEntryOut.empty()) {
            startupRow("amorra as the desktop entry starts it", sEntryOut);
            const double r = quantile(sEntryOut, 0.5) / quantile(sBareOut, 0.5);
            std::printf("  %-44s %s\n", "desktop entry / bare window", ratioVerdict(r, 1.10).c_str());
            pairedRow(pairedEntry);
            ok = ok && r <= 1.10;
        }
        startupRow("the game program alone", sGameOut);
        std::printf("  %-44s %s\n", "game program / bare window",
                    ratioVerdict(quantile(sGameOut, 0.5) / quantile(sBareOut, 0.5), 1.10).c_str());
    }
    std::printf(" from inside (launch to the probe's first paint and flush):\n");
    startupRow("bare Qt window", sBareIn);
    startupRow("the game program", sGameIn);
    const double rIn = quantile(sGameIn, 0.5) / quantile(sBareIn, 0.5);
    std::printf("  %-44s %s\n", "game program / bare window", ratioVerdict(rIn, 1.10).c_str());
    pairedRow(pairedIn);

    const double kBare = quantile(memBare, 0.5), kGame = quantile(memGame, 0.5);
    const double rMem = kGame / kBare;
    ok = ok && rMem <= 1.20;
    std::printf("\nPeak memory (VmHWM), median\n");
    std::printf("  %-44s %8.1f MB\n", ("bare window after " + std::to_string(clicks / o.games) + " clicks").c_str(),
                kBare / 1024);
    std::printf("  %-44s %8.1f MB\n", "amorra after a won game, guide and Top 20", kGame / 1024);
    std::printf("  %-44s %s\n", "amorra / bare window", ratioVerdict(rMem, 1.20).c_str());
    if (!memSound.empty()) {
        const double kSound = quantile(memSound, 0.5);
        std::printf("  %-44s %8.1f MB\n", "bare window beeping at each click", kSound / 1024);
        std::printf("  %-44s %5.2fx\n", "amorra / bare window that beeps", kGame / kSound);
    }
    std::printf("  (%d of %d runs won; %d game(s) played in all)\n", won, o.games, games);

    std::printf("\nClick to repaint (target: every click within one 60 Hz frame, %.1f ms)\n", kFrameUs / 1000);
    std::printf("  %-22s %6s | %-32s | %-32s\n", "", "", "inside: median / p99 / max ms", "outside: median / p99 / max ms");
    long late = 0;
    size_t all = 0;
    auto cell = [&](const std::vector<double> &v, bool count) {
        if (v.empty())
            return std::string("-");
        const double mx = *std::max_element(v.begin(), v.end());
        const long over = std::count_if(v.begin(), v.end(), [](double us) { return us > kFrameUs; });
        if (count)
            late += over;
        char buf[64];
        std::snprintf(buf, sizeof buf, "%6.2f %6.2f %6.2f  %ld late", quantile(v, 0.5) / 1000, quantile(v, 0.99) / 1000,
                      mx / 1000, over);
        return std::string(buf);
    };
    for (const auto &[kind, v] : inside) {
        all += v.size();
        const auto o2 = outsideClicks.find(kind);
        std::printf("  %-22s %6zu | %-32s | %-32s\n", kind.c_str(), v.size(), cell(v, true).c_str(),
                    o2 == outsideClicks.end() ? "-" : cell(o2->second, true).c_str());
    }
    for (const auto &[kind, v] : bareInside) {
        const auto o2 = bareOutside.find(kind);
        std::printf("  %-22s %6zu | %-32s | %-32s\n", ("bare: " + kind).c_str(), v.size(), cell(v, false).c_str(),
                    o2 == bareOutside.end() ? "-" : cell(o2->second, false).c_str());
    }
    std::printf("  %zu clicks timed, %ld measurements later than a frame; %d clicks changed nothing inside\n", all, late,
                unpainted);
    ok = ok && late == 0;

    if (!idleCpu.empty()) {
        std::printf("\nWhile idle (one spell of %d s each, in the first game; target: animations <= 0.3%% of a core, still "
                    "windows 0%%)\n",
                    o.idleSeconds);
        std::printf("  %-22s %10s %12s\n", "window", "CPU", "wakeups/s");
        for (const auto &[what, v] : idleCpu) {
            const double cpu = quantile(v, 0.5), wake = quantile(idleWake[what], 0.5);
            const bool animated = what == "win screen" || what == "Top 20 window";
            const bool within = animated ? cpu <= 0.3 : cpu <= 0.05;
            ok = ok && within;
            std::printf("  %-22s %9.2f%% %12.1f   %s\n", what.c_str(), cpu, wake, within ? "within" : "OVER");
        }
    }

    const bool clean = plugins == "none";
    std::printf("\nImage plugins or SVG loaded by the time the main screen is up: %s (%s)\n", plugins.c_str(),
                clean ? "as it should be" : "REGRESSION: start-up loads plugins it does not need");
    ok = ok && clean;
    std::printf("\nVerdict on %s: %s\n", o.label.c_str(), ok ? "every figure within its target" : "some figure OVER");
    // For the script that compares displays.
    std::printf("summary %s game_peak_kb=%.0f bare_peak_kb=%.0f\n", o.label.c_str(), kGame, kBare);
    std::error_code ec;
    fs::remove_all(home, ec);
    return clean ? 0 : 1;
}
