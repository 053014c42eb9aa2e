#include "temp_dir.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace amorra::testing {

TempDir::TempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "amorra-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("cannot create a temporary directory");
    m_path = pattern;
}

TempDir::~TempDir()
{
    std::error_code ec;
    // Tests may have taken permissions away; give them back so cleanup works.
    for (auto &entry : std::filesystem::recursive_directory_iterator(m_path, ec))
        std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(m_path, ec);
}

void TempDir::write(const std::string &name, const std::string &bytes) const
{
    std::ofstream out(file(name), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string TempDir::read(const std::string &name) const
{
    std::ifstream in(file(name), std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

} // namespace amorra::testing
