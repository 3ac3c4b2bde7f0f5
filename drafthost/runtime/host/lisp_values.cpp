#include "runtime/host/lisp_values.h"

#include "runtime/lisp/error.h"
#include "runtime/lisp/interpreter.h"

#include "acutads.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace drafthost {

namespace {

constexpr int deepestList = 500;  // The values are walked by recursion.

/// A list under construction; released when a value can't be added.
class BufferList {
  public:
    BufferList() = default;
    BufferList(const BufferList&) = delete;
    BufferList& operator=(const BufferList&) = delete;
    ~BufferList() { acutRelRb(m_first); }

    void Add(resbuf* buffer) {
        *m_end = buffer;
        m_end = &buffer->rbnext;
    }
    resbuf* Release() { return std::exchange(m_first, nullptr); }

    int m_depth = 0;  ///< of the list being added

  private:
    resbuf* m_first = nullptr;
    resbuf** m_end = &m_first;
};

/// Whether a proper list with these items is a point.
bool IsPoint(const std::vector<LispValue>& items) {
    return (items.size() == 2 || items.size() == 3) &&
           std::all_of(items.begin(), items.end(),
                       [](const LispValue& item) { return item.IsReal(); });
}

/// What stands behind the last pair: nil for a proper list.
LispValue Tail(LispValue list) {
    while (list.IsCons())
        list = LispValue(list.Cdr());
    return list;
}

void AddValue(BufferList& list, const LispValue& value);

void AddPoint(BufferList& list, const std::vector<LispValue>& items) {
    const ads_point point = {items[0].AsReal(), items[1].AsReal(),
                             items.size() == 3 ? items[2].AsReal() : 0};
    list.Add(acutBuildList(items.size() == 3 ? RT3DPOINT : RTPOINT, point, 0));
}

void AddList(BufferList& list, const LispValue& value) {
    const std::vector<LispValue> items = value.Items();
    const LispValue tail = Tail(value);
    if (tail.IsNil() && IsPoint(items)) {
        AddPoint(list, items);
        return;
    }
    if (++list.m_depth > deepestList) throw LispError(L"list nested too deep for a module");
    list.Add(acutNewRb(RTLB));
    for (const LispValue& item : items)
        AddValue(list, item);
    if (!tail.IsNil()) {
        list.Add(acutNewRb(RTDOTE));
        AddValue(list, tail);
    }
    list.Add(acutNewRb(RTLE));
    --list.m_depth;
}

void AddInteger(BufferList& list, std::int32_t integer) {
    const bool isShort = integer >= std::numeric_limits<short>::min() &&
                         integer <= std::numeric_limits<short>::max();
    list.Add(acutBuildList(isShort ? RTSHORT : RTLONG, integer, 0));
}

void AddValue(BufferList& list, const LispValue& value) {
    switch (value.Kind()) {
        case LispKind::Nil:
            return list.Add(acutNewRb(RTNIL));
        case LispKind::True:
            return list.Add(acutNewRb(RTT));
        case LispKind::Integer:
            return AddInteger(list, value.AsInteger());
        case LispKind::Real:
            return list.Add(acutBuildList(RTREAL, value.AsReal(), 0));
        case LispKind::String:
            return list.Add(acutBuildList(RTSTR, value.AsString().c_str(), 0));
        case LispKind::Cons:
            return AddList(list, value);
        default:
            throw LispError(L"bad argument type: " + LispPrin1(value));
    }
}

/// Reads values off a list.
class BufferReader {
  public:
    BufferReader(const resbuf* next, LispInterpreter& interpreter)
        : m_next(next), m_interpreter(interpreter) {}

    LispValue Read() {
        const resbuf* buffer = Take();
        switch (buffer->restype) {
            case RTNIL:
            case RTNONE:
                return {};
            case RTT:
                return LispValue::True();
            case RTVOID:
                return m_interpreter.Symbol({});
            case RTSHORT:
                return LispValue::Integer(buffer->resval.rint);
            case RTLONG:
                return LispValue::Integer(buffer->resval.rlong);
            case RTREAL:
                return LispValue::Real(buffer->resval.rreal);
            case RTSTR:
                return LispValue::String(buffer->resval.rstring != nullptr ? buffer->resval.rstring
                                                                           : L"");
            case RTPOINT:
                return Point(*buffer, 2);
            case RT3DPOINT:
                return Point(*buffer, 3);
            case RTLB:
                return ReadList();
            default:
                throw LispError(L"bad result of a module: value of type " +
                                std::to_wstring(buffer->restype));
        }
    }

  private:
    static LispValue Point(const resbuf& buffer, int count) {
        std::vector<LispValue> items(static_cast<std::size_t>(count));
        std::transform(buffer.resval.rpoint, buffer.resval.rpoint + count, items.begin(),
                       LispValue::Real);
        return LispValue::List(items);
    }

    const resbuf* Take() {
        if (m_next == nullptr) throw LispError(L"bad result of a module: list without its end");
        const resbuf* taken = m_next;
        m_next = m_next->rbnext;
        return taken;
    }

    bool TakeIf(int type) {
        if (m_next == nullptr || m_next->restype != type) return false;
        m_next = m_next->rbnext;
        return true;
    }

    LispValue ReadList() {
        if (++m_depth > deepestList) throw LispError(L"bad result of a module: nested too deep");
        std::vector<LispValue> items;
        LispValue tail;
        while (!TakeIf(RTLE)) {
            if (TakeIf(RTDOTE)) {
                tail = Read();
            } else {
                items.push_back(Read());
            }
        }
        --m_depth;
        return LispValue::List(items, tail);
    }

    int m_depth = 0;
    const resbuf* m_next;
    LispInterpreter& m_interpreter;
};

}  // namespace

resbuf* ToResultBuffers(const std::vector<LispValue>& values) {
    BufferList list;
    for (const LispValue& value : values)
        AddValue(list, value);
    return list.Release();
}

LispValue ToLispValue(const resbuf* buffers, LispInterpreter& interpreter) {
    return buffers == nullptr ? LispValue() : BufferReader(buffers, interpreter).Read();
}

}  // namespace drafthost
