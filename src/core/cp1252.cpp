#include "cp1252.h"

#include <cstdint>

namespace amorra {

namespace {
// Code points of bytes 0x80..0x9F; 0 marks the unassigned ones.
const char32_t kHighControls[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

void appendUtf8(std::string &out, char32_t cp)
{
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

char encodeCodePoint(char32_t cp)
{
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF))
        return static_cast<char>(cp);
    for (int i = 0; i < 32; ++i)
        if (kHighControls[i] != 0 && kHighControls[i] == cp)
            return static_cast<char>(0x80 + i);
    return '?';
}
} // namespace

std::string toCp1252(const std::string &utf8)
{
    std::string out;
    size_t i = 0;
    const size_t n = utf8.size();
    while (i < n) {
        const auto b = static_cast<unsigned char>(utf8[i]);
        int extra = 0;
        char32_t cp = 0;
        if (b < 0x80) {
            cp = b;
        } else if ((b & 0xE0) == 0xC0) {
            cp = b & 0x1F;
            extra = 1;
        } else if ((b & 0xF0) == 0xE0) {
            cp = b & 0x0F;
            extra = 2;
        } else if ((b & 0xF8) == 0xF0) {
            cp = b & 0x07;
            extra = 3;
        } else {
            out += '?';
            ++i;
            continue;
        }
        bool ok = i + static_cast<size_t>(extra) < n;
        for (int k = 1; ok && k <= extra; ++k) {
            const auto c = static_cast<unsigned char>(utf8[i + static_cast<size_t>(k)]);
            if ((c & 0xC0) != 0x80)
                ok = false;
            else
                cp = (cp << 6) | (c & 0x3F);
        }
        if (!ok) {
            out += '?';
            ++i;
            continue;
        }
        out += encodeCodePoint(cp);
        i += static_cast<size_t>(extra) + 1;
    }
    return out;
}

std::string fromCp1252(const std::string &bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        if (b == 0)
            out += ' ';
        else if (b < 0x20 || b == 0x7F)
            out += '?';
        else if (b < 0x80)
            out += static_cast<char>(b);
        else if (b < 0xA0)
            appendUtf8(out, kHighControls[b - 0x80] ? kHighControls[b - 0x80] : U'?');
        else
            appendUtf8(out, b);
    }
    return out;
}

} // namespace amorra
