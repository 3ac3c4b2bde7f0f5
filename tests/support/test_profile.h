#pragma once

#include <string>

/// A profile of settings of the host that no other test uses; its registry key goes with the
/// object.
class TestProfile {
  public:
    TestProfile();
    TestProfile(const TestProfile&) = delete;
    TestProfile& operator=(const TestProfile&) = delete;
    ~TestProfile();

    const std::wstring& Name() const { return m_name; }

    /// What the registry holds for the setting; empty for none.
    std::wstring Stored(const std::wstring& setting) const;

  private:
    std::wstring KeyPath() const;

    std::wstring m_name;
};
