#include "ui/picture_files.h"

#include <windows.h>

std::string PictureBytes(int resource) {
    HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(resource), RT_RCDATA);
    const auto* bytes = static_cast<const char*>(LockResource(LoadResource(nullptr, found)));
    return {bytes, SizeofResource(nullptr, found)};
}

std::wstring WritePicture(const TempFolder& folder, const std::wstring& name, int resource) {
    WriteFileBytes(folder / name, PictureBytes(resource));
    return folder / name;
}
