#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// One control of an extended dialog template, as it stands in the file.
struct TemplateItem {
    DWORD helpId = 0;
    DWORD extendedStyle = 0;
    DWORD style = 0;
    int x = 0, y = 0, width = 0, height = 0;  ///< dialog units
    DWORD id = 0;
    std::wstring windowClass;  ///< "button" and "static" also for the platform's numbers of them
    std::wstring text;
    WORD extraBytes = 0;
};

/// An extended dialog template, as it stands in the file.
struct DialogTemplate {
    WORD version = 0;
    WORD signature = 0;  ///< 0xFFFF: extended
    DWORD helpId = 0;
    DWORD extendedStyle = 0;
    DWORD style = 0;
    int x = 0, y = 0, width = 0, height = 0;  ///< dialog units
    std::wstring menu;
    std::wstring windowClass;
    std::wstring caption;
    int pointSize = 0;
    int weight = 0;
    int italic = 0;
    int characterSet = 0;
    std::wstring face;
    std::vector<TemplateItem> items;
};

/// Reads the dialog resource of just this language out of the module. Throws std::runtime_error
/// when there is none.
DialogTemplate ReadDialogTemplate(HMODULE module, int id, WORD language);
