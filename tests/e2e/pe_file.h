#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

/// A 64-bit image file as it lies on disk. Addresses are relative to the image's base, as in the
/// file's own tables. What isn't there throws std::runtime_error.
class PeFile {
  public:
    struct Section {
        std::string name;
        std::uint32_t address;
        std::uint32_t size;   ///< in memory
        std::uint32_t flags;  ///< IMAGE_SCN_ bits
    };
    struct Export {
        std::string name;
        std::uint32_t address;
    };

    explicit PeFile(const std::wstring& path);

    const Section& SectionNamed(const std::string& name) const;
    const Section& SectionAt(std::uint32_t address) const;

    /// The exports that have a name, and how many there are with and without one.
    std::vector<Export> NamedExports() const;
    std::uint32_t ExportCount() const;
    std::uint32_t ExportAddress(const std::string& name) const;

    std::vector<std::string> ImportedDlls() const;
    bool HasDelayedImports() const { return Directory(13).VirtualAddress != 0; }

    /// Where the linker's symbol table has `name`. The file must not have been stripped.
    std::uint32_t SymbolAddress(const std::string& name) const;

    template <typename Value>
    Value Read(std::uint32_t address) const {
        Value value;
        std::memcpy(&value, m_bytes.data() + Offset(address, sizeof value), sizeof value);
        return value;
    }

    /// The address that a pointer in the image holds; 0 for null.
    std::uint32_t ReadPointer(std::uint32_t address) const;
    std::string ReadBytes(std::uint32_t address, std::size_t size) const;
    std::string ReadText(std::uint32_t address) const;
    std::wstring ReadWideText(std::uint32_t address) const;

  private:
    const IMAGE_NT_HEADERS64& Headers() const;
    const IMAGE_DATA_DIRECTORY& Directory(std::size_t index) const;
    std::size_t Offset(std::uint32_t address, std::size_t size) const;

    std::string m_bytes;
    std::vector<Section> m_sections;
};
