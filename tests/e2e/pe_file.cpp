#include "e2e/pe_file.h"

#include "support/temp_folder.h"

#include <stdexcept>
#include <string_view>

PeFile::PeFile(const std::wstring& path) : m_bytes(ReadFileBytes(path)) {
    if (m_bytes.size() < 0x200 || m_bytes.compare(0, 2, "MZ") != 0) {
        throw std::runtime_error("no image file");
    }
    const IMAGE_SECTION_HEADER* header = IMAGE_FIRST_SECTION(&Headers());
    for (int index = 0; index < Headers().FileHeader.NumberOfSections; ++index, ++header) {
        const char* name = reinterpret_cast<const char*>(header->Name);
        m_sections.push_back({std::string(name, strnlen(name, sizeof header->Name)),
                              header->VirtualAddress, header->Misc.VirtualSize,
                              header->Characteristics});
    }
}

const PeFile::Section& PeFile::SectionNamed(const std::string& name) const {
    for (const Section& section : m_sections) {
        if (section.name == name) return section;
    }
    throw std::runtime_error("no section " + name);
}

const PeFile::Section& PeFile::SectionAt(std::uint32_t address) const {
    for (const Section& section : m_sections) {
        if (address >= section.address && address - section.address < section.size) return section;
    }
    throw std::runtime_error("an address outside of every section");
}

std::vector<PeFile::Export> PeFile::NamedExports() const {
    const auto table = Read<IMAGE_EXPORT_DIRECTORY>(Directory(0).VirtualAddress);
    std::vector<Export> exports;
    for (DWORD index = 0; index < table.NumberOfNames; ++index) {
        const auto name = Read<DWORD>(table.AddressOfNames + index * 4);
        const auto ordinal = Read<WORD>(table.AddressOfNameOrdinals + index * 2);
        exports.push_back({ReadText(name), Read<DWORD>(table.AddressOfFunctions + ordinal * 4u)});
    }
    return exports;
}

std::uint32_t PeFile::ExportCount() const {
    return Read<IMAGE_EXPORT_DIRECTORY>(Directory(0).VirtualAddress).NumberOfFunctions;
}

std::uint32_t PeFile::ExportAddress(const std::string& name) const {
    for (const Export& entry : NamedExports()) {
        if (entry.name == name) return entry.address;
    }
    throw std::runtime_error("no export " + name);
}

std::vector<std::string> PeFile::ImportedDlls() const {
    std::vector<std::string> dlls;
    for (std::uint32_t address = Directory(1).VirtualAddress;;
         address += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto descriptor = Read<IMAGE_IMPORT_DESCRIPTOR>(address);
        if (descriptor.Name == 0) return dlls;
        dlls.push_back(ReadText(descriptor.Name));
    }
}

std::uint32_t PeFile::SymbolAddress(const std::string& name) const {
    const IMAGE_FILE_HEADER& file = Headers().FileHeader;
    const char* symbols = m_bytes.data() + file.PointerToSymbolTable;
    const char* longNames = symbols + file.NumberOfSymbols * IMAGE_SIZEOF_SYMBOL;
    for (DWORD index = 0; index < file.NumberOfSymbols; ++index) {
        IMAGE_SYMBOL symbol;
        std::memcpy(&symbol, symbols + index * IMAGE_SIZEOF_SYMBOL, sizeof symbol);
        index += symbol.NumberOfAuxSymbols;
        const char* shortName = reinterpret_cast<const char*>(symbol.N.ShortName);
        const std::string_view found = symbol.N.Name.Short != 0
                                           ? std::string_view(shortName, strnlen(shortName, 8))
                                           : std::string_view(longNames + symbol.N.Name.Long);
        if (found == name && symbol.SectionNumber > 0) {
            return m_sections[static_cast<size_t>(symbol.SectionNumber) - 1].address + symbol.Value;
        }
    }
    throw std::runtime_error("no symbol " + name);
}

std::uint32_t PeFile::ReadPointer(std::uint32_t address) const {
    const auto pointer = Read<std::uint64_t>(address);
    if (pointer == 0) return 0;
    return static_cast<std::uint32_t>(pointer - Headers().OptionalHeader.ImageBase);
}

std::string PeFile::ReadBytes(std::uint32_t address, std::size_t size) const {
    return m_bytes.substr(Offset(address, size), size);
}

std::string PeFile::ReadText(std::uint32_t address) const {
    return m_bytes.data() + Offset(address, 1);
}

std::wstring PeFile::ReadWideText(std::uint32_t address) const {
    std::wstring text;
    while (const auto character = Read<wchar_t>(address)) {
        text += character;
        address += sizeof character;
    }
    return text;
}

const IMAGE_NT_HEADERS64& PeFile::Headers() const {
    LONG offset = 0;
    std::memcpy(&offset, m_bytes.data() + offsetof(IMAGE_DOS_HEADER, e_lfanew), sizeof offset);
    return *reinterpret_cast<const IMAGE_NT_HEADERS64*>(m_bytes.data() + offset);
}

const IMAGE_DATA_DIRECTORY& PeFile::Directory(std::size_t index) const {
    return Headers().OptionalHeader.DataDirectory[index];
}

std::size_t PeFile::Offset(std::uint32_t address, std::size_t size) const {
    const IMAGE_SECTION_HEADER* header = IMAGE_FIRST_SECTION(&Headers());
    for (int index = 0; index < Headers().FileHeader.NumberOfSections; ++index, ++header) {
        if (address < header->VirtualAddress) continue;
        const std::uint32_t within = address - header->VirtualAddress;
        if (within + size <= header->SizeOfRawData) return header->PointerToRawData + within;
    }
    throw std::runtime_error("an address that the file holds nothing for");
}
