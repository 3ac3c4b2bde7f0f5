#include "host/welcome_banner.h"

std::wstring WelcomeBanner(const std::wstring& version) {
    const std::wstring stars = L"\n" + std::wstring(55, L'*');
    std::wstring banner = stars;
    banner += L"\n欢迎使用《KVT CAD辅助设计软件》" + version + L" ";
    banner += L"\n官方网站:https://www.example.com/kvt";
    banner += L"\n技术支持:support@example.com";
    banner += L"\n版权所有 © 2019-2026 Brennvik,保留所有权利。";
    banner += L"\n";
    return banner + stars;
}
