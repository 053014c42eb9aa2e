#pragma once

#include "screens/desktop.h"
#include "screens/sound_player.h"

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <QWidget>

namespace amorra::testing {

// Remembers every sound instead of playing it.
class RecordingSoundPlayer : public SoundPlayer
{
public:
    struct Played
    {
        QString file;
        SoundMode mode;
    };
    QList<Played> played;

    void play(const QString &file, SoundMode mode) override { played.append({file, mode}); }
    // File names without their folder, e.g. "doorbell.wav".
    QStringList names() const;
};

// A desktop of a chosen size that records messages, pages and the end.
class RecordingDesktop : public Desktop
{
public:
    struct Message
    {
        QString text, title;
        bool exclamation = false;
    };
    QSize size{1024, 768};
    bool urlOpens = true;
    QList<Message> messages;
    QList<QUrl> urls;
    int quits = 0;

    QSize screenSize() const override { return size; }
    void showMessage(QWidget *, const QString &text, const QString &title, bool exclamation) override
    {
        messages.append({text, title, exclamation});
    }
    bool openUrl(const QUrl &url) override
    {
        urls.append(url);
        return urlOpens;
    }
    void quit() override { ++quits; }
};

// The widget under `root` with this accessible name, or nullptr.
QWidget *findNamed(QWidget *root, const QString &accessibleName);

template<class T>
T *named(QWidget *root, const QString &accessibleName)
{
    return qobject_cast<T *>(findNamed(root, accessibleName));
}

// A temporary folder made the working directory for the test's lifetime,
// so the game's data files never land in the source or build tree.
class WorkingDir
{
public:
    WorkingDir();
    ~WorkingDir();
    QString path() const { return m_dir.path(); }
    QByteArray read(const QString &name) const;
    void write(const QString &name, const QByteArray &bytes) const;

private:
    QTemporaryDir m_dir;
    QString m_previous;
};

} // namespace amorra::testing
