#include "host/fake_host.h"

#include "support/call_journal.h"

namespace {

FakeHost* g_host = nullptr;

AcRxDictionary* FakeRegistry() {
    return &g_host->m_registry;
}

}  // namespace

AcRxObject* FakeDictionary::at(const ACHAR* key) const {
    CallJournal::Add(L"at " + std::wstring(key));
    for (const auto& [name, object] : m_entries) {
        if (name == key) return object;
    }
    return nullptr;
}

bool FakeLinker::unlockApplication(void* packet) const {
    CallJournal::Add(L"unlockApplication");
    m_unlockPacket = packet;
    return false;
}

bool FakeLinker::registerAppMDIAware(void* packet) const {
    CallJournal::Add(L"registerAppMDIAware");
    m_mdiAwarePacket = packet;
    return false;
}

Acad::ErrorStatus FakeCommandStack::addCommand(const ACHAR* group, const ACHAR* globalName,
                                               const ACHAR* localName, Adesk::Int32 flags,
                                               AcRxFunctionPtr handler, AcEdUIContext* uiContext,
                                               int fcode, HINSTANCE resourceHandle,
                                               AcEdCommand** created) {
    CallJournal::Add(L"addCommand " + std::wstring(localName));
    m_added.push_back(
        {group, globalName, localName, flags, handler, uiContext, fcode, resourceHandle, created});
    return Acad::eDuplicateKey;
}

Acad::ErrorStatus FakeCommandStack::removeCmd(const ACHAR* group, const ACHAR* globalName) {
    CallJournal::Add(L"removeCmd " + std::wstring(group) + L" " + globalName);
    return Acad::eKeyNotFound;
}

FakeHost::FakeHost() : m_hook("drafthost17.dll", "_Z15acrxSysRegistryv", &FakeRegistry) {
    const auto* real = static_cast<AcRxDictionary*>(m_hook.Original()()->at(L"ClassDictionary"));
    for (const wchar_t* name : {L"AcEdCommandStack", L"AcApDocManagerReactor"}) {
        m_classes.m_entries.emplace_back(name, real->at(name));
    }
    m_registry.m_entries = {{L"DynamicLinker", &m_linker},
                            {L"ACAD_REGISTERED_COMMANDS", &m_commands},
                            {L"ClassDictionary", &m_classes}};
    g_host = this;
    CallJournal::Clear();
}

FakeHost::~FakeHost() {
    g_host = nullptr;
}

std::vector<std::wstring> CallsBesideLookUps() {
    std::vector<std::wstring> calls;
    for (const std::wstring& call : CallJournal::Calls()) {
        if (call.rfind(L"at ", 0) != 0) calls.push_back(call);
    }
    return calls;
}
