#include "host/fake_doc_manager.h"

#include "support/call_journal.h"

namespace {

FakeDocManager* g_manager = nullptr;

AcApDocManager* Manager() {
    CallJournal::Add(L"acDocManagerPtr");
    return g_manager;
}

}  // namespace

void FakeDocManager::addReactor(AcApDocManagerReactor* reactor) {
    CallJournal::Add(L"addReactor");
    m_reactor = reactor;
}

void FakeDocManager::removeReactor(AcApDocManagerReactor* reactor) {
    CallJournal::Add(L"removeReactor");
    m_reactor = reactor;
}

DocManagerHook::DocManagerHook() : m_hook("drafthost17.dll", "_Z15acDocManagerPtrv", &Manager) {
    g_manager = &m_manager;
    CallJournal::Clear();
}

void DocManagerHook::TakeDown() {
    g_manager = nullptr;
}
