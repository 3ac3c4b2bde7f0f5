#include "ui/product_text.h"

namespace {

constexpr wchar_t lines[] =
    L"KVT CAD辅助设计软件\r"
    L"%s\r"
    L"\r"
    L"Brennvik\r"
    L"\r"
    L"© 2019-2026 版权所有\r"
    L"保留所有权利。";
constexpr wchar_t versionPlace[] = L"%s";

}  // namespace

std::wstring ProductText(const std::wstring& version) {
    std::wstring text = lines;
    return text.replace(text.find(versionPlace), 2, version);
}
