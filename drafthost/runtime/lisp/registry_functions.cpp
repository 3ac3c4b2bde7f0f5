#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/owned_key.h"

#include <windows.h>

#include <algorithm>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// A key's path, "HKEY_CURRENT_USER\\Software\\...", in its two parts.
struct KeyPath {
    HKEY root = nullptr;
    std::wstring rest;
};

KeyPath KeyPathArgument(const LispValue& value) {
    struct Root {
        const wchar_t* name;
        HKEY key;
    };
    static const Root roots[] = {{L"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
                                 {L"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
                                 {L"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
                                 {L"HKEY_USERS", HKEY_USERS},
                                 {L"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG}};
    const std::wstring& path = StringArgument(value);
    const std::size_t end = path.find(L'\\');
    for (const Root& root : roots) {
        if (_wcsicmp(path.substr(0, end).c_str(), root.name) != 0) continue;
        return {root.key, end == std::wstring::npos ? std::wstring() : path.substr(end + 1)};
    }
    throw BadArgumentValue(L"registry key:", value);
}

/// Nil stands for the key's own value.
std::wstring ValueName(const Arguments& arguments) {
    return arguments.size() < 2 || arguments[1].IsNil() ? std::wstring()
                                                        : StringArgument(arguments[1]);
}

/// The texts of a value of several, each ended by a zero.
LispValue TextList(const std::wstring& texts) {
    Arguments items;
    for (std::size_t start = 0; start < texts.size() && texts[start] != 0;) {
        const std::size_t end = std::min(texts.find(L'\0', start), texts.size());
        items.push_back(LispValue::String(texts.substr(start, end - start)));
        start = end + 1;
    }
    return LispValue::List(items);
}

/// Nil for a kind that LISP has none for.
LispValue ValueOf(DWORD type, const std::vector<BYTE>& bytes) {
    const auto* letters = reinterpret_cast<const wchar_t*>(bytes.data());
    const std::wstring text(letters, bytes.size() / sizeof(wchar_t));
    switch (type) {
        case REG_SZ:
        case REG_EXPAND_SZ:
            return LispValue::String(text.substr(0, text.find(L'\0')));
        case REG_MULTI_SZ:
            return TextList(text);
        case REG_DWORD:
            if (bytes.size() != sizeof(DWORD)) return LispValue();
            return LispValue::Integer(*reinterpret_cast<const std::int32_t*>(bytes.data()));
        default:
            return LispValue();
    }
}

LispValue Read(LispEvaluator&, const Arguments& arguments) {
    const KeyPath path = KeyPathArgument(arguments[0]);
    const std::wstring name = ValueName(arguments);
    HKEY opened = nullptr;
    if (RegOpenKeyExW(path.root, path.rest.c_str(), 0, KEY_READ, &opened) != 0) return LispValue();
    const OwnedKey key(opened);
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(opened, name.c_str(), nullptr, &type, nullptr, &size) != 0)
        return LispValue();
    std::vector<BYTE> bytes(size);
    if (RegQueryValueExW(opened, name.c_str(), nullptr, &type, bytes.data(), &size) != 0)
        return LispValue();
    bytes.resize(size);
    return ValueOf(type, bytes);
}

bool Store(HKEY key, const std::wstring& name, const LispValue& data) {
    if (data.IsInteger()) {
        const std::int32_t number = data.AsInteger();
        return RegSetValueExW(key, name.c_str(), 0, REG_DWORD,
                              reinterpret_cast<const BYTE*>(&number), sizeof number) == 0;
    }
    const std::wstring& text = StringArgument(data);
    return RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == 0;
}

/// The data; nil when the key can't be made or written.
LispValue Write(LispEvaluator&, const Arguments& arguments) {
    const KeyPath path = KeyPathArgument(arguments[0]);
    const std::wstring name = ValueName(arguments);
    const LispValue data = arguments.size() == 3 ? arguments[2] : LispValue::String(L"");
    if (!data.IsInteger()) StringArgument(data);
    HKEY opened = nullptr;
    if (RegCreateKeyExW(path.root, path.rest.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened,
                        nullptr) != 0) {
        return LispValue();
    }
    const OwnedKey key(opened);
    return Store(opened, name, data) ? data : LispValue();
}

/// A value, or without a name the key with its values; a key that has keys of its own stays.
LispValue Delete(LispEvaluator&, const Arguments& arguments) {
    const KeyPath path = KeyPathArgument(arguments[0]);
    if (path.rest.empty()) return LispValue();
    if (arguments.size() < 2 || arguments[1].IsNil()) {
        return LispValue::Boolean(RegDeleteKeyW(path.root, path.rest.c_str()) == 0);
    }
    HKEY opened = nullptr;
    if (RegOpenKeyExW(path.root, path.rest.c_str(), 0, KEY_WRITE, &opened) != 0) return LispValue();
    const OwnedKey key(opened);
    return LispValue::Boolean(RegDeleteValueW(opened, ValueName(arguments).c_str()) == 0);
}

constexpr LispFunctionRow rows[] = {
    {L"VL-REGISTRY-READ", Read, 1, 2},
    {L"VL-REGISTRY-WRITE", Write, 1, 3},
    {L"VL-REGISTRY-DELETE", Delete, 1, 2},
};

}  // namespace

void DefineRegistryFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost
