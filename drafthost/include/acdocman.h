#pragma once

#include "rxclass.h"

#include <windows.h>

/// One open drawing.
class DRAFTHOST_API AcApDocument : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcApDocument)

    /// The drawing's full path, or its title when it was never saved.
    virtual const ACHAR* fileName() const = 0;
    virtual const ACHAR* docTitle() const = 0;
};

/// Is told what happens to the documents, once it was given to `AcApDocManager::addReactor`.
/// Every operation does nothing here.
class DRAFTHOST_API AcApDocManagerReactor : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor)

    AcApDocManagerReactor();

    virtual void documentCreateStarted(AcApDocument* document);
    virtual void documentCreated(AcApDocument* document);
    virtual void documentToBeDestroyed(AcApDocument* document);
    virtual void documentCreateCanceled(AcApDocument* document);
    virtual void documentLockModeWillChange(AcApDocument* document, int myCurrentMode,
                                            int myNewMode, int currentMode,
                                            const ACHAR* globalCommandName);
    virtual void documentLockModeChangeVetoed(AcApDocument* document,
                                              const ACHAR* globalCommandName);
    virtual void documentLockModeChanged(AcApDocument* document, int myPreviousMode,
                                         int myCurrentMode, int currentMode,
                                         const ACHAR* globalCommandName);
    virtual void documentBecameCurrent(AcApDocument* document);
    virtual void documentToBeActivated(AcApDocument* activatingDocument);
    virtual void documentToBeDeactivated(AcApDocument* deactivatedDocument);
    virtual void documentActivationModified(bool activation);
    virtual void documentActivated(AcApDocument* activatedDocument);
    virtual void documentDestroyed(const ACHAR* fileName);

  protected:
    bool m_veto;  ///< set by an operation that refuses what is about to happen
};

/// The host's documents, their reactors and the stack of resource handles.
class DRAFTHOST_API AcApDocManager : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcApDocManager)

    /// The document whose turn it is, or null.
    virtual AcApDocument* curDocument() const = 0;
    /// The document in front, or null.
    virtual AcApDocument* mdiActiveDocument() const = 0;
    virtual int documentCount() const = 0;

    /// The reactor isn't owned and is told in the order of joining.
    virtual void addReactor(AcApDocManagerReactor* reactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* reactor) = 0;

    /// Makes `handle` the module in which dialogs and bitmaps are looked for, until the pop.
    virtual void pushResourceHandle(HINSTANCE handle) = 0;
    /// Back to what was current before the last push.
    virtual void popResourceHandle() = 0;
};

/// The host's document manager; null once the host has taken it down.
DRAFTHOST_API AcApDocManager* acDocManagerPtr();
