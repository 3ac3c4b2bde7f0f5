#include "host/welcome_banner.h"

std::wstring WelcomeBanner(const std::wstring& version) {
    const std::wstring stars = L"\n" + std::wstring(55, L'*');
    return stars + L"\n欢迎使用《KVT CAD辅助设计软件》" + version + L" " +
           L"\n官方网站:https://kvtcad.example.com" + L"\n技术支持:support@kvtcad.example.com" +
           L"\n版权所有 (C) 2009-2026 Brennvik,保留所有权利。" + L"\n" + stars;
}
