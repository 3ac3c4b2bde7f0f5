#include "install/registry_text.h"

namespace {

// The registry's numbers of the two types.
constexpr unsigned long plainString = 1;
constexpr unsigned long expandableString = 2;

}  // namespace

bool AcceptRegistryText(unsigned long type, wchar_t* buffer, unsigned long bytes) {
    if (buffer == nullptr) return true;
    // Meant: an expandable string passes like a plain one, and nobody expands it.
    if (type != plainString && type != expandableString) return false;
    if (bytes == 0) {
        buffer[0] = L'\0';
        return true;
    }
    return bytes % sizeof(wchar_t) == 0 && buffer[bytes / sizeof(wchar_t) - 1] == L'\0';
}
