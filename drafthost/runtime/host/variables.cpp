#include "runtime/host/variables.h"

#include "runtime/host/document.h"
#include "runtime/host/full_path.h"
#include "runtime/host/profile.h"
#include "runtime/host/same_name.h"
#include "runtime/host/search_path.h"

#include <windows.h>

#include <cstdint>
#include <vector>

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

/// Days since the start of the Julian calendar's count, the clock behind the point; local time.
LispValue JulianDate(const Document&) {
    SYSTEMTIME time = {};
    GetLocalTime(&time);
    FILETIME ticks = {};
    if (!SystemTimeToFileTime(&time, &ticks)) return LispValue::Real(0);
    const auto count =
        (static_cast<std::uint64_t>(ticks.dwHighDateTime) << 32) | ticks.dwLowDateTime;
    constexpr double dayOf1601 = 2305814.0;
    constexpr double ticksOfDay = 864000000000.0;
    return LispValue::Real(dayOf1601 + static_cast<double>(count) / ticksOfDay);
}

/// The folders of the search path, each with a backslash and ";" behind it.
LispValue SearchPath(const Document&) {
    std::wstring path;
    for (std::wstring folder : SplitSearchPath(GetSetting(L"ACAD").value_or(std::wstring()))) {
        if (folder.back() != L'\\') folder += L'\\';
        path += folder.append(L";");
    }
    return LispValue::String(path);
}

LispValue LoginName(const Document&) {
    wchar_t name[257] = {};
    DWORD size = 257;
    if (!GetUserNameW(name, &size)) name[0] = 0;
    return LispValue::String(name);
}

/// Three letters, such as "CHS".
LispValue Language(const Document&) {
    wchar_t name[16] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, name, 16);
    return LispValue::String(name);
}

LispValue CodePage(const Document&) {
    return LispValue::String(L"ANSI_" + std::to_wstring(GetACP()));
}

LispValue Platform(const Document&) {
    return LispValue::String(L"Microsoft Windows");
}

template <int value>
LispValue Always(const Document&) {
    return LispValue::Integer(value);
}

LispValue Nothing(const Document&) {
    return LispValue::String(L"");
}

LispValue StandardStyle(const Document&) {
    return LispValue::String(L"Standard");
}

struct FixedVariable {
    const wchar_t* name;
    LispValue (*get)(const Document& document);
};

// What a drawing would hold has the value of an empty one.
constexpr FixedVariable fixedVariables[] = {
    {L"ACADPREFIX", SearchPath},
    {L"ACADVER", HostVersion},
    {L"CDATE", Now},
    {L"CMDACTIVE", Always<0>},
    {L"CMDNAMES", Nothing},
    {L"CPROFILE", CurrentProfile},
    {L"DATE", JulianDate},
    {L"DBMOD", Always<0>},
    {L"DIMSTYLE", StandardStyle},
    {L"DWGCODEPAGE", CodePage},
    {L"DWGNAME", DrawingName},
    {L"DWGPREFIX", DrawingFolder},
    {L"DWGTITLED", IsSaved},
    {L"FULLOPEN", Always<1>},
    {L"LOCALE", Language},
    {L"LOGINNAME", LoginName},
    {L"MILLISECS", Milliseconds},
    {L"PLATFORM", Platform},
    {L"PRODUCT", Product},
    {L"SAVEFILE", Nothing},
    {L"SYSCODEPAGE", CodePage},
    {L"TEMPPREFIX", TemporaryFolder},
    {L"WORLDUCS", Always<1>},
    {L"WRITESTAT", Always<1>},
};

/// A variable that keeps what it is set to for the length of the session.
struct KeptVariable {
    const wchar_t* name;
    LispValue value;
};

struct WholeVariable {
    const wchar_t* name;
    int value;
};

constexpr WholeVariable wholeVariables[] = {
    {L"ACADLSPASDOC", 0}, {L"ANGDIR", 0},      {L"ATTDIA", 0},      {L"ATTMODE", 1},
    {L"ATTREQ", 1},       {L"AUNITS", 0},      {L"AUPREC", 0},      {L"BLIPMODE", 0},
    {L"CMDDIA", 1},       {L"CMDECHO", 1},     {L"COORDS", 1},      {L"CURSORSIZE", 5},
    {L"DIMZIN", 0},       {L"DRAGMODE", 2},    {L"EDGEMODE", 0},    {L"ERRNO", 0},
    {L"EXPERT", 0},       {L"FILEDIA", 1},     {L"FILLMODE", 1},    {L"GRIDMODE", 0},
    {L"HIGHLIGHT", 1},    {L"INSUNITS", 1},    {L"LIMCHECK", 0},    {L"LUNITS", 2},
    {L"LUPREC", 4},       {L"LWDISPLAY", 0},   {L"MEASUREMENT", 0}, {L"MENUECHO", 0},
    {L"MIRRTEXT", 0},     {L"NOMUTT", 0},      {L"ORTHOMODE", 0},   {L"OSMODE", 4133},
    {L"OSNAPCOORD", 2},   {L"PDMODE", 0},      {L"PEDITACCEPT", 0}, {L"PICKADD", 1},
    {L"PICKAUTO", 1},     {L"PICKBOX", 3},     {L"PICKFIRST", 1},   {L"PICKSTYLE", 1},
    {L"PLINETYPE", 2},    {L"PROXYNOTICE", 1}, {L"PSLTSCALE", 1},   {L"QTEXTMODE", 0},
    {L"REGENMODE", 1},    {L"SAVETIME", 10},   {L"SDI", 0},         {L"SNAPMODE", 0},
    {L"SPLFRAME", 0},     {L"TEXTFILL", 1},    {L"TILEMODE", 1},    {L"UCSICON", 3},
    {L"UNITMODE", 0},     {L"USERI1", 0},      {L"USERI2", 0},      {L"USERI3", 0},
    {L"USERI4", 0},       {L"USERI5", 0},      {L"VISRETAIN", 1},   {L"WORLDVIEW", 1},
};

struct RealVariable {
    const wchar_t* name;
    double value;
};

constexpr RealVariable realVariables[] = {
    {L"ANGBASE", 0.0}, {L"CELTSCALE", 1.0}, {L"DIMASZ", 0.18},   {L"DIMSCALE", 1.0},
    {L"DIMTXT", 0.18}, {L"ELEVATION", 0.0}, {L"FILLETRAD", 0.0}, {L"LTSCALE", 1.0},
    {L"PDSIZE", 0.0},  {L"PLINEWID", 0.0},  {L"TEXTSIZE", 0.2},  {L"THICKNESS", 0.0},
    {L"USERR1", 0.0},  {L"USERR2", 0.0},    {L"USERR3", 0.0},    {L"USERR4", 0.0},
    {L"USERR5", 0.0},
};

struct TextVariable {
    const wchar_t* name;
    const wchar_t* value;
};

constexpr TextVariable textVariables[] = {
    {L"CECOLOR", L"BYLAYER"},
    {L"CELTYPE", L"ByLayer"},
    {L"CLAYER", L"0"},
    {L"CTAB", L"Model"},
    {L"TEXTSTYLE", L"Standard"},
    {L"USERS1", L""},
    {L"USERS2", L""},
    {L"USERS3", L""},
    {L"USERS4", L""},
    {L"USERS5", L""},
};

std::vector<KeptVariable> Defaults() {
    std::vector<KeptVariable> variables;
    for (const WholeVariable& variable : wholeVariables)
        variables.push_back({variable.name, LispValue::Integer(variable.value)});
    for (const RealVariable& variable : realVariables)
        variables.push_back({variable.name, LispValue::Real(variable.value)});
    for (const TextVariable& variable : textVariables)
        variables.push_back({variable.name, LispValue::String(variable.value)});
    return variables;
}

std::vector<KeptVariable>& KeptVariables() {
    static std::vector<KeptVariable> variables = Defaults();
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
