#pragma once

#include <string>

namespace amorra::testing {

// A fresh directory for one test's files, removed with everything in it.
class TempDir
{
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;
    const std::string &path() const { return m_path; }
    std::string file(const std::string &name) const { return m_path + "/" + name; }
    void write(const std::string &name, const std::string &bytes) const;
    std::string read(const std::string &name) const; // whole file, "" when missing

private:
    std::string m_path;
};

} // namespace amorra::testing
