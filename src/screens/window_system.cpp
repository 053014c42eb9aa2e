#include "window_system.h"

#include <QString>
#include <QtGlobal>

#include <dlfcn.h>

#include <clocale>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace amorra {

namespace {

// The few entry points of libwayland-client used here, looked up at run time
// so that the game does not link it where it never runs on Wayland.
struct Wayland
{
    void *(*connect)(const char *) = nullptr;
    void (*disconnect)(void *) = nullptr;
    int (*roundtrip)(void *) = nullptr;
    void *(*marshalFlags)(void *, std::uint32_t, const void *, std::uint32_t, std::uint32_t, ...) = nullptr;
    int (*addListener)(void *, void (**)(void), void *) = nullptr;
    void (*destroy)(void *) = nullptr;
    std::uint32_t (*version)(void *) = nullptr;
    const void *registryInterface = nullptr;

    bool load()
    {
        void *lib = dlopen("libwayland-client.so.0", RTLD_LAZY | RTLD_LOCAL);
        if (!lib)
            return false;
        connect = reinterpret_cast<decltype(connect)>(dlsym(lib, "wl_display_connect"));
        disconnect = reinterpret_cast<decltype(disconnect)>(dlsym(lib, "wl_display_disconnect"));
        roundtrip = reinterpret_cast<decltype(roundtrip)>(dlsym(lib, "wl_display_roundtrip"));
        marshalFlags = reinterpret_cast<decltype(marshalFlags)>(dlsym(lib, "wl_proxy_marshal_flags"));
        addListener = reinterpret_cast<decltype(addListener)>(dlsym(lib, "wl_proxy_add_listener"));
        destroy = reinterpret_cast<decltype(destroy)>(dlsym(lib, "wl_proxy_destroy"));
        version = reinterpret_cast<decltype(version)>(dlsym(lib, "wl_proxy_get_version"));
        registryInterface = dlsym(lib, "wl_registry_interface");
        return connect && disconnect && roundtrip && marshalFlags && addListener && destroy && version
               && registryInterface;
    }
};

struct RegistryListener
{
    void (*global)(void *found, void *registry, std::uint32_t name, const char *interface, std::uint32_t version);
    void (*globalRemove)(void *found, void *registry, std::uint32_t name);
};

// Whether the compositor offers to draw window frames (xdg-decoration).
bool compositorDrawsFrames()
{
    Wayland wl;
    if (!wl.load())
        return false;
    void *display = wl.connect(nullptr);
    if (!display)
        return false;
    constexpr std::uint32_t kGetRegistry = 1;
    void *registry = wl.marshalFlags(display, kGetRegistry, wl.registryInterface, wl.version(display), 0, nullptr);
    bool found = false;
    static const RegistryListener listener = {
        [](void *data, void *, std::uint32_t, const char *interface, std::uint32_t) {
            if (std::strcmp(interface, "zxdg_decoration_manager_v1") == 0)
                *static_cast<bool *>(data) = true;
        },
        [](void *, void *, std::uint32_t) {}};
    if (registry) {
        wl.addListener(registry, reinterpret_cast<void (**)(void)>(const_cast<RegistryListener *>(&listener)), &found);
        wl.roundtrip(display);
        wl.destroy(registry);
    }
    wl.disconnect(display);
    return found;
}

bool g_sharedMemoryOnly = false;
QtMessageHandler previousHandler = nullptr;

void quietAboutBuffers(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // Qt says that it found no GL buffers: that is what was asked of it.
    if (context.category && std::strcmp(context.category, "qt.qpa.wayland") == 0
        && message.contains(QLatin1String("client buffer integration")))
        return;
    if (previousHandler)
        previousHandler(type, context, message);
}

} // namespace

WindowSystemChoice chooseWindowSystem(const QByteArray &askedPlatform, const QByteArray &sessionType, bool haveX,
                                      const std::function<bool()> &compositorDrawsFrames)
{
    // Where Qt 6.4 goes by itself: the platform named, else Wayland in a
    // Wayland session, else X11.
    const bool named = !askedPlatform.isEmpty();
    const bool wayland = named ? askedPlatform.startsWith("wayland") : sessionType == "wayland";
    if (!wayland)
        return {};
    if (compositorDrawsFrames())
        return {{}, true};
    if (!named && haveX)
        return {"xcb", false};
    return {};
}

void chooseWindowSystem()
{
    const WindowSystemChoice choice =
        chooseWindowSystem(qgetenv("QT_QPA_PLATFORM"), qgetenv("XDG_SESSION_TYPE"),
                           !qEnvironmentVariableIsEmpty("DISPLAY"), [] { return compositorDrawsFrames(); });
    if (!choice.platform.isEmpty())
        qputenv("QT_QPA_PLATFORM", choice.platform);
    // A buffer integration the player named is kept too.
    if (choice.sharedMemoryOnly && !qEnvironmentVariableIsSet("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION")) {
        qputenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "shared-memory-only");
        g_sharedMemoryOnly = true;
    }
}

void quietAboutSharedMemoryBuffers()
{
    if (g_sharedMemoryOnly)
        previousHandler = qInstallMessageHandler(quietAboutBuffers);
}

FontConfigAhead::FontConfigAhead()
{
    // Looked up, not linked: the game needs no fontconfig headers to build,
    // and the library is the one Qt itself loaded.
    auto *init = reinterpret_cast<int (*)()>(dlsym(RTLD_DEFAULT, "FcInit"));
    if (!init)
        return;
    // The application object sets the desktop's locale; set now, it does not
    // change under fontconfig's reading of numbers.
    std::setlocale(LC_ALL, "");
    try {
        m_reader = std::thread(init);
    } catch (const std::system_error &) {
        // No thread: Qt does the reading when it first needs a font.
    }
}

void FontConfigAhead::finish()
{
    if (m_reader.joinable())
        m_reader.join();
}

} // namespace amorra
