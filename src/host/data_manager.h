#pragma once

#include "host/host_services.h"

#include <acdocman.h>

#include <map>

/// Data of type `T` for each of the host's documents, dropped when the document goes away.
///
/// Made once, as a static object, while the host runs: it joins the host's document manager as a
/// reactor and leaves it at its end, if that is still there. Used on the host's main thread alone.
template <typename T>
class AcApDataManager : public AcApDocManagerReactor {
  public:
    AcApDataManager() {
        acDocManagerPtr()->addReactor(this);  // Meant: no test for null, unlike at the end.
    }
    AcApDataManager(const AcApDataManager&) = delete;
    AcApDataManager& operator=(const AcApDataManager&) = delete;
    ~AcApDataManager() override {
        // Looked up anew, as every host service at each use.
        if (acDocManagerPtr() != nullptr) acDocManagerPtr()->removeReactor(this);
    }

    /// The reactors' class, as the host knows it.
    AcRxClass* isA() const override { return DocManagerReactorClass(); }

    void documentToBeDestroyed(AcApDocument* document) override { m_dataMap.erase(document); }

  protected:
    std::map<AcApDocument*, T> m_dataMap;  ///< one entry for each document that has data
};
