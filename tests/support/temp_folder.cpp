#include "support/temp_folder.h"

#include <windows.h>

#include <atomic>
#include <fstream>
#include <iterator>

TempFolder::TempFolder(const std::wstring& name) {
    static std::atomic<unsigned> count{0};
    wchar_t base[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, base);
    // A folder that an ended run could not delete may have this process's number too.
    do {
        m_path = std::wstring(base) + name + L"-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                 std::to_wstring(++count);
    } while (!std::filesystem::create_directories(m_path));
}

TempFolder::~TempFolder() {
    std::error_code ignored;  // A file still open elsewhere stays behind in the temporary folder.
    std::filesystem::remove_all(m_path, ignored);
}

std::string ReadFileBytes(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFileBytes(const std::wstring& path, const std::string& bytes) {
    const std::filesystem::path file(path);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}
