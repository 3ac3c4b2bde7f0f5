#include "runtime/host/document_manager.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/module_call.h"
#include "runtime/host/offences.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

namespace drafthost {

AcApDocument* DocumentManager::curDocument() const {
    return m_current;
}

AcApDocument* DocumentManager::mdiActiveDocument() const {
    return m_active;
}

int DocumentManager::documentCount() const {
    return static_cast<int>(m_documents.size());
}

void DocumentManager::addReactor(AcApDocManagerReactor* reactor) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"AcApDocManager::addReactor") || reactor == nullptr) return;
    const auto isSame = [&](const Reactor& entry) { return entry.reactor == reactor; };
    if (std::any_of(m_reactors.begin(), m_reactors.end(), isSame)) {
        ReportOffence(CallingModule(caller), L"addReactor of a reactor that was added already");
        return;
    }
    m_reactors.push_back({reactor, CallingModule(caller)});
}

void DocumentManager::removeReactor(AcApDocManagerReactor* reactor) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"AcApDocManager::removeReactor")) return;
    const auto found = std::find_if(m_reactors.begin(), m_reactors.end(),
                                    [&](const Reactor& entry) { return entry.reactor == reactor; });
    if (found == m_reactors.end()) {
        ReportOffence(CallingModule(caller), L"removeReactor of a reactor that wasn't added");
        return;
    }
    m_reactors.erase(found);
}

void DocumentManager::pushResourceHandle(HINSTANCE handle) {
    if (!IsHostThread(L"AcApDocManager::pushResourceHandle")) return;
    m_resourceHandles.Push(handle);
}

void DocumentManager::popResourceHandle() {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"AcApDocManager::popResourceHandle")) return;
    if (!m_resourceHandles.Pop()) {
        ReportOffence(CallingModule(caller), L"popResourceHandle without a push");
    }
}

Document& DocumentManager::Create(const std::wstring& path) {
    auto created = std::make_unique<Document>(path);
    Document& document = *created;
    Notify(L"documentCreateStarted",
           [&](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(&document); });
    m_documents.push_back(std::move(created));
    Notify(L"documentCreated",
           [&](AcApDocManagerReactor& reactor) { reactor.documentCreated(&document); });
    Activate(document);
    return document;
}

void DocumentManager::Activate(Document& document) {
    if (m_active == &document) {
        SetCurrent(&document);
        return;
    }
    Notify(L"documentToBeActivated",
           [&](AcApDocManagerReactor& reactor) { reactor.documentToBeActivated(&document); });
    if (Document* before = m_active) {
        Notify(L"documentToBeDeactivated",
               [&](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(before); });
    }
    m_active = &document;
    SetCurrent(&document);
    Notify(L"documentActivated",
           [&](AcApDocManagerReactor& reactor) { reactor.documentActivated(&document); });
}

void DocumentManager::SetCurrent(Document* document) {
    if (m_current == document) return;
    m_current = document;
    Notify(L"documentBecameCurrent",
           [&](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document); });
}

void DocumentManager::Destroy(Document& document) {
    Notify(L"documentToBeDestroyed",
           [&](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(&document); });
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](const auto& entry) { return entry.get() == &document; });
    const std::unique_ptr<Document> doomed = std::move(*found);
    m_documents.erase(found);
    if (m_active == doomed.get()) {
        m_active = nullptr;
        if (m_documents.empty()) {
            SetCurrent(nullptr);
        } else {
            Activate(*m_documents.back());
        }
    } else if (m_current == doomed.get()) {
        SetCurrent(m_active);
    }
    Notify(L"documentDestroyed",
           [&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(doomed->fileName()); });
}

std::size_t DocumentManager::RemoveReactorsOf(HMODULE module) {
    const std::size_t before = m_reactors.size();
    const auto end = std::remove_if(m_reactors.begin(), m_reactors.end(),
                                    [&](const Reactor& entry) { return entry.owner == module; });
    m_reactors.erase(end, m_reactors.end());
    return before - m_reactors.size();
}

void DocumentManager::Notify(const wchar_t* name,
                             const std::function<void(AcApDocManagerReactor&)>& operation) {
    const std::vector<Reactor> reactors = m_reactors;  // A reactor may join or leave meanwhile.
    const std::wstring what = std::wstring(L"reactor operation ") + name;
    for (const Reactor& entry : reactors) {
        const auto isSame = [&](const Reactor& other) { return other.reactor == entry.reactor; };
        if (!std::any_of(m_reactors.begin(), m_reactors.end(), isSame)) continue;
        CallModule(entry.owner, what.c_str(), [&] { operation(*entry.reactor); });
    }
}

}  // namespace drafthost
