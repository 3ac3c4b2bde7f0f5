#pragma once

#include "adsdef.h"
#include "drafthost_api.h"

// The host's C functions for LISP, settings and queued expressions. Results are RTNORM or RTERROR
// where nothing else is said. Those about LISP functions concern the current document.

/// Defines the LISP function `sname` (a name that begins "C:" makes a command) for the calling
/// module. LISP's call of it reaches the module as `kInvkSubrMsg`, with `funcno` as the code.
/// A name defined before is defined anew. RTERROR for a null or empty name or outside of a
/// document.
DRAFTHOST_API int acedDefun(const ACHAR* sname, short funcno);

/// Takes back `acedDefun`; RTERROR when the name was not defined with this code.
DRAFTHOST_API int acedUndef(const ACHAR* sname, short funcno);

/// Registers a function that the host calls directly, instead of by `kInvkSubrMsg`, when LISP calls
/// the function with code `fcode`. Its result is RSRSLT or RSERR.
DRAFTHOST_API int acedRegFunc(int (*fhdl)(), int fcode);

/// The code of the function that LISP has called; RTERROR outside of a call.
DRAFTHOST_API int acedGetFunCode();

/// The arguments of LISP's call, null when there are none. The caller releases them with
/// `acutRelRb`.
DRAFTHOST_API resbuf* acedGetArgs();

// The result of LISP's call. The last one given counts; a call that gives none yields nil.
DRAFTHOST_API int acedRetStr(const ACHAR* s);
DRAFTHOST_API int acedRetInt(int ival);
DRAFTHOST_API int acedRetReal(ads_real rval);
DRAFTHOST_API int acedRetNil();
DRAFTHOST_API int acedRetT();
DRAFTHOST_API int acedRetVoid();
DRAFTHOST_API int acedRetList(const resbuf* rbuf);

/// Copies the setting `sym` with its terminator to `var`, which must have room for 2,048
/// characters; longer values are cut. RTERROR, and `var` untouched, when there is no such setting.
DRAFTHOST_API int acedGetEnv(const ACHAR* sym, ACHAR* var);

/// Stores the setting in the user's profile, where it outlives the process.
DRAFTHOST_API int acedSetEnv(const ACHAR* sym, const ACHAR* val);

/// Queues LISP text to be evaluated in the current document once the running message, command or
/// expression is done. RTERROR for a null text or outside of a document.
DRAFTHOST_API int ads_queueexpr(const ACHAR* expression);
