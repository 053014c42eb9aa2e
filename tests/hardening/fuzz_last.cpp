// Any bytes in "last" or "tuteshow" must read as a short, printable name or a
// number, and a name read back must survive being written again.
#include "core/cp1252.h"
#include "core/data_files.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    const std::string name = amorra::lastNameFromRecord(bytes);
    for (unsigned char c : name)
        if (c < 0x20 || c == 0x7F)
            std::abort(); // a control character would reach the name box
    const std::string record = amorra::lastNameRecord(name);
    if (record.size() != 20)
        std::abort();
    // Written back, the name loses only the spaces it began with.
    if (amorra::lastNameFromRecord(record) != name.substr(std::min(name.size(), name.find_first_not_of(' '))))
        std::abort();
    amorra::tuteShowFromBytes(bytes);
    amorra::toCp1252(bytes); // arbitrary text typed into the name box
    return 0;
}
