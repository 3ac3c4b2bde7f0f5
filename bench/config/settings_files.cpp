#include "config/settings_files.h"

#include "support/temp_folder.h"

#include <filesystem>

namespace {

std::string OpeningTag(const std::string& name) {
    return "<" + name + ">";
}

std::string ClosingTag(const std::string& name) {
    return "</" + name + ">";
}

std::string SettingsText(size_t bytes) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Config>\n";
    for (int group = 0; text.size() < bytes; ++group) {
        const std::string name = "Group" + std::to_string(group);
        text.append("  ").append(OpeningTag(name)).append("\n");
        for (int i = 0; i < 10 && text.size() < bytes; ++i) {
            const std::string setting = "Setting" + std::to_string(i);
            text.append("    ").append(OpeningTag(setting)).append("value");
            text.append(ClosingTag(setting)).append("\n");
        }
        text.append("  ").append(ClosingTag(name)).append("\n");
    }
    return text.append("</Config>\n");
}

}  // namespace

std::wstring SettingsFile(size_t bytes) {
    static const TempFolder folder(L"kvt bench");
    std::wstring path = folder / (std::to_wstring(bytes) + L".xml");
    if (!std::filesystem::exists(path)) WriteFileBytes(path, SettingsText(bytes));
    return path;
}
