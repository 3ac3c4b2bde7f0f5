#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/file_attributes.h"
#include "runtime/lisp/file_name.h"
#include "runtime/lisp/function_tables.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;
namespace files = std::filesystem;

std::optional<std::uint64_t> SizeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return 0;
    return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

/// A real where 32 bits don't hold it.
LispValue SizeValue(std::uint64_t size) {
    return size <= 0x7FFFFFFF ? LispValue::Integer(static_cast<std::int32_t>(size))
                              : LispValue::Real(static_cast<double>(size));
}

LispValue FileSize(LispEvaluator&, const Arguments& arguments) {
    const auto size = SizeOf(StringArgument(arguments[0]));
    return size ? SizeValue(*size) : LispValue();
}

LispValue IsFileDirectory(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(IsFolder(StringArgument(arguments[0])));
}

/// The names that a search finds, in the order of the file system.
std::vector<WIN32_FIND_DATAW> Entries(const std::wstring& search) {
    std::vector<WIN32_FIND_DATAW> entries;
    WIN32_FIND_DATAW entry = {};
    const HANDLE find = FindFirstFileW(search.c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE) return entries;
    do {
        entries.push_back(entry);
    } while (FindNextFileW(find, &entry));
    FindClose(find);
    return entries;
}

std::wstring TextOr(const Arguments& arguments, std::size_t at, const wchar_t* otherwise) {
    if (arguments.size() <= at || arguments[at].IsNil()) return otherwise;
    return StringArgument(arguments[at]);
}

/// Of the folder, the names that match; -1: folders, 1: files, 0: both.
LispValue DirectoryFiles(LispEvaluator&, const Arguments& arguments) {
    std::wstring folder = TextOr(arguments, 0, L".");
    const std::wstring pattern = TextOr(arguments, 1, L"*.*");
    const std::int32_t kinds =
        arguments.size() > 2 && !arguments[2].IsNil() ? IntegerArgument(arguments[2]) : 0;
    if (folder.empty()) folder = L".";
    Arguments names;
    for (const WIN32_FIND_DATAW& entry : Entries(folder.append(L"\\").append(pattern))) {
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (kinds == 0 || (kinds < 0) == isFolder)
            names.push_back(LispValue::String(entry.cFileName));
    }
    return LispValue::List(names);
}

LispValue MakeDirectory(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(CreateDirectoryW(StringArgument(arguments[0]).c_str(), nullptr));
}

/// Puts the one file's bytes behind the other's.
bool Append(const std::wstring& source, const std::wstring& target) {
    std::ifstream from(files::path(source), std::ios::binary);
    std::ofstream to(files::path(target), std::ios::binary | std::ios::app);
    if (!from || !to) return false;
    if (from.peek() != std::ifstream::traits_type::eof()) to << from.rdbuf();
    return to.good();
}

/// The number of bytes copied. An existing file is overwritten by none; with T as the third
/// argument the bytes go behind its own.
LispValue CopyOneFile(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& source = StringArgument(arguments[0]);
    const std::wstring& target = StringArgument(arguments[1]);
    const bool appends = arguments.size() == 3 && !arguments[2].IsNil();
    const auto size = SizeOf(source);
    if (!size || IsFolder(source)) return LispValue();
    const bool copied = appends && Exists(target)
                            ? Append(source, target)
                            : CopyFileW(source.c_str(), target.c_str(), TRUE) != FALSE;
    return copied ? SizeValue(*size) : LispValue();
}

LispValue DeleteOneFile(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(DeleteFileW(StringArgument(arguments[0]).c_str()));
}

LispValue RenameFile(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(
        MoveFileExW(StringArgument(arguments[0]).c_str(), StringArgument(arguments[1]).c_str(), 0));
}

std::wstring TemporaryFolder() {
    wchar_t path[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, path);
    return path;
}

/// A path that no file has and that wasn't given before: the pattern's folder, base and extension,
/// with three digits behind the base.
LispValue MakeTemporaryName(LispEvaluator&, const Arguments& arguments) {
    static unsigned count = 0;
    const FileNameParts pattern = SplitFileName(TextOr(arguments, 0, L"$VL~~"));
    std::wstring folder = TextOr(arguments, 1, pattern.directory.c_str());
    if (folder.empty()) folder = TemporaryFolder();
    if (folder.back() != L'\\' && folder.back() != L'/') folder += L'\\';
    const std::wstring extension = TextOr(arguments, 2, pattern.extension.c_str());
    std::wstring path;
    do {
        std::wstring number = std::to_wstring(++count);
        number.insert(0, 3 - std::min<std::size_t>(3, number.size()), L'0');
        path = folder + pattern.base + number + extension;
    } while (Exists(path));
    return LispValue::String(path);
}

constexpr LispFunctionRow rows[] = {
    {L"VL-FILE-SIZE", FileSize, 1, 1},
    {L"VL-FILE-DIRECTORY-P", IsFileDirectory, 1, 1},
    {L"VL-DIRECTORY-FILES", DirectoryFiles, 0, 3},
    {L"VL-MKDIR", MakeDirectory, 1, 1},
    {L"VL-FILE-COPY", CopyOneFile, 2, 3},
    {L"VL-FILE-DELETE", DeleteOneFile, 1, 1},
    {L"VL-FILE-RENAME", RenameFile, 2, 2},
    {L"VL-FILENAME-MKTEMP", MakeTemporaryName, 0, 3},
};

}  // namespace

void DefineFileSystemFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost
