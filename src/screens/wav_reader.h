#pragma once

#include "alsa_output.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace amorra {

// Where a WAV file keeps its sound: the format, and the bytes of whole
// frames the file really holds (a cut-off file plays what it holds).
struct WavLayout
{
    PcmFormat format;
    std::int64_t dataAt = 0;
    std::int64_t dataBytes = 0;

    std::int64_t frames() const { return dataBytes / format.frameBytes(); }
    int durationMs() const;
};

// Fills up to `size` bytes from offset `at`; the bytes it got.
using ReadAt = std::function<std::int64_t(std::int64_t at, char *into, std::int64_t size)>;

// The layout of a PCM WAV file (8-bit unsigned or 16/24/32-bit signed) of
// `fileSize` bytes, read through `readAt`; nothing when it is not one.
std::optional<WavLayout> readWavLayout(std::int64_t fileSize, const ReadAt &readAt);

// A WAV file's sound held in memory.
struct WavClip
{
    PcmFormat format;
    QByteArray pcm; // whole frames only

    std::size_t frames() const { return std::size_t(pcm.size()) / std::size_t(format.frameBytes()); }
    int durationMs() const;
};

std::optional<WavClip> parseWav(const QByteArray &bytes);

// A WAV file's sound read from disk a slice at a time, so that a clip of
// any length costs the same small buffer.
class WavStream
{
public:
    // Takes the open file `fd`; nothing (and the file closed) when it holds
    // no sound we can play.
    static std::unique_ptr<WavStream> fromFile(int fd);
    // Nothing when the file is missing, no plain file, or no sound.
    static std::unique_ptr<WavStream> open(const QString &file);
    ~WavStream();
    WavStream(const WavStream &) = delete;
    WavStream &operator=(const WavStream &) = delete;

    const WavLayout &layout() const { return m_layout; }
    // Up to `frames` whole frames from where the last read ended; 0 at the
    // end, and after a read error.
    std::size_t read(char *into, std::size_t frames);

private:
    WavStream(int fd, const WavLayout &layout);

    int m_fd;
    WavLayout m_layout;
    std::int64_t m_done = 0; // bytes of the sound read so far
};

} // namespace amorra
