// Time of every click handler on a view that draws nothing: the game's own
// cost of a click, before any widget work. Each handler call is timed on
// its own, so the median and the 99th percentile are those of single clicks.
#include "null_view.h"
#include "stats.h"

#include "actions/actions.h"
#include "core/game.h"
#include "core/game_flow.h"
#include "core/random_source.h"
#include "view/recording_view.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

using namespace amorra;

namespace {

using Clock = std::chrono::steady_clock;

// One game on a view, kept playable between timed clicks: money topped up,
// notices answered, a new game when one ends. None of this is timed.
template <class View>
struct Table
{
    View view;
    SystemRandom random{2024};
    Game game{view, random};

    Table()
    {
        if constexpr (std::is_same_v<View, RecordingView>)
            view.recording = false;
        game.setSetup({"Bench", 50, 50, 50});
        startFirstGame(game);
    }

    void keepPlayable()
    {
        view.openScreens.clear();
        view.EnableMain(true);
        if (game.state().game_over || game.state().day > 25) {
            game.Restart(true);
            game.updatestats();
        }
        if (game.state().money < 3000)
            game.add_money(5000);
    }

    void pick(int row)
    {
        view.selectRow(row);
        onListClick(game);
    }
};

// Runs `prepare` untimed and `click` timed, once per iteration, and reports
// the median and the 99th percentile of the single clicks.
template <class View>
void timeClicks(benchmark::State &state, const std::function<void(Table<View> &)> &prepare,
                const std::function<void(Table<View> &)> &click)
{
    Table<View> t;
    std::vector<double> ns;
    ns.reserve(1 << 16);
    for (auto _ : state) {
        t.keepPlayable();
        prepare(t);
        const auto start = Clock::now();
        click(t);
        const auto stop = Clock::now();
        const double seconds = std::chrono::duration<double>(stop - start).count();
        state.SetIterationTime(seconds);
        if (ns.size() < (1u << 20))
            ns.push_back(seconds * 1e9);
    }
    state.counters["p50_ns"] = lab::quantile(ns, 0.5);
    state.counters["p99_ns"] = lab::quantile(ns, 0.99);
}

template <class View>
void none(Table<View> &)
{
}

template <class View>
void registerAll(const std::string &viewName)
{
    using T = Table<View>;
    struct Case
    {
        const char *name;
        std::function<void(T &)> prepare, click;
    };
    const std::vector<Case> cases = {
        {"mode/BuyGift", none<View>, [](T &t) { onBuyGift(t.game); }},
        {"mode/CallHer", none<View>, [](T &t) { onCallHer(t.game); }},
        {"mode/TakeHerOut", none<View>, [](T &t) { onTakeHerOut(t.game); }},
        {"mode/GoToWork", none<View>, [](T &t) { onGoToWork(t.game); }},
        {"mode/GoShopping", none<View>, [](T &t) { onGoShopping(t.game); }},
        {"list/row", [](T &t) { onGoShopping(t.game); }, [](T &t) { t.pick(3); }},
        {"action/gift", [](T &t) { onBuyGift(t.game); t.pick(0); }, [](T &t) { onActionButton(t.game); }},
        {"action/question", [](T &t) { onCallHer(t.game); t.pick(static_cast<int>(t.game.state().day % 24)); },
         [](T &t) { onActionButton(t.game); }},
        {"action/date", [](T &t) { onTakeHerOut(t.game); t.pick(static_cast<int>(t.game.state().day % 11)); },
         [](T &t) { onActionButton(t.game); }},
        {"action/work", [](T &t) { onGoToWork(t.game); t.pick(0); }, [](T &t) { onActionButton(t.game); }},
        {"action/shop", [](T &t) { onGoShopping(t.game); t.pick(9); }, [](T &t) { onActionButton(t.game); }},
        {"askOut", [](T &t) { onCallHer(t.game); }, [](T &t) { onAskOut(t.game); }},
        {"noticeOk/Cat", [](T &t) { t.view.ShowNotice(NoticeKind::Cat, ""); },
         [](T &t) { OnNoticeOk(t.game, NoticeKind::Cat); }},
    };
    for (const Case &c : cases) {
        const std::string name = viewName + "/" + c.name;
        benchmark::RegisterBenchmark(name.c_str(), [c](benchmark::State &s) { timeClicks<View>(s, c.prepare, c.click); })
            ->UseManualTime()
            ->Unit(benchmark::kNanosecond);
    }
}

// What a clock reading costs, so the figures above can be read net of it.
void clockOverhead(benchmark::State &state)
{
    std::vector<double> ns;
    for (auto _ : state) {
        const auto start = Clock::now();
        const auto stop = Clock::now();
        const double seconds = std::chrono::duration<double>(stop - start).count();
        state.SetIterationTime(seconds);
        ns.push_back(seconds * 1e9);
    }
    state.counters["p50_ns"] = lab::quantile(ns, 0.5);
    state.counters["p99_ns"] = lab::quantile(ns, 0.99);
}

// Keeps every run's counters for the closing verdict.
class Collector : public benchmark::ConsoleReporter
{
public:
    Collector() : ConsoleReporter(OO_Tabular) {}
    std::map<std::string, std::pair<double, double>> p50p99;
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &r : runs) {
            auto a = r.counters.find("p50_ns"), b = r.counters.find("p99_ns");
            if (a != r.counters.end() && b != r.counters.end())
                p50p99[r.benchmark_name()] = {a->second.value, b->second.value};
        }
    }
};

} // namespace

int main(int argc, char **argv)
{
    registerAll<lab::NullView>("null");
    // The recording view with its log off, which tests use: for comparison.
    registerAll<RecordingView>("recording-off");
    benchmark::RegisterBenchmark("clock/read-twice", clockOverhead)->UseManualTime()->Unit(benchmark::kNanosecond);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    benchmark::Shutdown();

    constexpr double kLimitNs = 50000; // 50 microseconds
    int over = 0;
    std::printf("\nPer click on the null view (target: every handler under 50 us)\n");
    std::printf("%-34s %12s %12s  %s\n", "handler", "median us", "p99 us", "verdict");
    for (const auto &[fullName, v] : collector.p50p99) {
        const std::string name = fullName.substr(0, fullName.rfind("/manual_time"));
        const bool ok = v.second < kLimitNs;
        if (name.rfind("null/", 0) == 0)
            over += ok ? 0 : 1;
        std::printf("%-34s %12.3f %12.3f  %s\n", name.c_str(), v.first / 1000, v.second / 1000,
                    name.rfind("null/", 0) == 0 ? (ok ? "under 50 us" : "OVER 50 us") : "");
    }
    return over ? 3 : 0;
}
