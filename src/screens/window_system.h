#pragma once

#include <QByteArray>

#include <functional>
#include <thread>

namespace amorra {

// The game paints in software. On Wayland, Qt 6.4 loads the whole EGL stack
// (some 50 MB, most of it a GL driver's LLVM) only to be allowed to draw
// window frames, and without it draws none. So on a Wayland desktop:
// - where the compositor draws frames itself (KDE, sway), Qt stays on
//   shared-memory buffers;
// - where it leaves them to the program (GNOME, weston) and an X server is
//   there, the game runs through it, framed by the desktop like any X
//   program, as Qt 5 did on GNOME;
// - otherwise Qt's default stays, frames and EGL included.
// A platform the player named in QT_QPA_PLATFORM is kept.
struct WindowSystemChoice
{
    QByteArray platform; // for QT_QPA_PLATFORM; empty: leave it as it is
    bool sharedMemoryOnly = false;
};

// `askedPlatform` is QT_QPA_PLATFORM, `sessionType` XDG_SESSION_TYPE;
// `compositorDrawsFrames` is asked only when Qt would go to Wayland.
WindowSystemChoice chooseWindowSystem(const QByteArray &askedPlatform, const QByteArray &sessionType, bool haveX,
                                      const std::function<bool()> &compositorDrawsFrames);

// Applies the choice for this desktop. Call before the QApplication exists.
void chooseWindowSystem();

// Once the QApplication exists: keeps Qt from reporting the GL buffers it
// was asked not to load.
void quietAboutSharedMemoryBuffers();

// Fontconfig reads the desktop's whole font configuration, some thirty XML
// files, the first time Qt measures a text: some 6 ms, an eighth of the time
// to the first window. Begun before the QApplication, it runs on a second
// core while Qt loads its plugins and connects to the display; `finish()`
// waits for it before the first window is built. Where Qt does not use
// fontconfig, or no thread can be started, Qt reads it in its own time.
class FontConfigAhead
{
public:
    FontConfigAhead();
    ~FontConfigAhead() { finish(); }
    FontConfigAhead(const FontConfigAhead &) = delete;
    FontConfigAhead &operator=(const FontConfigAhead &) = delete;

    void finish();

private:
    std::thread m_reader;
};

} // namespace amorra
