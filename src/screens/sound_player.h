#pragma once

#include "alsa_output.h"
#include "wav_reader.h"

#include "view/game_view.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>

class QEventLoop;

namespace amorra {

// Plays the game's sound effects. `Async` returns at once and cuts off the
// sound before it; `Wait` returns when the sound has ended.
class SoundPlayer
{
public:
    virtual ~SoundPlayer() = default;
    virtual void play(const QString &file, SoundMode mode) = 0;
    // The player turned the sound on: a device that could not be opened is
    // looked for again.
    virtual void soundSwitchedOn() {}
};

// The real player: a thread of its own reads the file a slice at a time and
// feeds the device, so a click never waits for the sound system and a long
// clip costs no more memory than a short one. A missing or unreadable file gives the
// desktop's beep for `Async` and silence for `Wait`; without a sound device
// it stays silent, and `Wait` returns at once, until the sound is switched
// on again.
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
    void soundSwitchedOn() override;

private:
    class Worker;


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
