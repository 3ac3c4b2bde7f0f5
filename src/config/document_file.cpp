#include "config/document_file.h"

#include <cstdio>
#include <memory>

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using OwnedFile = std::unique_ptr<std::FILE, FileCloser>;

OwnedFile OpenFile(const char* narrowPath, const char* mode) {
    std::FILE* file = nullptr;
    if (narrowPath == nullptr || fopen_s(&file, narrowPath, mode) != 0) return nullptr;
    return OwnedFile(file);
}

}  // namespace

// Only the library can set a document's error. Where no file could be opened, its forms by name are
// given the same path: they fail likewise and leave the number and text that are wanted.

void ReadDocument(tinyxml2::XMLDocument& document, const char* narrowPath) {
    if (const OwnedFile file = OpenFile(narrowPath, "rb")) {
        document.LoadFile(file.get());
    } else {
        document.LoadFile(narrowPath);
    }
}

void WriteDocument(tinyxml2::XMLDocument& document, const char* narrowPath) {
    constexpr bool compact = false;
    if (const OwnedFile file = OpenFile(narrowPath, "w")) {
        // Meant: a write that fails, as on a full disk, goes unnoticed: the printer doesn't look.
        document.SaveFile(file.get(), compact);
    } else {
        document.SaveFile(narrowPath, compact);
    }
}
