#include "runtime/host/offences.h"
#include "runtime/host/profile.h"

#include "acedads.h"

#include <algorithm>

namespace {

constexpr std::size_t capacity = 2048;  // characters that acedGetEnv may write, terminator included

}  // namespace

int acedGetEnv(const ACHAR* sym, ACHAR* var) {
    if (!drafthost::IsHostThread(L"acedGetEnv")) return RTERROR;
    if (sym == nullptr || var == nullptr) return RTERROR;
    const auto value = drafthost::GetSetting(sym);
    if (!value) return RTERROR;
    const std::size_t length = std::min(value->size(), capacity - 1);
    std::copy_n(value->c_str(), length, var);
    var[length] = 0;
    return RTNORM;
}

int acedSetEnv(const ACHAR* sym, const ACHAR* val) {
    if (!drafthost::IsHostThread(L"acedSetEnv")) return RTERROR;
    if (sym == nullptr || val == nullptr) return RTERROR;
    return drafthost::SetSetting(sym, val) ? RTNORM : RTERROR;
}
