#pragma once

#include <rxdefs.h>

#include <windows.h>

/// What every module of this kind does with the host's messages: one operation for each message,
/// with the host's packet, and the dispatcher that chooses between them. An operation that says
/// nothing else does nothing and answers `kRetOK`.
///
/// The object is static, is built before the program runs and never destroyed; it serves the host's
/// main thread. The order of the operations and of the fields is fixed.
class AcRxDbxApp {
  public:
    AcRxDbxApp(const AcRxDbxApp&) = delete;
    AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;

    /// Start. Takes the module's handle over, tells the host that the module may be unloaded and is
    /// fit for several documents, and registers the module's classes. Always `kRetOK`.
    virtual AcRx::AppRetCode On_kInitAppMsg(void* packet);
    /// Unload. Removes the module's classes. Always `kRetOK`.
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void* packet);
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void* packet);
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void* packet);
    virtual AcRx::AppRetCode On_kCfgMsg(void* packet);
    virtual AcRx::AppRetCode On_kEndMsg(void* packet);
    virtual AcRx::AppRetCode On_kQuitMsg(void* packet);
    virtual AcRx::AppRetCode On_kSaveMsg(void* packet);
    virtual AcRx::AppRetCode On_kDependencyMsg(void* packet);
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void* packet);
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kPreQuitMsg(void* packet);
    virtual AcRx::AppRetCode On_kInitDialogMsg(void* packet);
    virtual AcRx::AppRetCode On_kEndDialogMsg(void* packet);
    /// Last of the messages, though its code is the lowest.
    virtual AcRx::AppRetCode On_kNullMsg(void* packet);

    /// Called by the start, ahead of the classes; does nothing.
    virtual void RegisterServerComponents();

    /// Runs the operation of the message and gives its answer. A code above the last message's
    /// runs nothing and gives `kRetOK`.
    AcRx::AppRetCode Dispatch(unsigned message, void* packet);

    HINSTANCE m_hInstance = nullptr;  ///< the module's handle; null until the start
    bool m_unlockOnInit = true;       ///< the start tells the host that it may unload the module
    bool m_mdiAware = true;           ///< the start declares the module fit for several documents

  protected:
    constexpr AcRxDbxApp() = default;
    ~AcRxDbxApp() = default;
};
