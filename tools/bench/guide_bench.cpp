// How long the quick start guide's reader takes on guides of every shape,
// at the largest size the game opens (4 MiB), against a one-second limit.
// Also prints the time at an eighth of the size: linear growth keeps the
// ratio near 8, a square would make it 64.
// Usage: amorra-guide-bench [KiB]   (default 4096)
#include "screens/rtf_reader.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QTextDocument>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr double kLimitMs = 1000;

// A guide of `bytes` bytes made of one piece repeated.
QByteArray guide(qsizetype bytes, const QByteArray &head, const QByteArray &piece)
{
    QByteArray out = "{\\rtf1\\ansi" + head;
    out.reserve(bytes + piece.size() + 2);
    while (out.size() + piece.size() + 1 <= bytes)
        out += piece;
    return out + "}";
}

// Processor time rather than wall time, so that other programs busy on
// the machine do not count against the reader.
double cpuMs()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

double readMs(const QByteArray &rtf, bool layOut)
{
    const double start = cpuMs();
    QTextDocument document;
    amorra::readRtf(rtf, &document);
    if (layOut)
        document.documentLayout()->documentSize(); // what showing it costs besides
    return cpuMs() - start;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QGuiApplication app(argc, argv);
    const qsizetype kib = argc > 1 ? std::atoi(argv[1]) : 4096;
    const qsizetype size = kib * 1024;

    QByteArray colours = "{\\colortbl;";
    for (int i = 0; i < 200; ++i)
        colours += "\\red" + QByteArray::number(i) + "\\green0\\blue9;";
    colours += "}";
    const std::vector<std::pair<const char *, std::function<QByteArray(qsizetype)>>> shapes = {
        {"plain text, one paragraph", [](qsizetype n) { return guide(n, " ", "word "); }},
        {"short bold groups, one paragraph", [](qsizetype n) { return guide(n, " ", "{\\b x}"); }},
        {"bold on and off, one paragraph", [](qsizetype n) { return guide(n, " ", "\\b x\\b0 y"); }},
        {"colours and sizes, one paragraph",
         [colours](qsizetype n) { return guide(n, colours, "{\\cf7\\fs30 a}{\\cf9\\fs20 b}"); }},
        {"short paragraphs", [](qsizetype n) { return guide(n, " ", "x\\par "); }},
        {"centred paragraphs in groups", [](qsizetype n) { return guide(n, " ", "{\\qc x\\par}"); }},
        {"escaped characters", [](qsizetype n) { return guide(n, " ", "\\'e9\\'80"); }},
        {"Unicode characters", [](qsizetype n) { return guide(n, " ", "\\u8364?"); }},
        {"unknown control words", [](qsizetype n) { return guide(n, " ", "\\zork12 "); }},
        {"hidden destinations", [](qsizetype n) { return guide(n, " ", "{\\*\\x y}"); }},
        {"deep nesting", [](qsizetype n) { return guide(n, " ", QByteArray(300, '{') + "x" + QByteArray(300, '}')); }},
        {"empty groups", [](qsizetype n) { return guide(n, " ", "{}"); }},
    };

    std::printf("Guide reader, %lld KiB (processor time: read / read and lay out; limit %.0f ms each)\n", (long long)kib,
                kLimitMs);
    std::printf("%-36s %10s %12s %14s %8s\n", "shape", "read ms", "+layout ms", "growth x8", "");
    int failures = 0;
    for (const auto &[name, make] : shapes) {
        const QByteArray big = make(size);
        const double small = readMs(make(size / 8), false);
        const double read = readMs(big, false);
        const double shown = readMs(big, true);
        const bool ok = read < kLimitMs && shown < kLimitMs;
        failures += ok ? 0 : 1;
        std::printf("%-36s %10.1f %12.1f %14.1f %8s\n", name, read, shown, small > 0 ? read / small : 0.0,
                    ok ? "ok" : "SLOW");
    }
    return failures == 0 ? 0 : 1;
}
