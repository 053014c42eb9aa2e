// own
#include "wav_info.h"

// std
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

quint32 le32(const QByteArray &b, int at)
{
    return quint32(quint8(b[at])) | quint32(quint8(b[at + 1])) << 8 | quint32(quint8(b[at + 2])) << 16
        | quint32(quint8(b[at + 3])) << 24;
}

quint16 le16(const QByteArray &b, int at)
{
    return quint16(quint8(b[at]) | quint8(b[at + 1]) << 8);
}

WavInfo refuse(const QString &why)
{
    WavInfo w;
    w.error = why;
    return w;
}

double toDb(double level)
{
    return level > 0 ? 20.0 * std::log10(level) : -200.0;
}

} // namespace

WavInfo readWav(const QByteArray &bytes)
{
    if (bytes.size() < 12 || !bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return refuse(QStringLiteral("not a RIFF/WAVE file"));
    WavInfo w;
    bool haveFmt = false;
    bool haveData = false;
    int at = 12;
    // Chunks are walked rather than assumed at fixed offsets, so that a LIST chunk or
    // a longer fmt chunk does not throw the reading off.
    while (at + 8 <= bytes.size()) {
        const QByteArray id = bytes.mid(at, 4);
        const quint32 size = le32(bytes, at + 4);
        const int body = at + 8;
        if (qint64(body) + size > bytes.size())
            return refuse(QStringLiteral("chunk '%1' runs past the end of the file").arg(QString::fromLatin1(id)));
        if (id == "fmt ") {
            if (size < 16)
                return refuse(QStringLiteral("fmt chunk too short"));
            w.format = le16(bytes, body);
            w.channels = le16(bytes, body + 2);
            w.sampleRate = int(le32(bytes, body + 4));
            w.bitsPerSample = le16(bytes, body + 14);
            haveFmt = true;
        } else if (id == "data") {
            if (!haveFmt)
                return refuse(QStringLiteral("data chunk before fmt chunk"));
            if (w.bitsPerSample == 16) {
                w.samples.resize(int(size / 2));
                for (int i = 0; i < w.samples.size(); ++i)
                    w.samples[i] = qint16(le16(bytes, body + 2 * i));
            }
            haveData = true;
        }
        at = body + int(size) + int(size & 1);
    }
    if (!haveFmt || !haveData)
        return refuse(QStringLiteral("missing fmt or data chunk"));
    w.ok = true;
    return w;
}

double WavInfo::seconds() const
{
    if (sampleRate <= 0 || channels <= 0)
        return 0.0;
    return double(samples.size()) / channels / sampleRate;
}

double WavInfo::peakDbfs() const
{
    int peak = 0;
    for (qint16 s : samples)
        peak = std::max(peak, std::abs(int(s)));
    return toDb(peak / 32768.0);
}

double WavInfo::rmsDbfs() const
{
    if (samples.isEmpty())
        return -200.0;
    double sum = 0.0;
    for (qint16 s : samples)
        sum += (s / 32768.0) * (s / 32768.0);
    return toDb(std::sqrt(sum / samples.size()));
}

double WavInfo::edgeLevel(double millis) const
{
    const int n = std::min<int>(samples.size(), std::max(1, int(millis / 1000.0 * sampleRate)));
    int worst = 0;
    for (int i = 0; i < n; ++i) {
        worst = std::max(worst, std::abs(int(samples[i])));
        worst = std::max(worst, std::abs(int(samples[samples.size() - 1 - i])));
    }
    return worst / 32768.0;
}
