#include "config/log_fixture.h"

#include "config/application_instance.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>

ModuleFolder::ModuleFolder() {
    // Any DLL does; this one needs no others.
    std::filesystem::copy_file(ProgramFolder() + L"\\libwinpthread-1.dll",
                               m_folder / L"KVTCAD.arx");
    std::filesystem::create_directory(m_folder / L"temp");
}

ChildResult ModuleFolder::Run(const std::wstring& scenario) const {
    ChildOptions options;
    options.directory = m_folder.Path();
    return RunScenario(scenario, options);
}

std::vector<std::wstring> NamesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().wstring());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> LinesOf(const std::wstring& path) {
    const std::string bytes = ReadFileBytes(path);
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end = 0; (end = bytes.find('\n', start)) != std::string::npos; start = end + 1) {
        EXPECT_TRUE(end > start && bytes[end - 1] == '\r');
        lines.push_back(bytes.substr(start, end - 1 - start));
    }
    EXPECT_EQ(start, bytes.size()) << "the last line has no end";
    return lines;
}

std::vector<std::string> MessagesOf(const std::wstring& path) {
    std::vector<std::string> messages;
    for (const std::string& line : LinesOf(path)) {
        if (line[0] == '[') messages.push_back(line.substr(line.find("] ") + 2));
    }
    return messages;
}

std::string WithNines(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }, '9');
    return text;
}

std::wstring WorkingFolder() {
    wchar_t path[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, path);
    return path;
}

void LoadModule() {
    g_applicationInstance = LoadLibraryW((WorkingFolder() + L"\\KVTCAD.arx").c_str());
}
