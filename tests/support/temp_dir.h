#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace amorra::testing {

// A fresh directory for one test's files, removed with everything in it.
class TempDir
{
public:
    TempDir()
    {
        m_path = (std::filesystem::temp_directory_path() / "amorra-test-XXXXXX").string();
        if (!mkdtemp(m_path.data()))
            throw std::runtime_error("cannot create a temporary directory");
    }
    ~TempDir()
    {
        namespace fs = std::filesystem;
        std::error_code ec;
        // Tests may have taken permissions away; give them back so cleanup works.
        fs::permissions(m_path, fs::perms::owner_all, fs::perm_options::add, ec);
        for (auto &entry : fs::recursive_directory_iterator(m_path, ec))
            fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(m_path, ec);
    }
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;

    const std::string &path() const { return m_path; }
    std::string file(const std::string &name) const { return m_path + "/" + name; }
    void write(const std::string &name, const std::string &bytes) const { std::ofstream(file(name), std::ios::binary) << bytes; }
    std::string read(const std::string &name) const // whole file, "" when missing
    {
        std::ostringstream s;
        s << std::ifstream(file(name), std::ios::binary).rdbuf();
        return s.str();
    }

private:
    std::string m_path;
};

} // namespace amorra::testing
