#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

typedef struct _snd_pcm snd_pcm_t; // NOLINT(bugprone-reserved-identifier): ALSA's own name

namespace amorra {

struct AlsaLibrary;

// How a clip's samples are laid out: interleaved frames of `channels`
// little-endian samples, `bytesPerSample` bytes each (one byte is unsigned,
// wider samples are signed).
struct PcmFormat
{
    int channels = 0;
    int rate = 0;
    int bytesPerSample = 0;

    int frameBytes() const { return channels * bytesPerSample; }
    bool operator==(const PcmFormat &other) const
    {
        return channels == other.channels && rate == other.rate && bytesPerSample == other.bytesPerSample;
    }
    bool operator!=(const PcmFormat &other) const { return !(*this == other); }
};

// Where the sound thread sends its samples. Only that thread calls it.
class PcmSink
{
public:
    virtual ~PcmSink() = default;
    // False when there is no device or it takes no sound of this format.
    virtual bool open(const PcmFormat &format) = 0;
    // Queues what fits of these whole frames, waiting a little for room:
    // the frames taken, 0 when the device had no room yet, negative when it
    // failed.
    virtual long write(const char *frames, std::size_t count) = 0;
    // Frames queued but not heard yet; negative when the device failed.
    virtual long queued() = 0;
    // Silences the device at once, forgetting what it still holds.
    virtual void drop() = 0;
    virtual void close() = 0;
    // Closed and not wanted for a while: lets go of the sound system itself
    // too, where that is safe.
    virtual void release() {}
};

// Shows the game's sounds in the desktop's volume mixer as "Amorra", with
// its icon and the game role, instead of the ALSA plugin's name for any
// program. PipeWire's and PulseAudio's ALSA plugins read these variables
// when a sound opens the device, so this runs before any thread starts.
// Variables the player set himself stay as they are. Returns the names it
// set, for the programs the game starts, which must not wear them.
std::vector<std::string> nameSoundStreams();

// The desktop's sound through ALSA. "default" reaches PipeWire or
// PulseAudio through their ALSA plugins where a sound server runs.
class AlsaOutput final : public PcmSink
{
public:
    explicit AlsaOutput(std::string device = "default");
    ~AlsaOutput() override;
    AlsaOutput(const AlsaOutput &) = delete;
    AlsaOutput &operator=(const AlsaOutput &) = delete;

    bool open(const PcmFormat &format) override;
    long write(const char *frames, std::size_t count) override;
    long queued() override;
    void drop() override;
    void close() override;
    // Unloads libasound and its parsed configuration (half a megabyte),
    // unless an ALSA plugin of a sound server is loaded: those leave threads
    // of their own behind, so with one of them the library stays.
    void release() override;

private:
    std::string m_device;
    std::unique_ptr<AlsaLibrary> m_alsa; // loaded at the first open, whenever m_pcm is open
    snd_pcm_t *m_pcm = nullptr;
};

} // namespace amorra
