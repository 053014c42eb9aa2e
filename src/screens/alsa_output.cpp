#include "alsa_output.h"

#include <alsa/asoundlib.h>
#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace amorra {

namespace {

// What the device may hold ahead of the ear: short enough that a new clip
// cuts the old one off without a noticeable tail.
constexpr unsigned kLatencyUs = 100000;
// How long one write waits for room before handing back to the sound
// thread, which may have a newer clip by then.
constexpr int kRoomWaitMs = 50;
constexpr int kMostAttempts = 3;

// ALSA tells its troubles on stderr; a game without a sound device would
// print them at every click. Sound is never essential, so we stay quiet.
void quiet(const char *, int, const char *, int, const char *, ...) {}

} // namespace

// libasound, loaded when the first sound plays rather than with the
// program: loading and binding its thousand-odd symbols cost every start
// about a millisecond before the first window.
struct AlsaLibrary
{
    void *handle = nullptr;
    decltype(&snd_pcm_open) open = nullptr;
    decltype(&snd_pcm_set_params) setParams = nullptr;
    decltype(&snd_pcm_writei) writei = nullptr;
    decltype(&snd_pcm_wait) wait = nullptr;
    decltype(&snd_pcm_recover) recover = nullptr;
    decltype(&snd_pcm_state) state = nullptr;
    decltype(&snd_pcm_delay) delay = nullptr;
    decltype(&snd_pcm_start) start = nullptr;
    decltype(&snd_pcm_drop) drop = nullptr;
    decltype(&snd_pcm_prepare) prepare = nullptr;
    decltype(&snd_pcm_close) close = nullptr;
    decltype(&snd_config_update_free_global) freeConfig = nullptr;
};

namespace {

template <typename F>
bool resolve(void *library, const char *name, F &function)
{
    function = reinterpret_cast<F>(dlsym(library, name));
    return function != nullptr;
}

// Without the library the game plays silently, as without a device.
std::unique_ptr<AlsaLibrary> loadAlsa()
{
    auto a = std::make_unique<AlsaLibrary>();
    a->handle = dlopen("libasound.so.2", RTLD_NOW | RTLD_LOCAL);
    decltype(&snd_lib_error_set_handler) setErrorHandler = nullptr;
    if (!a->handle)
        return nullptr;
    const bool loaded = resolve(a->handle, "snd_lib_error_set_handler", setErrorHandler)
                        && resolve(a->handle, "snd_pcm_open", a->open)
                        && resolve(a->handle, "snd_pcm_set_params", a->setParams)
                        && resolve(a->handle, "snd_pcm_writei", a->writei) && resolve(a->handle, "snd_pcm_wait", a->wait)
                        && resolve(a->handle, "snd_pcm_recover", a->recover)
                        && resolve(a->handle, "snd_pcm_state", a->state) && resolve(a->handle, "snd_pcm_delay", a->delay)
                        && resolve(a->handle, "snd_pcm_start", a->start) && resolve(a->handle, "snd_pcm_drop", a->drop)
                        && resolve(a->handle, "snd_pcm_prepare", a->prepare)
                        && resolve(a->handle, "snd_pcm_close", a->close)
                        && resolve(a->handle, "snd_config_update_free_global", a->freeConfig);
    if (!loaded) {
        dlclose(a->handle);
        return nullptr;
    }
    setErrorHandler(quiet);
    return a;
}

// Whether ALSA has loaded a plugin library (PipeWire's, PulseAudio's, ...).
bool alsaPluginLoaded()
{
    return dl_iterate_phdr(
               [](dl_phdr_info *info, std::size_t, void *) {
                   return info->dlpi_name && std::strstr(info->dlpi_name, "libasound_module_") ? 1 : 0;
               },
               nullptr)
           != 0;
}

snd_pcm_format_t alsaFormat(int bytesPerSample)
{
    switch (bytesPerSample) {
    case 1: return SND_PCM_FORMAT_U8;
    case 2: return SND_PCM_FORMAT_S16_LE;
    case 3: return SND_PCM_FORMAT_S24_3LE;
    case 4: return SND_PCM_FORMAT_S32_LE;
    default: return SND_PCM_FORMAT_UNKNOWN;
    }
}

} // namespace

std::vector<std::string> nameSoundStreams()
{
    // PipeWire takes them for the stream; PulseAudio for the client, whose
    // name its ALSA plugin sets, so only the override replaces it. PipeWire
    // spells the role with a capital and the icon with a dash.
    static const char *const kNames[][2] = {
        {"PIPEWIRE_PROPS", "{ application.name=Amorra application.id=io.github.amorra.amorra "
                           "application.icon-name=amorra media.role=Game media.name=\"Sound effects\" }"},
        {"PULSE_PROP_OVERRIDE", "application.name='Amorra' application.id='io.github.amorra.amorra' "
                                "application.icon_name='amorra' media.role='game'"},
    };
    std::vector<std::string> set;
    for (const auto &[name, value] : kNames) {
        if (!std::getenv(name) && setenv(name, value, 0) == 0)
            set.emplace_back(name);
    }
    return set;
}

AlsaOutput::AlsaOutput(std::string device)
    : m_device(std::move(device))
{
}

AlsaOutput::~AlsaOutput()
{
    close();
}

bool AlsaOutput::open(const PcmFormat &format)
{
    close();
    const snd_pcm_format_t pcmFormat = alsaFormat(format.bytesPerSample);
    if (pcmFormat == SND_PCM_FORMAT_UNKNOWN || format.channels <= 0 || format.rate <= 0)
        return false;
    if (!m_alsa)
        m_alsa = loadAlsa();
    if (!m_alsa)
        return false;
    // Non-blocking, so a busy device answers at once instead of holding us.
    if (m_alsa->open(&m_pcm, m_device.c_str(), SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0) {
        m_pcm = nullptr;
        return false;
    }
    if (m_alsa->setParams(m_pcm, pcmFormat, SND_PCM_ACCESS_RW_INTERLEAVED, unsigned(format.channels),
                           unsigned(format.rate), 1, kLatencyUs)
        < 0) {
        close();
        return false;
    }
    return true;
}

long AlsaOutput::write(const char *frames, std::size_t count)
{
    if (!m_pcm)
        return -1;
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        const snd_pcm_sframes_t taken = m_alsa->writei(m_pcm, frames, count);
        if (taken >= 0)
            return long(taken);
        if (taken == -EAGAIN) {
            // The buffer is full: give the device a moment to play some.
            const int ready = m_alsa->wait(m_pcm, kRoomWaitMs);
            if (ready == 0)
                return 0;
            if (ready < 0 && m_alsa->recover(m_pcm, ready, 1) < 0)
                return -1;
            continue;
        }
        // Underrun or suspend: start again where we are.
        if (m_alsa->recover(m_pcm, int(taken), 1) < 0)
            return -1;
    }
    return 0;
}

long AlsaOutput::queued()
{
    if (!m_pcm)
        return -1;
    // Ran dry: everything written has been heard. (PulseAudio's plugin says
    // so by its state while its delay still counts a few frames.)
    if (m_alsa->state(m_pcm) == SND_PCM_STATE_XRUN)
        return 0;
    snd_pcm_sframes_t delay = 0;
    const int err = m_alsa->delay(m_pcm, &delay);
    if (err == -EPIPE)
        return 0;
    if (err < 0)
        return -1;
    // The stream starts by itself once its buffer is full; a clip shorter
    // than that needs a push.
    if (delay > 0 && m_alsa->state(m_pcm) == SND_PCM_STATE_PREPARED && m_alsa->start(m_pcm) < 0)
        return -1;
    return std::max<long>(long(delay), 0);
}

void AlsaOutput::drop()
{
    if (!m_pcm)
        return;
    m_alsa->drop(m_pcm);
    // Ready for the next clip's frames.
    m_alsa->prepare(m_pcm);
}

void AlsaOutput::close()
{
    if (m_pcm)
        m_alsa->close(m_pcm);
    m_pcm = nullptr;
}

void AlsaOutput::release()
{
    close();
    if (!m_alsa || alsaPluginLoaded())
        return;
    m_alsa->freeConfig();
    dlclose(m_alsa->handle);
    m_alsa.reset();
}

} // namespace amorra
