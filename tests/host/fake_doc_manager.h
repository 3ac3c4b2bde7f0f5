#pragma once

#include "support/import_hook.h"

#include <acdocman.h>

/// A document manager without documents.
class FakeDocManager : public AcApDocManager {
  public:
    AcApDocument* curDocument() const override { return nullptr; }
    AcApDocument* mdiActiveDocument() const override { return nullptr; }
    int documentCount() const override { return 0; }
    void addReactor(AcApDocManagerReactor* reactor) override;
    void removeReactor(AcApDocManagerReactor* reactor) override;
    void pushResourceHandle(HINSTANCE) override {}
    void popResourceHandle() override {}

    AcApDocManagerReactor* m_reactor = nullptr;  ///< the last one added or removed
};

/// Puts a document manager of its own into the host's place, for the life of this object. The call
/// journal has each question for it ("acDocManagerPtr") and each call in order. One at a time.
class DocManagerHook {
  public:
    DocManagerHook();
    DocManagerHook(const DocManagerHook&) = delete;
    DocManagerHook& operator=(const DocManagerHook&) = delete;

    FakeDocManager m_manager;

    /// From here on the host has no document manager.
    static void TakeDown();

  private:
    ImportHook<decltype(&acDocManagerPtr)> m_hook;
};
