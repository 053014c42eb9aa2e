// Any bytes in a sound file must give whole frames or no sound at all, the
// same whether read whole or streamed from the file a few frames at a time.
#include "screens/wav_reader.h"

#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const std::optional<amorra::WavClip> clip = amorra::parseWav(bytes);
    const int fd = memfd_create("clip.wav", 0);
    if (fd < 0 || ::write(fd, data, size) != ssize_t(size))
        std::abort();
    const std::unique_ptr<amorra::WavStream> stream = amorra::WavStream::fromFile(fd);
    if (bool(stream) != clip.has_value())
        std::abort();
    if (!clip)
        return 0;
    const int frameBytes = clip->format.frameBytes();
    std::vector<char> slice(std::size_t(frameBytes) * 5);
    QByteArray streamed;
    while (const std::size_t frames = stream->read(slice.data(), 5))
        streamed.append(slice.data(), qsizetype(frames) * frameBytes);
    if (clip->pcm.size() % frameBytes != 0 || streamed != clip->pcm)
        std::abort();
    return 0;
}
