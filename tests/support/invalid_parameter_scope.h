#pragma once

#include <cstdint>
#include <cstdlib>

/// What leaves the C runtime's invalid-parameter handling while an InvalidParameterScope lives.
struct LeftByHandler {};

/// Lets that handling throw a LeftByHandler for its lifetime, where it would end the process.
class InvalidParameterScope {
  public:
    InvalidParameterScope() : m_before(_set_invalid_parameter_handler(Leave)) {}
    InvalidParameterScope(const InvalidParameterScope&) = delete;
    InvalidParameterScope& operator=(const InvalidParameterScope&) = delete;
    ~InvalidParameterScope() { _set_invalid_parameter_handler(m_before); }

  private:
    static void Leave(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) {
        throw LeftByHandler();
    }

    _invalid_parameter_handler m_before;
};
