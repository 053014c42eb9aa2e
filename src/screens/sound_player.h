#pragma once

#include "alsa_output.h"

#include "view/game_view.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

class QEventLoop;

namespace amorra {

// Plays the game's sound effects. `Async` returns at once and cuts off the
// sound before it; `Wait` returns when the sound has ended.
class SoundPlayer
{
public:
    virtual ~SoundPlayer() = default;
    virtual void play(const QString &file, SoundMode mode) = 0;
};

// A WAV file's sound, ready for the device.
struct WavClip
{
    PcmFormat format;
    QByteArray pcm; // whole frames only

    std::size_t frames() const { return std::size_t(pcm.size()) / std::size_t(format.frameBytes()); }
    int durationMs() const;
};

// The sound in a PCM WAV file (8-bit unsigned or 16/24/32-bit signed);
// nothing when the bytes are not one. A cut-off file plays what it holds.
std::optional<WavClip> parseWav(const QByteArray &bytes);

// The real player: a thread of its own feeds the device, so a click never
// waits for the sound system. A missing or unreadable file gives the
// desktop's beep for `Async` and silence for `Wait`; without a sound device
// it stays silent and `Wait` returns at once.
class AlsaSoundPlayer final : public SoundPlayer
{
public:
    AlsaSoundPlayer();
    AlsaSoundPlayer(std::unique_ptr<PcmSink> sink, std::function<void()> beep,
                    std::chrono::milliseconds idleClose = std::chrono::seconds(3));
    ~AlsaSoundPlayer() override;
    AlsaSoundPlayer(const AlsaSoundPlayer &) = delete;
    AlsaSoundPlayer &operator=(const AlsaSoundPlayer &) = delete;

    void play(const QString &file, SoundMode mode) override;

private:
    class Worker;

    std::shared_ptr<const WavClip> clip(const QString &file);
    void finished(std::uint64_t id);

    std::function<void()> m_beep;
    std::chrono::milliseconds m_idleClose;
    std::uint64_t m_lastId = 0;

    // The Wait in progress, told by the sound thread when its clip is over.
    std::mutex m_waitMutex;
    QEventLoop *m_waiting = nullptr;
    std::uint64_t m_awaited = 0;
    std::uint64_t m_lastFinished = 0;

    std::unique_ptr<PcmSink> m_sink; // until the sound thread takes it
    std::unique_ptr<Worker> m_worker; // started with the first clip
};

} // namespace amorra
