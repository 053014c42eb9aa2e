#pragma once

#include "view/game_view.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <optional>

class QSoundEffect;

namespace amorra {

// Plays the game's sound effects. `Async` returns at once and cuts off the
// sound before it; `Wait` returns when the sound has ended.
class SoundPlayer
{
public:
    virtual ~SoundPlayer() = default;
    virtual void play(const QString &file, SoundMode mode) = 0;
};

// The real player. A missing or unreadable file gives the desktop's beep for
// `Async` and silence for `Wait`; without a sound device it stays silent.
class QtSoundPlayer final : public SoundPlayer
{
public:
    QtSoundPlayer();
    ~QtSoundPlayer() override;
    void play(const QString &file, SoundMode mode) override;

private:
    std::unique_ptr<QSoundEffect> m_effect;
    // Clip lengths by file, so a click does not read its WAV file again;
    // nothing for a file that is missing or no PCM sound.
    QHash<QString, std::optional<int>> m_durations;
    bool m_deviceSeen = false;
};

// How long a WAV file plays, from its header; nothing when the bytes are
// not a playable PCM WAV header.
std::optional<int> wavDurationMs(const QByteArray &bytes);

} // namespace amorra
