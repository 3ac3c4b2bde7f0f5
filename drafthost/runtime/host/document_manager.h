#pragma once

#include "runtime/host/document.h"
#include "runtime/host/resource_handles.h"

#include "acdocman.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace drafthost {

/// The open documents in the order of their opening, and who is told of what happens to them.
class DocumentManager : public AcApDocManager {
  public:
    AcApDocument* curDocument() const override;
    AcApDocument* mdiActiveDocument() const override;
    int documentCount() const override;
    void addReactor(AcApDocManagerReactor* reactor) override;
    void removeReactor(AcApDocManagerReactor* reactor) override;
    void pushResourceHandle(HINSTANCE handle) override;
    void popResourceHandle() override;

    const std::vector<std::unique_ptr<Document>>& Documents() const { return m_documents; }
    Document* Current() const { return m_current; }
    Document* Active() const { return m_active; }

    /// Adds a document, brings it to the front and tells the reactors so.
    Document& Create(const std::wstring& path);

    /// Brings the document to the front and makes it the current one.
    void Activate(Document& document);

    /// Makes the document current without bringing it to the front; null: none is.
    void SetCurrent(Document* document);

    /// Takes the document away; the one opened last becomes the active one.
    void Destroy(Document& document);

    /// Drops the reactors of `module`; gives how many there were.
    std::size_t RemoveReactorsOf(HMODULE module);

    ResourceHandles m_resourceHandles;

  private:
    struct Reactor {
        AcApDocManagerReactor* reactor;
        HMODULE owner;
    };

    /// Calls the operation of each reactor that is still there when its turn comes. `name` is the
    /// operation's published name.
    void Notify(const wchar_t* name, const std::function<void(AcApDocManagerReactor&)>& operation);

    std::vector<std::unique_ptr<Document>> m_documents;
    std::vector<Reactor> m_reactors;
    Document* m_current = nullptr;
    Document* m_active = nullptr;
};

}  // namespace drafthost
