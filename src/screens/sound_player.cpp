#include "sound_player.h"

#include <QApplication>
#include <QAudioDevice>
#include <QEventLoop>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

namespace amorra {

namespace {

// A Wait sound never holds the game longer than this, whatever its header says.
constexpr int kLongestWaitMs = 15000;
constexpr int kWaitMarginMs = 250;

quint32 le32(const QByteArray &b, qsizetype at)
{
    return qFromLittleEndian<quint32>(b.constData() + at);
}

quint16 le16(const QByteArray &b, qsizetype at)
{
    return qFromLittleEndian<quint16>(b.constData() + at);
}

bool hasSoundDevice()
{
    return !QMediaDevices::defaultAudioOutput().isNull();
}

} // namespace

std::optional<int> wavDurationMs(const QByteArray &bytes)
{
    if (bytes.size() < 12 || !bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return std::nullopt;
    quint32 byteRate = 0;
    qsizetype at = 12;
    while (at + 8 <= bytes.size()) {
        const QByteArray id = bytes.mid(at, 4);
        const quint32 size = le32(bytes, at + 4);
        const qsizetype body = at + 8;
        if (id == "fmt ") {
            if (size < 16 || body + 16 > bytes.size())
                return std::nullopt;
            if (le16(bytes, body) != 1) // PCM only
                return std::nullopt;
            byteRate = le32(bytes, body + 8);
        } else if (id == "data") {
            if (byteRate == 0)
                return std::nullopt;
            // A truncated file plays what it holds.
            const qint64 held = std::min<qint64>(size, bytes.size() - body);
            return static_cast<int>(held * 1000 / byteRate);
        }
        at = body + size + (size & 1);
    }
    return std::nullopt;
}

QtSoundPlayer::QtSoundPlayer() = default;
QtSoundPlayer::~QtSoundPlayer() = default;

void QtSoundPlayer::play(const QString &file, SoundMode mode)
{
    auto known = m_durations.constFind(file);
    if (known == m_durations.constEnd()) {
        QFile f(file);
        known = m_durations.insert(file, f.open(QIODevice::ReadOnly) ? wavDurationMs(f.readAll()) : std::nullopt);
    }
    const std::optional<int> duration = *known;
    if (!duration) {
        if (mode == SoundMode::Async)
            QApplication::beep();
        return;
    }
    // Asking for the device is slow; once one has been there, trust it.
    if (!m_deviceSeen)
        m_deviceSeen = hasSoundDevice();
    if (!m_deviceSeen)
        return;
    if (!m_effect)
        m_effect = std::make_unique<QSoundEffect>();

    m_effect->stop();
    m_effect->setSource(QUrl::fromLocalFile(file));
    m_effect->play();
    if (mode == SoundMode::Async)
        return;

    // Hold the game, but not the screen: paint and timer events go on,
    // the player's clicks wait until the sound has ended.
    QEventLoop loop;
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
    timeout.start(std::min(*duration, kLongestWaitMs) + kWaitMarginMs);
    QObject::connect(m_effect.get(), &QSoundEffect::playingChanged, &loop, [this, &loop] {
        if (!m_effect->isPlaying() && m_effect->status() != QSoundEffect::Loading)
            loop.quit();
    });
    QObject::connect(m_effect.get(), &QSoundEffect::statusChanged, &loop, [this, &loop] {
        if (m_effect->status() == QSoundEffect::Error)
            loop.quit();
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace amorra
