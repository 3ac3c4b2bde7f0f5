#include "ui/dialog_template.h"

#include <cstring>
#include <stdexcept>

namespace {

class Reader {
  public:
    explicit Reader(const BYTE* bytes) : m_begin(bytes), m_next(bytes) {}

    template <typename Value>
    Value Read() {
        Value value = {};
        std::memcpy(&value, m_next, sizeof value);
        m_next += sizeof value;
        return value;
    }
    std::wstring ReadText() {
        std::wstring text;
        while (const wchar_t character = Read<wchar_t>())
            text += character;
        return text;
    }
    /// A name, or a number behind 0xFFFF.
    std::wstring ReadNameOrNumber() {
        WORD first = 0;
        std::memcpy(&first, m_next, sizeof first);
        if (first != 0xFFFF) return ReadText();
        Read<WORD>();
        return L"#" + std::to_wstring(Read<WORD>());
    }
    void Align() { m_next += (4 - (m_next - m_begin) % 4) % 4; }

  private:
    const BYTE* m_begin;
    const BYTE* m_next;
};

std::wstring ClassName(const std::wstring& name) {
    if (name == L"#128") return L"button";
    if (name == L"#130") return L"static";
    return _wcsicmp(name.c_str(), L"button") == 0   ? L"button"
           : _wcsicmp(name.c_str(), L"static") == 0 ? L"static"
                                                    : name;
}

TemplateItem ReadItem(Reader& reader) {
    TemplateItem item;
    item.helpId = reader.Read<DWORD>();
    item.extendedStyle = reader.Read<DWORD>();
    item.style = reader.Read<DWORD>();
    item.x = reader.Read<short>();
    item.y = reader.Read<short>();
    item.width = reader.Read<short>();
    item.height = reader.Read<short>();
    item.id = reader.Read<DWORD>();
    item.windowClass = ClassName(reader.ReadNameOrNumber());
    item.text = reader.ReadNameOrNumber();
    item.extraBytes = reader.Read<WORD>();
    return item;
}

}  // namespace

DialogTemplate ReadDialogTemplate(HMODULE module, int id, WORD language) {
    HRSRC found = FindResourceExW(module, RT_DIALOG, MAKEINTRESOURCEW(id), language);
    if (found == nullptr) throw std::runtime_error("no such dialog template");
    Reader reader(static_cast<const BYTE*>(LockResource(LoadResource(module, found))));

    DialogTemplate dialog;
    dialog.version = reader.Read<WORD>();
    dialog.signature = reader.Read<WORD>();
    dialog.helpId = reader.Read<DWORD>();
    dialog.extendedStyle = reader.Read<DWORD>();
    dialog.style = reader.Read<DWORD>();
    const WORD itemCount = reader.Read<WORD>();
    dialog.x = reader.Read<short>();
    dialog.y = reader.Read<short>();
    dialog.width = reader.Read<short>();
    dialog.height = reader.Read<short>();
    dialog.menu = reader.ReadNameOrNumber();
    dialog.windowClass = reader.ReadNameOrNumber();
    dialog.caption = reader.ReadText();
    dialog.pointSize = reader.Read<WORD>();
    dialog.weight = reader.Read<WORD>();
    dialog.italic = reader.Read<BYTE>();
    dialog.characterSet = reader.Read<BYTE>();
    dialog.face = reader.ReadText();
    for (WORD index = 0; index < itemCount; ++index) {
        reader.Align();
        dialog.items.push_back(ReadItem(reader));
    }
    return dialog;
}
