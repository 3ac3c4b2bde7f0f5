#include "e2e/pe_file.h"
#include "support/child_process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

const PeFile& Module() {
    static const PeFile module(ProgramFolder() + L"\\KVTCAD.arx");
    return module;
}

bool IsWritable(std::uint32_t address) {
    return (Module().SectionAt(address).flags & IMAGE_SCN_MEM_WRITE) != 0;
}

bool IsCode(std::uint32_t address) {
    return (Module().SectionAt(address).flags & IMAGE_SCN_MEM_EXECUTE) != 0;
}

/// The record that the section's only row points to.
std::uint32_t OnlyRecord(const std::string& section) {
    return Module().ReadPointer(Module().SectionNamed(section).address + 8);
}

bool FileExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool IsSystemDll(const std::string& name) {
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return FileExists(std::wstring(folder) + L"\\" + std::wstring(name.begin(), name.end()));
}

}  // namespace

TEST(ModuleImage, ExportsItsTwoEntryPointsAndNothingElse) {
    std::vector<std::string> names;
    for (const PeFile::Export& entry : Module().NamedExports()) {
        names.push_back(entry.name);
        EXPECT_TRUE(IsCode(entry.address)) << entry.name;
    }

    EXPECT_THAT(names, testing::UnorderedElementsAre("acrxEntryPoint", "acrxGetApiVersion"));
    EXPECT_EQ(Module().ExportCount(), 2u);
}

TEST(ModuleImage, TheVersionQueryBeginsWithAJumpOverTheGeneration) {
    using namespace std::string_literals;

    EXPECT_EQ(Module().ReadBytes(Module().ExportAddress("acrxGetApiVersion"), 6),
              "\xEB\x04\x00\x00\x11\x00"s);
}

TEST(ModuleImage, TablesAreReadOnlySectionsOfSlots) {
    struct Row {
        const char* section;
        std::uint32_t slots;  ///< with both marks
    };
    for (const Row& row : {Row{"ARXCOMMA", 3}, Row{"ADSSYMBO", 3}, Row{"DBXCUSTO", 2}}) {
        const PeFile::Section& section = Module().SectionNamed(row.section);
        EXPECT_EQ(section.size, row.slots * 8) << row.section;
        EXPECT_TRUE(section.flags & IMAGE_SCN_MEM_READ) << row.section;
        EXPECT_FALSE(section.flags & IMAGE_SCN_MEM_WRITE) << row.section;
        EXPECT_FALSE(section.flags & IMAGE_SCN_MEM_EXECUTE) << row.section;
        EXPECT_EQ(Module().ReadPointer(section.address), 0u) << row.section;
    }
}

TEST(ModuleImage, TheCommandRecordLiesInWritableData) {
    const std::uint32_t record = OnlyRecord("ARXCOMMA");

    EXPECT_TRUE(IsWritable(record));
    EXPECT_EQ(Module().ReadWideText(Module().ReadPointer(record)), L"KVTCAD");
    EXPECT_EQ(Module().ReadWideText(Module().ReadPointer(record + 8)), L"LoadKVT");
    EXPECT_EQ(Module().ReadWideText(Module().ReadPointer(record + 16)), L"_LoadKVT");
    EXPECT_EQ(Module().Read<std::int32_t>(record + 24), 1);
    EXPECT_TRUE(IsCode(Module().ReadPointer(record + 32)));
    EXPECT_EQ(Module().ReadPointer(record + 40), 0u);
    EXPECT_EQ(Module().Read<std::uint32_t>(record + 48), 0xFFFFFFFF);
}

TEST(ModuleImage, TheLispRecordLiesInWritableData) {
    const std::uint32_t record = OnlyRecord("ADSSYMBO");

    EXPECT_TRUE(IsWritable(record));
    EXPECT_EQ(Module().ReadWideText(Module().ReadPointer(record)), L"GetKVTPath");
    EXPECT_TRUE(IsCode(Module().ReadPointer(record + 8)));
    EXPECT_EQ(Module().Read<std::uint8_t>(record + 16), 0);
    EXPECT_EQ(Module().Read<std::uint32_t>(record + 20), 0xFFFFFFFF);
}

TEST(ModuleImage, ImportsTheHostTheCompilersRuntimeAndTheSystemOnly) {
    bool hostImported = false;
    for (const std::string& dll : Module().ImportedDlls()) {
        const bool isHost = dll == "drafthost17.dll";
        const bool isRuntime =
            dll == "libstdc++-6.dll" || dll == "libgcc_s_seh-1.dll" || dll == "libwinpthread-1.dll";
        EXPECT_TRUE(isHost || isRuntime || IsSystemDll(dll)) << dll;
        hostImported |= isHost;
    }
    EXPECT_TRUE(hostImported);
    EXPECT_FALSE(Module().HasDelayedImports());
}

TEST(ModuleImage, NeedsNoDestructionAtTheEndOfAThread) {
    // The compiler's means for that; using it would keep the module loaded for good.
    for (const char* name : {"__cxa_thread_atexit", "__imp___cxa_thread_atexit"}) {
        EXPECT_THROW(Module().SymbolAddress(name), std::runtime_error) << name;
    }
}

TEST(ModuleImage, TheStaticsAreBuiltAfterAllOthers) {
    // The start code runs this list of initialisers from its end to its beginning.
    const std::uint32_t list = Module().SymbolAddress("__CTOR_LIST__");
    constexpr char statics[] = "_GLOBAL__sub_I__Z15InstallLocationB5cxx11";

    EXPECT_EQ(Module().Read<std::int64_t>(list), -1);
    EXPECT_EQ(Module().ReadPointer(list + 8), Module().SymbolAddress(statics));
    EXPECT_NE(Module().ReadPointer(list + 16), 0u) << "there are others";
}
