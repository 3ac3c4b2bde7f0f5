#pragma once

#include "support/call_journal.h"

/// An application class that can be made, with the base's hook for server components put into the
/// call journal.
template <typename Base>
class WithComponents : public Base {
  public:
    void RegisterServerComponents() override { CallJournal::Add(L"RegisterServerComponents"); }
};
