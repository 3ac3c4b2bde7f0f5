#include "ui/gdiplus_watch.h"

#include "support/call_journal.h"

#include <cstring>
#include <type_traits>

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace {

GdiplusWatch* g_watch = nullptr;

std::wstring Text(int number) {
    return L" " + std::to_wstring(number);
}
std::wstring Text(UINT number) {
    return L" " + std::to_wstring(number);
}
std::wstring Text(LANGID number) {
    return L" " + std::to_wstring(number);
}

std::wstring Text(REAL number) {
    wchar_t text[32];
    swprintf(text, std::size(text), L" %g", number);
    return text;
}

std::wstring Text(ARGB color) {
    wchar_t text[16];
    swprintf(text, std::size(text), L" %08lX", color);
    return text;
}

std::wstring Text(const RectF* rect) {
    return L" [" + Text(rect->X).substr(1) + Text(rect->Y) + Text(rect->Width) +
           Text(rect->Height) + L"]";
}

std::wstring Text(const Rect* rect) {
    return L" [" + Text(rect->X).substr(1) + Text(rect->Y) + Text(rect->Width) +
           Text(rect->Height) + L"]";
}

std::wstring Text(const WCHAR* text) {
    if (IS_INTRESOURCE(text)) return L" #" + std::to_wstring(reinterpret_cast<ULONG_PTR>(text));
    return L" '" + std::wstring(text) + L"'";
}

std::wstring Text(HWND) {
    return L" window";
}
std::wstring Text(HDC) {
    return L" context";
}
std::wstring Text(HINSTANCE) {
    return L" module";
}

/// An object; places for results have no text.
template <typename Object>
std::wstring Text(Object* object) {
    using Plain = std::remove_const_t<Object>;
    constexpr bool isResult = !std::is_const_v<Object> &&
                              (std::is_same_v<Plain, RectF> || std::is_same_v<Plain, BitmapData> ||
                               std::is_same_v<Plain, UINT> || std::is_same_v<Plain, INT>);
    if constexpr (isResult) {
        return {};
    } else {
        if (object == nullptr) return L" null";
        const auto found = g_watch->alive.find(object);
        return found != g_watch->alive.end() ? L" " + found->second : L" unknown";
    }
}

template <typename Object>
std::wstring Text(Object**) {
    return {};
}

template <typename Enumeration, std::enable_if_t<std::is_enum_v<Enumeration>, int> = 0>
std::wstring Text(Enumeration value) {
    return Text(static_cast<int>(value));
}

const wchar_t* KindOf(GpGraphics**) {
    return L"surface";
}
const wchar_t* KindOf(GpFont**) {
    return L"font";
}
const wchar_t* KindOf(GpFontFamily**) {
    return L"family";
}
const wchar_t* KindOf(GpSolidFill**) {
    return L"brush";
}
const wchar_t* KindOf(GpLineGradient**) {
    return L"gradient";
}
const wchar_t* KindOf(GpStringFormat**) {
    return L"format";
}
const wchar_t* KindOf(GpBitmap**) {
    return L"bitmap";
}

std::map<std::wstring, int> g_made;

/// Names the object that a call has made; its place is the last argument.
template <typename Last>
std::wstring Made(Last last) {
    if constexpr (std::is_pointer_v<std::remove_pointer_t<Last>> && std::is_pointer_v<Last>) {
        const std::wstring kind = KindOf(last);
        const std::wstring name = kind + std::to_wstring(++g_made[kind]);
        if (kind != L"family") g_watch->alive[*last] = name;  // That one is kept for good.
        return L" -> " + name;
    } else {
        return {};
    }
}

template <typename First, typename... Others>
std::wstring MadeByLast(First first, Others... others) {
    if constexpr (sizeof...(Others) == 0) {
        return Made(first);
    } else {
        return MadeByLast(others...);
    }
}

template <typename First, typename... Others>
const void* FirstObject(First first, Others...) {
    if constexpr (std::is_pointer_v<First>) return first;
    return nullptr;
}

bool IsRelease(const char* name) {
    return strncmp(name, "GdipDelete", 10) == 0 || strncmp(name, "GdipDispose", 11) == 0;
}

bool FailsNow(const char* name) {
    ++g_watch->calls;
    return g_watch->failEveryCall || g_watch->calls == g_watch->failingCall ||
           strcmp(name, g_watch->failingFunction) == 0;
}

template <typename Function, typename... Arguments>
GpStatus Forward(const char* name, Function original, Arguments... arguments) {
    std::wstring note(name, name + strlen(name));
    ((note += Text(arguments)), ...);
    const bool fails = FailsNow(name);
    const bool isRelease = IsRelease(name);

    GpStatus status = fails ? g_watch->failure : Ok;
    if (!fails || isRelease) {
        const GpStatus real = original(arguments...);
        if (!fails) status = real;
    }
    if (isRelease) g_watch->alive.erase(FirstObject(arguments...));
    note += status == Ok ? MadeByLast(arguments...) : L" -> failed";
    CallJournal::Add(note);
    return status;
}

// Every function that the tool tip may call, but for GdipAlloc and GdipFree.
#define GDIPLUS_FUNCTIONS(X)             \
    X(GdipBitmapLockBits)                \
    X(GdipBitmapUnlockBits)              \
    X(GdipCloneBitmapArea)               \
    X(GdipCreateBitmapFromGraphics)      \
    X(GdipCreateBitmapFromResource)      \
    X(GdipCreateFont)                    \
    X(GdipCreateFromHDC)                 \
    X(GdipCreateFromHWND)                \
    X(GdipCreateLineBrushFromRect)       \
    X(GdipCreateSolidFill)               \
    X(GdipCreateStringFormat)            \
    X(GdipDeleteBrush)                   \
    X(GdipDeleteFont)                    \
    X(GdipDeleteGraphics)                \
    X(GdipDeleteStringFormat)            \
    X(GdipDisposeImage)                  \
    X(GdipDrawImageRectI)                \
    X(GdipDrawString)                    \
    X(GdipFillRectangle)                 \
    X(GdipGetGenericFontFamilySansSerif) \
    X(GdipGetImageGraphicsContext)       \
    X(GdipGetImageHeight)                \
    X(GdipGetImageWidth)                 \
    X(GdipMeasureString)                 \
    X(GdipSetCompositingQuality)         \
    X(GdipSetInterpolationMode)          \
    X(GdipSetSmoothingMode)              \
    X(GdipSetStringFormatAlign)          \
    X(GdipSetTextRenderingHint)

/// The replacement of one function; `Tag` keeps functions of one type apart.
template <typename Tag, typename Function>
struct Replacement;

template <typename Tag, typename... Arguments>
struct Replacement<Tag, GpStatus(WINGDIPAPI*)(Arguments...)> {
    using Function = GpStatus(WINGDIPAPI*)(Arguments...);

    Replacement() : hook("gdiplus.dll", Tag::name, &Call) { original = hook.Original(); }

    static GpStatus WINGDIPAPI Call(Arguments... arguments) {
        return Forward(Tag::name, original, arguments...);
    }

    static inline Function original = nullptr;
    ImportHook<Function> hook;
};

#define DECLARE_TAG(function)                          \
    struct function##Tag {                             \
        static constexpr const char* name = #function; \
    };
GDIPLUS_FUNCTIONS(DECLARE_TAG)
#undef DECLARE_TAG

decltype(&GdipAlloc) g_alloc = nullptr;
decltype(&GdipFree) g_free = nullptr;

void* WINGDIPAPI WatchedAlloc(size_t size) {
    const bool fails = !g_watch->failEveryCall && FailsNow("GdipAlloc");
    CallJournal::Add(fails ? L"GdipAlloc -> failed" : L"GdipAlloc");
    if (fails) return nullptr;
    ++g_watch->allocations;
    return g_alloc(size);
}

void WINGDIPAPI WatchedFree(void* storage) {
    CallJournal::Add(L"GdipFree");
    if (storage != nullptr) --g_watch->allocations;
    g_free(storage);
}

}  // namespace

struct GdiplusWatch::Hooks {
    Hooks()
        : alloc("gdiplus.dll", "GdipAlloc", WatchedAlloc),
          free("gdiplus.dll", "GdipFree", WatchedFree) {
        g_alloc = alloc.Original();
        g_free = free.Original();
    }

#define HOOK_MEMBER(function) Replacement<function##Tag, decltype(&function)> function##Hook;
    GDIPLUS_FUNCTIONS(HOOK_MEMBER)
#undef HOOK_MEMBER
    ImportHook<decltype(&GdipAlloc)> alloc;
    ImportHook<decltype(&GdipFree)> free;
};

GdiplusWatch::GdiplusWatch() {
    g_watch = this;
    g_made.clear();
    m_hooks = std::make_unique<Hooks>();
    CallJournal::Clear();
}

GdiplusWatch::~GdiplusWatch() {
    m_hooks.reset();
    g_watch = nullptr;
}
