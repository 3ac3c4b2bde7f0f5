#pragma once

#include "pictures.h"
#include "support/temp_folder.h"

#include <string>

/// The bytes of one of the program's RCDATA resources.
std::string PictureBytes(int resource);

/// Writes the picture into the folder; gives the file's path.
std::wstring WritePicture(const TempFolder& folder, const std::wstring& name, int resource);
