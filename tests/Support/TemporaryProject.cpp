#include "Support/TemporaryProject.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace varn::test {

namespace fs = std::filesystem;

TemporaryProject::TemporaryProject() : before(fs::current_path())
{
    std::string pattern = (fs::temp_directory_path() / "varn-test-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    fs::current_path(folder);
}

TemporaryProject::~TemporaryProject()
{
    fs::current_path(before);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void TemporaryProject::write(const fs::path& path, std::string_view bytes) const
{
    const fs::path whole = folder / path;
    fs::create_directories(whole.parent_path());
    std::ofstream out(whole, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void TemporaryProject::writeUtf16(const fs::path& path, WStringView text) const
{
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    write(path, bytes);
}

static std::string readWhole(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << path;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string TemporaryProject::read(const fs::path& path) const
{
    return readWhole(folder / path);
}

bool TemporaryProject::has(const fs::path& path) const
{
    return fs::exists(folder / path);
}

std::string readSource(const fs::path& path)
{
    return readWhole(fs::path(VARN_SOURCE_DIR) / path);
}

} // namespace varn::test
