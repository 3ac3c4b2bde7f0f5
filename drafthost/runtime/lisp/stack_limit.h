#pragma once

#include <cstdint>

namespace drafthost {

/// How deep the running thread may go. Measured on the stack itself, because what one level of LISP
/// takes differs from function to function and from build to build.
class StackLimit {
  public:
    /// Takes the bounds of the running thread's stack. A quarter of a megabyte stays free for what
    /// a module's function may need, half of the stack on a thread that has less.
    void Measure();

    /// Whether the caller's frame has gone beyond the limit.
    bool IsReached() const;

    /// For one scope half of what stays free may be used, so that an error can still be dealt with.
    class Extension {
      public:
        explicit Extension(StackLimit& limit) : m_limit(limit), m_before(limit.m_limit) {
            limit.m_limit = limit.m_extendedLimit;
        }
        Extension(const Extension&) = delete;
        Extension& operator=(const Extension&) = delete;
        ~Extension() { m_limit.m_limit = m_before; }

      private:
        StackLimit& m_limit;
        const std::uintptr_t m_before;
    };

  private:
    std::uintptr_t m_limit = 0;  ///< the lowest address to be used
    std::uintptr_t m_extendedLimit = 0;
};

}  // namespace drafthost
