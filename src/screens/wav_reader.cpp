#include "wav_reader.h"

#include "core/data_files.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace amorra {

namespace {

constexpr quint32 kHighestRate = 768000;
constexpr quint16 kTagPcm = 1;
constexpr quint16 kTagExtensible = 0xFFFE;
// Real files have a handful of chunks before their sound; a file of
// thousands of empty ones is not worth reading through.
constexpr int kMostChunks = 1024;

quint32 le32(const char *b)
{
    return qFromLittleEndian<quint32>(b);
}

quint16 le16(const char *b)
{
    return qFromLittleEndian<quint16>(b);
}

std::optional<PcmFormat> readFormat(const ReadAt &readAt, std::int64_t body, quint32 size)
{
    char b[40] = {};
    const std::int64_t got = readAt(body, b, std::min<std::int64_t>(size, sizeof b));
    if (size < 16 || got < 16)
        return std::nullopt;
    quint16 tag = le16(b);
    const quint16 channels = le16(b + 2);
    const quint32 rate = le32(b + 4);
    const quint16 blockAlign = le16(b + 12);
    const quint16 bits = le16(b + 14);
    // The extended header names its real format at the start of its GUID.
    if (tag == kTagExtensible) {
        if (size < 40 || got < 40)
            return std::nullopt;
        tag = le16(b + 24);
    }
    if (tag != kTagPcm || channels == 0 || rate == 0 || rate > kHighestRate || blockAlign % channels != 0)
        return std::nullopt;
    const int bytesPerSample = blockAlign / channels;
    // Samples sit in the smallest whole number of bytes that holds them.
    if (bytesPerSample < 1 || bytesPerSample > 4 || bits == 0 || (bits + 7) / 8 != bytesPerSample)
        return std::nullopt;
    return PcmFormat{channels, int(rate), bytesPerSample};
}

// Reads what the file holds at `at`, however many calls that takes.
std::int64_t readFully(int fd, std::int64_t at, char *into, std::int64_t size)
{
    std::int64_t got = 0;
    while (got < size) {
        const ssize_t n = ::pread(fd, into + got, size_t(size - got), off_t(at + got));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return -1;
        if (n == 0)
            break;
        got += n;
    }
    return got;
}

} // namespace

int WavLayout::durationMs() const
{
    return int(frames() * 1000 / format.rate);
}

int WavClip::durationMs() const
{
    return int(qint64(frames()) * 1000 / format.rate);
}

std::optional<WavLayout> readWavLayout(std::int64_t fileSize, const ReadAt &readAt)
{
    char head[12];
    if (fileSize < 12 || readAt(0, head, 12) != 12 || std::memcmp(head, "RIFF", 4) != 0 ||
        std::memcmp(head + 8, "WAVE", 4) != 0)
        return std::nullopt;
    std::optional<PcmFormat> format;
    std::int64_t at = 12;
    for (int chunk = 0; chunk < kMostChunks && at + 8 <= fileSize; ++chunk) {
        char id[8];
        if (readAt(at, id, 8) != 8)
            return std::nullopt;
        const quint32 size = le32(id + 4);
        const std::int64_t body = at + 8;
        if (std::memcmp(id, "fmt ", 4) == 0) {
            format = readFormat(readAt, body, size);
            if (!format)
                return std::nullopt;
        } else if (std::memcmp(id, "data", 4) == 0) {
            if (!format)
                return std::nullopt;
            const std::int64_t held = std::min<std::int64_t>(size, fileSize - body);
            return WavLayout{*format, body, held - held % format->frameBytes()};
        }
        // Chunks of odd size carry a pad byte.
        at = body + std::int64_t(size) + (size & 1);
    }
    return std::nullopt;
}

std::optional<WavClip> parseWav(const QByteArray &bytes)
{
    const auto layout = readWavLayout(bytes.size(), [&bytes](std::int64_t at, char *into, std::int64_t size) {
        const std::int64_t n = std::clamp<std::int64_t>(bytes.size() - at, 0, size);
        std::memcpy(into, bytes.constData() + at, size_t(n));
        return n;
    });
    if (!layout)
        return std::nullopt;
    return WavClip{layout->format, bytes.mid(qsizetype(layout->dataAt), qsizetype(layout->dataBytes))};
}

WavStream::WavStream(int fd, const WavLayout &layout)
    : m_fd(fd)
    , m_layout(layout)
{
}

WavStream::~WavStream()
{
    ::close(m_fd);
}

std::unique_ptr<WavStream> WavStream::fromFile(int fd)
{
    struct stat st{};
    std::optional<WavLayout> layout;
    if (::fstat(fd, &st) == 0)
        layout = readWavLayout(st.st_size, [fd](std::int64_t at, char *into, std::int64_t size) {
            return readFully(fd, at, into, size);
        });
    if (!layout) {
        ::close(fd);
        return nullptr;
    }
    return std::unique_ptr<WavStream>(new WavStream(fd, *layout));
}

std::unique_ptr<WavStream> WavStream::open(const QString &file)
{
    const int fd = openPlayerFile(QFile::encodeName(file).toStdString());
    return fd < 0 ? nullptr : fromFile(fd);
}

std::size_t WavStream::read(char *into, std::size_t frames)
{
    const std::int64_t frameBytes = m_layout.format.frameBytes();
    const std::int64_t wanted = std::min<std::int64_t>(std::int64_t(frames) * frameBytes, m_layout.dataBytes - m_done);
    std::int64_t got = wanted > 0 ? readFully(m_fd, m_layout.dataAt + m_done, into, wanted) : 0;
    got -= got % frameBytes;
    // A file cut shorter while playing, or failing, ends its sound there.
    m_done = got < wanted ? m_layout.dataBytes : m_done + got;
    return std::size_t(std::max<std::int64_t>(got, 0) / frameBytes);
}

} // namespace amorra
