#pragma once

/// Queues the load of the LISP application into the drawing whose message is being answered.
///
/// Logs the file's path first, whether or not the file is there. A missing file, or a directory of
/// that name, is passed over without a word. The host evaluates the expression later and tells
/// nobody how it went. Nothing is remembered: every call queues the load again.
void LoadLispApplication();
