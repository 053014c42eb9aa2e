#include "svg_plot.h"

#include "stats.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace amorra::lab {

namespace {

constexpr double kWidth = 720, kLeft = 70, kRight = 20, kTop = 40, kPanel = 120, kGap = 30, kBottom = 40;
constexpr int kBins = 40;
const char *const kColours[] = {"#8c6bb1", "#2b8cbe", "#e34a33", "#31a354", "#fe9929", "#636363"};

std::string num(double v)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.1f", v);
    return buf;
}

std::string escaped(const std::string &text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '&':
            out += "&amp;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string decadeLabel(int decade)
{
    static const char *const names[] = {"1", "10", "100", "1k", "10k", "100k", "1M", "10M", "100M", "1G", "10G"};
    return decade >= 0 && decade <= 10 ? names[decade] : "1e" + std::to_string(decade);
}

} // namespace

std::string scorePlotSvg(const std::vector<ScoreSeries> &series)
{
    // A shared axis from the decade below the least score to the one above the greatest.
    double lo = 1e300, hi = 0;
    for (const ScoreSeries &s : series)
        for (double v : s.scores)
            if (v > 0) {
                lo = std::min(lo, v);
                hi = std::max(hi, v);
            }
    int d0 = 1, d1 = 6;
    if (hi > 0) {
        d0 = static_cast<int>(std::floor(std::log10(lo)));
        d1 = std::max(d0 + 1, static_cast<int>(std::ceil(std::log10(hi))));
    }
    const double plotW = kWidth - kLeft - kRight;
    auto xOf = [&](double score) { return kLeft + (std::log10(score) - d0) / (d1 - d0) * plotW; };

    const double height = kTop + static_cast<double>(series.size()) * (kPanel + kGap) + kBottom;
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + num(kWidth) + "\" height=\"" + num(height) +
                      "\" viewBox=\"0 0 " + num(kWidth) + ' ' + num(height) + "\" font-family=\"sans-serif\" font-size=\"12\">\n";
    svg += "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
    svg += "<text x=\"" + num(kLeft) + "\" y=\"24\" font-size=\"15\" font-weight=\"bold\">Amorra balance lab: score of won games"
           " (share of all games per bin)</text>\n";

    // Decade lines first, so the bars stand in front of them.
    const double axisY = kTop + static_cast<double>(series.size()) * (kPanel + kGap);
    for (int d = d0; d <= d1; ++d) {
        const double x = kLeft + static_cast<double>(d - d0) / (d1 - d0) * plotW;
        svg += "<line x1=\"" + num(x) + "\" y1=\"" + num(kTop) + "\" x2=\"" + num(x) + "\" y2=\"" + num(axisY) +
               "\" stroke=\"#ddd\"/>\n";
        svg += "<text x=\"" + num(x) + "\" y=\"" + num(axisY + 14) + "\" text-anchor=\"middle\">" + decadeLabel(d) + "</text>\n";
    }

    for (size_t i = 0; i < series.size(); ++i) {
        const ScoreSeries &s = series[i];
        const double top = kTop + static_cast<double>(i) * (kPanel + kGap) + 16;
        const double base = top + kPanel - 16;
        const char *colour = kColours[i % (sizeof kColours / sizeof *kColours)];

        std::vector<int> bins(kBins, 0);
        for (double v : s.scores) {
            if (v <= 0)
                continue;
            int b = static_cast<int>((std::log10(v) - d0) / (d1 - d0) * kBins);
            bins[static_cast<size_t>(std::clamp(b, 0, kBins - 1))]++;
        }
        const int tallest = std::max(1, *std::max_element(bins.begin(), bins.end()));
        const double games = std::max(1, s.games);
        const double topShare = tallest / games;

        char caption[160];
        std::snprintf(caption, sizeof caption, "%s: %zu of %d won", escaped(s.name).c_str(), s.scores.size(), s.games);
        svg += "<text x=\"" + num(kLeft) + "\" y=\"" + num(top - 4) + "\" font-weight=\"bold\">" + caption + "</text>\n";
        svg += "<line x1=\"" + num(kLeft) + "\" y1=\"" + num(base) + "\" x2=\"" + num(kWidth - kRight) + "\" y2=\"" + num(base) +
               "\" stroke=\"#333\"/>\n";
        if (s.scores.empty())
            svg += "<text x=\"" + num(kLeft + plotW / 2) + "\" y=\"" + num(base - 20) +
                   "\" text-anchor=\"middle\" fill=\"#555\">no game won</text>\n";
        else
            svg += "<text x=\"" + num(kLeft - 6) + "\" y=\"" + num(top + 10) + "\" text-anchor=\"end\" fill=\"#555\">" +
                   num(100 * topShare) + "%</text>\n";

        const double binW = plotW / kBins;
        for (int b = 0; b < kBins; ++b) {
            if (!bins[static_cast<size_t>(b)])
                continue;
            const double h = (base - top - 6) * bins[static_cast<size_t>(b)] / tallest;
            svg += "<rect x=\"" + num(kLeft + b * binW + 0.5) + "\" y=\"" + num(base - h) + "\" width=\"" + num(binW - 1) +
                   "\" height=\"" + num(h) + "\" fill=\"" + colour + "\"/>\n";
        }
        if (!s.scores.empty()) {
            const double med = quantile(s.scores, 0.5), p90 = quantile(s.scores, 0.9);
            double labelY = top + 10;
            for (auto [value, label] : {std::pair<double, const char *>{med, "median"}, {p90, "p90"}}) {
                if (value <= 0)
                    continue;
                const double x = xOf(value);
                svg += "<line x1=\"" + num(x) + "\" y1=\"" + num(top) + "\" x2=\"" + num(x) + "\" y2=\"" + num(base) +
                       "\" stroke=\"#000\" stroke-dasharray=\"4 3\"/>\n";
                svg += "<text x=\"" + num(x + 3) + "\" y=\"" + num(labelY) + "\" fill=\"#000\">" + label + ' ' +
                       std::to_string(static_cast<long long>(value)) + "</text>\n";
                labelY += 14; // the two marks often stand close together
            }
        }
    }

    svg += "<text x=\"" + num(kLeft + plotW / 2) + "\" y=\"" + num(axisY + 32) + "\" text-anchor=\"middle\">score (log scale)</text>\n";
    svg += "</svg>\n";
    return svg;
}

} // namespace amorra::lab
