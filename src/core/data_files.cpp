#include "data_files.h"

#include "cp1252.h"
#include "setup_rules.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace amorra {

namespace fs = std::filesystem;

std::optional<std::string> readFileBytes(const std::string &path, size_t limit)
{
    std::error_code ec;
    if (!fs::is_regular_file(path, ec))
        return std::nullopt;
    std::FILE *f = std::fopen(path.c_str(), "rb");
    if (!f)
        return std::nullopt;
    std::string bytes(limit, '\0');
    const size_t got = std::fread(bytes.data(), 1, limit, f);
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    if (failed)
        return std::nullopt;
    bytes.resize(got);
    return bytes;
}

bool ensureFileExists(const std::string &path)
{
    std::error_code ec;
    if (fs::exists(path, ec))
        return fs::is_regular_file(path, ec);
    std::FILE *f = std::fopen(path.c_str(), "ab");
    if (!f)
        return false;
    return std::fclose(f) == 0;
}

bool replaceFileContents(const std::string &path, const std::string &bytes)
{
    std::error_code ec;
    if (fs::exists(path, ec) && !fs::is_regular_file(path, ec))
        return false;
    const std::string temp = path + ".saving";
    std::FILE *f = std::fopen(temp.c_str(), "wb");
    if (!f)
        return false;
    bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    ok = (std::fflush(f) == 0) && ok;
    ok = (std::fclose(f) == 0) && ok;
    if (ok) {
        fs::rename(temp, path, ec);
        ok = !ec;
    }
    if (!ok)
        fs::remove(temp, ec);
    return ok;
}

std::string lastNameRecord(const std::string &name)
{
    std::string bytes = toCp1252(name);
    const auto first = bytes.find_first_not_of(' ');
    bytes = first == std::string::npos ? std::string() : bytes.substr(first, bytes.find_last_not_of(' ') - first + 1);
    bytes.resize(kNameLength, ' ');
    return bytes;
}

std::string lastNameFromRecord(const std::string &bytes)
{
    if (bytes.size() < static_cast<size_t>(kNameLength))
        return {};
    std::string name = fromCp1252(bytes.substr(0, kNameLength));
    const auto first = name.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return name.substr(first, name.find_last_not_of(' ') - first + 1);
}

std::string readLastName(const std::string &path)
{
    ensureFileExists(path);
    const auto bytes = readFileBytes(path, kNameLength);
    return bytes ? lastNameFromRecord(*bytes) : std::string();
}

bool writeLastName(const std::string &path, const std::string &name)
{
    return replaceFileContents(path, lastNameRecord(name));
}

i16 tuteShowFromBytes(const std::string &bytes)
{
    if (bytes.size() < 2)
        return 0;
    const auto lo = static_cast<unsigned char>(bytes[0]);
    const auto hi = static_cast<unsigned char>(bytes[1]);
    return static_cast<i16>(static_cast<std::uint16_t>(lo | (hi << 8)));
}

i16 readTuteShow(const std::string &path)
{
    ensureFileExists(path);
    const auto bytes = readFileBytes(path, 2);
    return bytes ? tuteShowFromBytes(*bytes) : 0;
}

bool writeTuteShow(const std::string &path, i16 value)
{
    const auto u = static_cast<std::uint16_t>(value);
    std::string bytes{static_cast<char>(u & 0xFF), static_cast<char>(u >> 8)};
    return replaceFileContents(path, bytes);
}

} // namespace amorra
