#pragma once

#include "drafthost_api.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

// The runtime's control interface: what a program uses to be a host. Modules use the published
// headers alone. Everything here is for the host's thread, the one that loaded the DLL, where
// nothing else is said. What goes wrong is also told on the command line.

namespace drafthost {

// ---- The command line ---------------------------------------------------------------------------

/// Takes the text of the command line.
class TextOutput {
  public:
    virtual ~TextOutput() = default;

    /// Line ends are L'\n', and a line may come in pieces. Called one at a time, now and then from
    /// a thread of a module.
    virtual void Write(const std::wstring& text) = 0;
};

/// `output` must live until it is replaced, and begins with a new line; null: UTF-8 to the standard
/// output, as at the start.
DRAFTHOST_API void SetTextOutput(TextOutput* output);

/// Shows text on the command line, line ends as L'\n'. From any thread.
DRAFTHOST_API void Print(const std::wstring& text);

/// Shows a line of its own: starts a new one first if the last text ended none.
DRAFTHOST_API void PrintLine(const std::wstring& line);

/// Starts a new line unless the last text ended one.
DRAFTHOST_API void StartNewLine();

/// Writes a line to the process's standard error, past the command line: "drafthost: " and `line`.
/// From any thread, also while another one hangs.
DRAFTHOST_API void PrintError(const std::wstring& line);

/// Tells the command line that the user's own Enter has ended the line.
DRAFTHOST_API void MarkLineStart();

/// Gives the user's lines to whoever asks for one: LISP's `getstring` and its kin.
class LineInput {
  public:
    virtual ~LineInput() = default;

    /// Shows the prompt and reads a line, without its end. Empty: there is no more input.
    virtual std::optional<std::wstring> ReadLine(const std::wstring& prompt) = 0;
};

/// `input` must live until it is replaced; null: there is no input, as at the start.
DRAFTHOST_API void SetLineInput(LineInput* input);

/// Bytes of a script or of the standard input as text: UTF-8 where they are valid as such, else the
/// ANSI code page. A byte order mark at the front isn't part of the text.
DRAFTHOST_API std::wstring DecodeText(const std::string& bytes);

/// UTF-8 without a byte order mark.
DRAFTHOST_API std::string EncodeText(const std::wstring& text);

// ---- The session --------------------------------------------------------------------------------

struct HostOptions {
    std::wstring profile = L"Default";  ///< whose settings are used
    bool isVerbose = false;             ///< notes on what the host does, and every offence
};

/// Begins the session: from here on a crash is reported and ends the process. False, and nothing
/// has begun, when the profile's name is none.
DRAFTHOST_API bool StartHost(const HostOptions& options);

/// Ends the session: `kPreQuitMsg`, the drawings close, `kQuitMsg`, the modules that may be
/// unloaded go, and the published services with them. Once in a process.
DRAFTHOST_API void ShutDownHost();

// ---- Modules ------------------------------------------------------------------------------------

enum class LoadResult {
    Loaded,
    AlreadyLoaded,
    FileMissing,
    /// No library, an export missing, another generation, one drawing too many, or the end of the
    /// session has begun.
    NotLoaded,
    Refused,  ///< the module answered its start with `kRetError`, and was unloaded
};

/// Loads the module, starts it and sends it the open drawings. `file` without a folder is looked
/// for along the search path; ".arx" is added to a name that isn't found without. `problem` takes
/// the line that tells a failure; null: the command line does.
DRAFTHOST_API LoadResult LoadModule(const std::wstring& file, std::wstring* problem = nullptr);

enum class UnloadResult {
    Unloaded,
    NotLoaded,  ///< no module of that name
    Locked,     ///< the module hasn't declared itself unloadable
    Busy,       ///< the module's code is running
};

/// `name` is a full path or a file name, with or without ".arx", in any case.
DRAFTHOST_API UnloadResult UnloadModule(const std::wstring& name);

/// Full paths in load order.
DRAFTHOST_API std::vector<std::wstring> LoadedModules();

/// How often modules broke the host's rules since the process began.
DRAFTHOST_API unsigned OffenceCount();

// ---- Drawings -----------------------------------------------------------------------------------

enum class OpenResult {
    Opened,
    AlreadyOpen,  ///< it came to the front
    FileMissing,
    Unreadable,      ///< a folder, or no right to read it
    OneDrawingOnly,  ///< a loaded module works with one drawing at a time
};

/// Opens a drawing file and tells the modules. What the file holds isn't looked at. ".dwg" is added
/// to a name that isn't found without. `problem` as for `LoadModule`.
DRAFTHOST_API OpenResult OpenDrawing(const std::wstring& file, std::wstring* problem = nullptr);

/// Opens a new drawing that is in no file: "Drawing1.dwg", "Drawing2.dwg" ...
DRAFTHOST_API OpenResult NewDrawing();

/// Closes the active drawing. False when there is none, or it is in use by what is running.
DRAFTHOST_API bool CloseDrawing();

/// Brings the drawing with this title or path, with or without ".dwg", to the front; false when
/// there is none.
DRAFTHOST_API bool ActivateDrawing(const std::wstring& name);

struct DrawingInfo {
    std::wstring path;  ///< the title alone for a new drawing
    std::wstring title;
    bool isActive = false;
};

/// In the order of their opening.
DRAFTHOST_API std::vector<DrawingInfo> Drawings();

// ---- Input --------------------------------------------------------------------------------------

enum class CommandResult {
    Done,
    Unknown,
    NoDrawing,  ///< it needs a drawing, and none is open
    Failed,     ///< a LISP command ended with an error
};

/// Runs a registered command by its global or local name in any case, also with "_", "." or "'"
/// ahead of it, or else the LISP function C:NAME. Then the queued expressions are evaluated.
DRAFTHOST_API CommandResult RunCommand(const std::wstring& name);

/// Evaluates LISP text in the active drawing and shows the last value, or the error. Then the
/// queued expressions are evaluated. False after an error, or when no drawing is open.
DRAFTHOST_API bool EvaluateLisp(const std::wstring& text);

/// Ends the running evaluation of LISP with the error "Function cancelled"; nothing happens when
/// none runs. From any thread.
DRAFTHOST_API void InterruptEvaluation();

/// Whether the text ends within a list, string or comment, so that more lines are wanted.
DRAFTHOST_API bool IsLispUnfinished(const std::wstring& text);

/// The registered commands' global names, and those with another local name as "GLOBAL (LOCAL)".
DRAFTHOST_API std::vector<std::wstring> RegisteredCommands();

// ---- Settings -----------------------------------------------------------------------------------

/// Chooses the profile for this process; "Default" until then. `StartHost` does so too. False, and
/// nothing is changed, for a name that is empty, longer than 64 characters or has a backslash.
DRAFTHOST_API bool SelectProfile(const std::wstring& name);

/// As `acedGetEnv` and `acedSetEnv`, without their limit of length.
DRAFTHOST_API std::optional<std::wstring> GetSetting(const std::wstring& name);
DRAFTHOST_API bool SetSetting(const std::wstring& name, const std::wstring& value);

/// What the profile holds, and the settings that have a default.
DRAFTHOST_API std::map<std::wstring, std::wstring> AllSettings();

}  // namespace drafthost
