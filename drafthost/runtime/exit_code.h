#pragma once

namespace drafthost {

/// What drafthost.exe ends with. Their low bytes differ, also from those of Windows' exceptions.
enum class ExitCode : unsigned {
    Success = 0,
    InternalError = 1,     ///< drafthost's own fault
    UsageError = 10,       ///< the command line
    FileMissing = 11,      ///< a module, drawing or script named there; a drawing too many
    ModuleNotLoaded = 12,  ///< no library, an export missing, another generation
    ModuleRefused = 13,    ///< the module answered its start with kRetError
    ModuleCrashed = 14,    ///< an exception left a module, or a module ended the process
    ModuleOffended = 15,   ///< with --strict: a module broke the host's rules
    ScriptFailed = 16,     ///< with --stop-on-error: a line failed
    DialogFailed = 17,     ///< a dialog never painted, never ended, or has no picture
};

}  // namespace drafthost
