#pragma once

#include "support/piped_program.h"

#include <string>

/// A host in a process of its own, with our module: two of them, one young and one old, can be
/// asked in turn.
class DrawingServer {
  public:
    /// Begins with the module loaded and no drawing opened yet.
    DrawingServer();

    /// Unloads the module and loads it again: the next drawing is its first.
    void Reload();

    /// Opens and closes `count` drawings: the nanoseconds for one. Throws std::runtime_error when
    /// one can't be.
    double OpenDrawings(int count);

  private:
    double Ask(const std::string& order);

    PipedProgram m_program;
};

/// The server's side: answers the orders on the standard input until its end.
int ServeDrawings(const std::wstring& module, const std::wstring& drawing);
