#include "config/settings_files.h"

#include "support/temp_folder.h"

#include <filesystem>

namespace {

std::string SettingsText(size_t bytes) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Config>\n";
    for (int group = 0; text.size() < bytes; ++group) {
        const std::string name = "Group" + std::to_string(group);
        text += "  <" + name + ">\n";
        for (int i = 0; i < 10 && text.size() < bytes; ++i) {
            const std::string setting = "Setting" + std::to_string(i);
            text += "    <" + setting + ">value</" + setting + ">\n";
        }
        text += "  </" + name + ">\n";
    }
    return text + "</Config>\n";
}

}  // namespace

std::wstring SettingsFile(size_t bytes) {
    static const TempFolder folder(L"kvt bench");
    const std::wstring path = folder / (std::to_wstring(bytes) + L".xml");
    if (!std::filesystem::exists(path)) WriteFileBytes(path, SettingsText(bytes));
    return path;
}
