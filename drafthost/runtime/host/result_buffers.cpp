#include "runtime/host/result_buffers.h"

#include "acutads.h"

#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <cwchar>

namespace {

wchar_t* CopyText(const wchar_t* text) {
    const std::size_t size = std::wcslen(text) + 1;
    auto* copy = new wchar_t[size];
    std::wmemcpy(copy, text, size);
    return copy;
}

bool HoldsText(const resbuf& buffer) {
    return buffer.restype == RTSTR && buffer.resval.rstring != nullptr;
}

}  // namespace

resbuf* acutNewRb(int type) {
    auto* buffer = new resbuf;
    std::memset(buffer, 0, sizeof *buffer);
    buffer->restype = static_cast<short>(type);
    return buffer;
}

int acutRelRb(resbuf* rb) {
    while (rb != nullptr) {
        resbuf* next = rb->rbnext;
        if (HoldsText(*rb)) delete[] rb->resval.rstring;
        delete rb;
        rb = next;
    }
    return RTNORM;
}

resbuf* acutBuildList(int rtype, ...) {
    resbuf* first = nullptr;
    resbuf** end = &first;
    bool isKnown = true;
    va_list arguments;
    va_start(arguments, rtype);
    for (int type = rtype; type != 0 && isKnown; type = isKnown ? va_arg(arguments, int) : 0) {
        resbuf* buffer = acutNewRb(type);
        *end = buffer;
        end = &buffer->rbnext;
        switch (type) {
            case RTREAL:
                buffer->resval.rreal = va_arg(arguments, double);
                break;
            case RTSHORT:
                buffer->resval.rint = static_cast<short>(va_arg(arguments, int));
                break;
            case RTLONG:
                buffer->resval.rlong = va_arg(arguments, Adesk::Int32);
                break;
            case RTSTR: {
                const ACHAR* text = va_arg(arguments, const ACHAR*);
                buffer->resval.rstring = CopyText(text != nullptr ? text : L"");
                break;
            }
            case RTPOINT:
            case RT3DPOINT:
                std::memcpy(buffer->resval.rpoint, va_arg(arguments, const ads_real*),
                            sizeof(ads_real) * (type == RTPOINT ? 2 : 3));
                break;
            case RTLB:
            case RTLE:
            case RTDOTE:
            case RTNIL:
            case RTT:
            case RTVOID:
            case RTNONE:
                break;
            default:
                isKnown = false;
        }
    }
    va_end(arguments);
    if (isKnown) return first;
    acutRelRb(first);
    return nullptr;
}

resbuf* drafthost::CopyResultBuffers(const resbuf* buffers) {
    resbuf* first = nullptr;
    resbuf** end = &first;
    for (; buffers != nullptr; buffers = buffers->rbnext) {
        auto* copy = new resbuf(*buffers);
        copy->rbnext = nullptr;
        if (HoldsText(*copy)) copy->resval.rstring = CopyText(copy->resval.rstring);
        *end = copy;
        end = &copy->rbnext;
    }
    return first;
}
