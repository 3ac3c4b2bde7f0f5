// The settings' file beside the XML library's own calls on the same text.

#include "config/settings_files.h"
#include "support/paired_benchmark.h"

#include "config/configuration.h"

#include <windows.h>

#include <cstdio>
#include <string>

namespace {

FILE* Open(const std::wstring& path, const char* mode) {
    char narrow[MAX_PATH] = {};
    WideCharToMultiByte(CP_ACP, 0, path.c_str(), -1, narrow, MAX_PATH, nullptr, nullptr);
    FILE* file = nullptr;
    return fopen_s(&file, narrow, mode) == 0 ? file : nullptr;
}

template <size_t Bytes>
void OurLoad(benchmark::State& state) {
    const std::wstring path = SettingsFile(Bytes);
    bool loaded = true;
    for (auto _ : state) {
        Configuration configuration;
        loaded = configuration.Load(path) && configuration.fileName == path && loaded;
    }
    if (!loaded) state.SkipWithError("not loaded");
}

template <size_t Bytes>
void BareLoad(benchmark::State& state) {
    const std::wstring path = SettingsFile(Bytes);
    bool loaded = true;
    for (auto _ : state) {
        tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
        FILE* file = Open(path, "rb");
        loaded = document.LoadFile(file) == tinyxml2::XML_SUCCESS && loaded;
        std::fclose(file);
    }
    if (!loaded) state.SkipWithError("not loaded");
}

/// Read once: what is saved is the same each time.
template <size_t Bytes>
Configuration& Loaded() {
    static Configuration configuration;
    if (configuration.fileName.empty()) configuration.Load(SettingsFile(Bytes));
    return configuration;
}

template <size_t Bytes>
void OurSave(benchmark::State& state) {
    const std::wstring copy = SettingsFile(Bytes) + L".saved";
    Configuration& configuration = Loaded<Bytes>();
    bool saved = true;
    for (auto _ : state)
        saved = configuration.Save(copy) && saved;
    if (!saved) state.SkipWithError("not saved");
}

template <size_t Bytes>
void BareSave(benchmark::State& state) {
    const std::wstring copy = SettingsFile(Bytes) + L".saved";
    tinyxml2::XMLDocument& document = Loaded<Bytes>().document;
    bool saved = true;
    for (auto _ : state) {
        FILE* file = Open(copy, "w");
        saved = document.SaveFile(file, false) == tinyxml2::XML_SUCCESS && saved;
        std::fclose(file);
    }
    if (!saved) state.SkipWithError("not saved");
}

constexpr size_t KB = 1000;
constexpr size_t MB = 1000 * KB;
constexpr char loadCalls[] = "WideCharToMultiByte, fopen_s, XMLDocument::LoadFile, fclose";
constexpr char saveCalls[] = "WideCharToMultiByte, fopen_s, XMLDocument::SaveFile, fclose";

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry({"config/load 1 KB", OurLoad<KB>, BareLoad<KB>, 1.05, loadCalls}),
    PairedBenchmarkEntry({"config/load 1 MB", OurLoad<MB>, BareLoad<MB>, 1.05, loadCalls}),
    PairedBenchmarkEntry(
        {"config/load 10 MB", OurLoad<10 * MB>, BareLoad<10 * MB>, 1.05, loadCalls}),
    PairedBenchmarkEntry({"config/save 1 KB", OurSave<KB>, BareSave<KB>, 1.05, saveCalls}),
    PairedBenchmarkEntry({"config/save 1 MB", OurSave<MB>, BareSave<MB>, 1.05, saveCalls}),
    PairedBenchmarkEntry(
        {"config/save 10 MB", OurSave<10 * MB>, BareSave<10 * MB>, 1.05, saveCalls}),
};

}  // namespace
