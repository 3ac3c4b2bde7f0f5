#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

/// Finds the object of a handle: permanent objects, which their owners enter and take out, and
/// temporary ones, which the map makes and owns.
template <typename Object, typename Handle>
class HandleMap {
  public:
    Object* FindPermanent(Handle handle) const {
        const auto found = m_permanent.find(handle);
        return found != m_permanent.end() ? found->second : nullptr;
    }

    void Enter(Handle handle, Object* object) { m_permanent[handle] = object; }
    void TakeOut(Handle handle) { m_permanent.erase(handle); }

    /// `make` gives a new temporary object for the handle.
    template <typename Make>
    Object* Find(Handle handle, Make make) {
        if (Object* permanent = FindPermanent(handle)) return permanent;
        for (const Temporary& temporary : m_temporaries) {
            if (temporary.handle == handle) return temporary.object.get();
        }
        m_temporaries.push_back({handle, std::unique_ptr<Object>(make(handle))});
        return m_temporaries.back().object.get();
    }

    size_t TemporaryCount() const { return m_temporaries.size(); }

    /// Deletes the temporary objects made since there were `count`. `release` takes the handle away
    /// from an object, so that its end leaves the handle alone.
    template <typename Release>
    void DropTemporaries(size_t count, Release release) {
        while (m_temporaries.size() > count) {
            release(m_temporaries.back().object.get());
            m_temporaries.pop_back();
        }
    }

  private:
    struct Temporary {
        Handle handle;
        std::unique_ptr<Object> object;
    };

    std::unordered_map<Handle, Object*> m_permanent;
    std::vector<Temporary> m_temporaries;  // Few: a message's worth.
};
