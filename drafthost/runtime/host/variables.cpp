#include "runtime/host/variables.h"

#include "runtime/host/document.h"
#include "runtime/host/full_path.h"
#include "runtime/host/profile.h"
#include "runtime/host/same_name.h"

#include <windows.h>

namespace drafthost {

namespace {

LispValue DrawingName(const Document& document) {
    return LispValue::String(document.docTitle());
}

LispValue DrawingFolder(const Document& document) {
    const std::wstring folder = document.Folder();
    return LispValue::String(folder.empty() ? FullPath(L".") + L"\\" : folder);
}

LispValue IsSaved(const Document& document) {
    return LispValue::Integer(document.Folder().empty() ? 0 : 1);
}

LispValue HostVersion(const Document&) {
    return LispValue::String(L"17.0");
}

LispValue Product(const Document&) {
    return LispValue::String(L"drafthost");
}

LispValue CurrentProfile(const Document&) {
    return LispValue::String(ProfileName());
}

/// YYYYMMDD.HHMMSSmmm, local time.
LispValue Now(const Document&) {
    SYSTEMTIME time = {};
    GetLocalTime(&time);
    const double date = time.wYear * 10000.0 + time.wMonth * 100.0 + time.wDay;
    const double clock = time.wHour * 10000.0 + time.wMinute * 100.0 + time.wSecond;
    return LispValue::Real(date + clock / 1e6 + time.wMilliseconds / 1e9);
}

LispValue Milliseconds(const Document&) {
    return LispValue::Integer(static_cast<std::int32_t>(GetTickCount() & 0x7FFFFFFF));
}

LispValue TemporaryFolder(const Document&) {
    wchar_t path[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, path);
    return LispValue::String(path);
}

struct FixedVariable {
    const wchar_t* name;
    LispValue (*get)(const Document& document);
};

constexpr FixedVariable fixedVariables[] = {
    {L"ACADVER", HostVersion},        {L"CDATE", Now},
    {L"CPROFILE", CurrentProfile},    {L"DWGNAME", DrawingName},
    {L"DWGPREFIX", DrawingFolder},    {L"DWGTITLED", IsSaved},
    {L"MILLISECS", Milliseconds},     {L"PRODUCT", Product},
    {L"TEMPPREFIX", TemporaryFolder},
};

/// A variable that keeps what it is set to for the length of the session.
struct KeptVariable {
    const wchar_t* name;
    LispValue value;
};

std::vector<KeptVariable>& KeptVariables() {
    static std::vector<KeptVariable> variables = {
        {L"CMDECHO", LispValue::Integer(1)}, {L"FILEDIA", LispValue::Integer(1)},
        {L"NOMUTT", LispValue::Integer(0)},  {L"USERI1", LispValue::Integer(0)},
        {L"USERI2", LispValue::Integer(0)},  {L"USERI3", LispValue::Integer(0)},
        {L"USERI4", LispValue::Integer(0)},  {L"USERI5", LispValue::Integer(0)},
        {L"USERR1", LispValue::Real(0)},     {L"USERR2", LispValue::Real(0)},
        {L"USERR3", LispValue::Real(0)},     {L"USERR4", LispValue::Real(0)},
        {L"USERR5", LispValue::Real(0)},     {L"USERS1", LispValue::String(L"")},
        {L"USERS2", LispValue::String(L"")}, {L"USERS3", LispValue::String(L"")},
        {L"USERS4", LispValue::String(L"")}, {L"USERS5", LispValue::String(L"")},
    };
    return variables;
}

KeptVariable* FindKept(const std::wstring& name) {
    for (KeptVariable& variable : KeptVariables()) {
        if (IsSameName(variable.name, name)) return &variable;
    }
    return nullptr;
}

}  // namespace

std::optional<LispValue> GetHostVariable(const std::wstring& name, const Document& document) {
    for (const FixedVariable& variable : fixedVariables) {
        if (IsSameName(variable.name, name)) return variable.get(document);
    }
    const KeptVariable* kept = FindKept(name);
    return kept == nullptr ? std::nullopt : std::optional<LispValue>(kept->value);
}

bool SetHostVariable(const std::wstring& name, const LispValue& value) {
    KeptVariable* kept = FindKept(name);
    if (kept == nullptr) return false;
    if (kept->value.IsReal() && value.IsNumber()) {
        kept->value = LispValue::Real(value.AsReal());
        return true;
    }
    if (kept->value.Kind() != value.Kind()) return false;
    kept->value = value;
    return true;
}

}  // namespace drafthost
