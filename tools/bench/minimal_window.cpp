// The yardstick: the least a Qt 6 Widgets program can do to put a window
// with one button on the screen. The game is measured against it.
//
// Built a second time with MINIMAL_WITH_SOUND, each click also plays a short
// beep through ALSA's "default" device, as the game plays its sounds: the
// yardstick for what a window that makes any sound at all must hold.
#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#ifdef MINIMAL_WITH_SOUND
#include <alsa/asoundlib.h>

#include <cmath>
#include <vector>

namespace {

void beep()
{
    static snd_pcm_t *pcm = nullptr;
    static bool tried = false;
    if (!tried) {
        tried = true;
        if (snd_pcm_open(&pcm, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0
            || snd_pcm_set_params(pcm, SND_PCM_FORMAT_S16_LE, SND_PCM_ACCESS_RW_INTERLEAVED, 1, 22050, 1, 100000) < 0)
            pcm = nullptr;
    }
    if (!pcm)
        return;
    static std::vector<short> tone = [] {
        std::vector<short> t(1100); // 50 ms of 440 Hz
        for (std::size_t i = 0; i < t.size(); ++i)
            t[i] = static_cast<short>(3000 * std::sin(2 * M_PI * 440 * double(i) / 22050));
        return t;
    }();
    snd_pcm_drop(pcm);
    snd_pcm_prepare(pcm);
    snd_pcm_writei(pcm, tone.data(), tone.size());
}

} // namespace
#endif

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget window;
    window.setObjectName(QStringLiteral("minimal"));
    window.setWindowTitle(QStringLiteral("Amorra"));
    auto *layout = new QVBoxLayout(&window);
    auto *button = new QPushButton(QStringLiteral("OK"), &window);
    button->setObjectName(QStringLiteral("Command1"));
    layout->addWidget(button);
#ifdef MINIMAL_WITH_SOUND
    QObject::connect(button, &QPushButton::clicked, [] { beep(); });
#endif
    // About the size of the game's setup screen.
    window.resize(480, 360);
    window.show();
    return app.exec();
}
