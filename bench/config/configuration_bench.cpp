// The configuration store beside the XML library's own calls on the same text.

#include "support/paired_benchmark.h"

#include "config/configuration.h"

#include <windows.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

std::wstring Folder() {
    wchar_t path[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, path);
    return path;
}

/// A file of about `bytes` bytes: settings in groups of ten.
std::wstring MakeFile(size_t bytes) {
    std::wstring path = Folder() + L"bench-" + std::to_wstring(bytes) + L".xml";
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Config>\n";
    for (int group = 0; text.size() < bytes; ++group) {
        text += "  <Group" + std::to_string(group) + ">\n";
        for (int i = 0; i < 10 && text.size() < bytes; ++i) {
            text +=
                "    <Setting" + std::to_string(i) + ">value</Setting" + std::to_string(i) + ">\n";
        }
        text += "  </Group" + std::to_string(group) + ">\n";
    }
    text += "</Config>\n";
    FILE* file = _wfopen(path.c_str(), L"wb");
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    return path;
}

template <size_t Bytes>
const std::wstring& File() {
    static const std::wstring path = MakeFile(Bytes);
    return path;
}

FILE* Open(const std::wstring& path, const char* mode) {
    char narrow[MAX_PATH];
    WideCharToMultiByte(CP_ACP, 0, path.c_str(), -1, narrow, MAX_PATH, nullptr, nullptr);
    FILE* file = nullptr;
    return fopen_s(&file, narrow, mode) == 0 ? file : nullptr;
}

template <size_t Bytes>
void OurLoad(benchmark::State& state) {
    const std::wstring& path = File<Bytes>();
    for (auto _ : state) {
        Configuration configuration;
        if (!configuration.Load(path)) {
            state.SkipWithError("not loaded");
            break;
        }
    }
}

template <size_t Bytes>
void BareLoad(benchmark::State& state) {
    const std::wstring& path = File<Bytes>();
    for (auto _ : state) {
        tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
        FILE* file = Open(path, "rb");
        const bool loaded = document.LoadFile(file) == tinyxml2::XML_SUCCESS;
        std::fclose(file);
        if (!loaded) {
            state.SkipWithError("not loaded");
            break;
        }
    }
}

template <size_t Bytes>
void OurSave(benchmark::State& state) {
    const std::wstring copy = File<Bytes>() + L".saved";
    Configuration configuration;
    configuration.Load(File<Bytes>());
    for (auto _ : state) {
        if (!configuration.Save(copy)) {
            state.SkipWithError("not saved");
            break;
        }
    }
}

template <size_t Bytes>
void BareSave(benchmark::State& state) {
    const std::wstring copy = File<Bytes>() + L".saved";
    tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
    FILE* source = Open(File<Bytes>(), "rb");
    document.LoadFile(source);
    std::fclose(source);
    for (auto _ : state) {
        FILE* file = Open(copy, "w");
        const bool saved = document.SaveFile(file, false) == tinyxml2::XML_SUCCESS;
        std::fclose(file);
        if (!saved) {
            state.SkipWithError("not saved");
            break;
        }
    }
}

constexpr size_t KB = 1000;
constexpr size_t MB = 1000 * KB;
constexpr char loadCalls[] = "fopen_s, XMLDocument::LoadFile, fclose";
constexpr char saveCalls[] = "fopen_s, XMLDocument::SaveFile, fclose";

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
