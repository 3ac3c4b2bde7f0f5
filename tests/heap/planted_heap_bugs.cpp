// Makes the heap bug that its argument names. Each one has to be reported by the heap's validation;
// see-planted-bugs checks that, so that a silent pass of the other programs means something.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// The way of a pointer through here is hidden from the compiler, which would otherwise warn of the
// bug or drop it.
void* volatile g_hidden = nullptr;

volatile char* Opaque(void* block) {
    g_hidden = block;
    return static_cast<volatile char*>(g_hidden);
}

void WriteBehindCRuntimeBlock() {
    void* block = std::malloc(40);
    Opaque(block)[40] = 1;
    std::free(block);
}

void WriteBehindProcessHeapBlock() {
    void* block = HeapAlloc(GetProcessHeap(), 0, 40);
    Opaque(block)[41] = 1;
    HeapFree(GetProcessHeap(), 0, block);
}

void WriteBehindStringBuffer() {
    std::wstring text(100, L'x');
    volatile wchar_t* behind = text.data();
    behind[text.size() + 1] = L'y';
}

void WriteAfterFree() {
    void* block = std::malloc(64);
    volatile char* stale = Opaque(block);
    std::free(const_cast<char*>(Opaque(block)));
    stale[20] = 1;
    // Freed blocks are looked at when the heap next walks over them.
    for (int i = 0; i < 200; ++i)
        std::free(std::malloc(64));
    HeapValidate(GetProcessHeap(), 0, nullptr);
}

void FreeTwice() {
    void* block = std::malloc(64);
    std::free(const_cast<char*>(Opaque(block)));
    std::free(const_cast<char*>(Opaque(block)));
}

struct Bug {
    const char* name;
    void (*make)();
};

constexpr Bug bugs[] = {
    {"write-behind-c-runtime-block", WriteBehindCRuntimeBlock},
    {"write-behind-process-heap-block", WriteBehindProcessHeapBlock},
    {"write-behind-string-buffer", WriteBehindStringBuffer},
    {"write-after-free", WriteAfterFree},
    {"free-twice", FreeTwice},
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
        for (const Bug& bug : bugs)
            std::printf("%s\n", bug.name);
        return 0;
    }
    for (const Bug& bug : bugs) {
        if (argc == 2 && std::strcmp(argv[1], bug.name) == 0) {
            bug.make();
            return 0;
        }
    }
    std::fprintf(stderr, "no such bug\n");
    return 2;
}
