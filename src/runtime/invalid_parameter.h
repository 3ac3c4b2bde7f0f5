#pragma once

/// Leaves by the C runtime's invalid-parameter handler, as the runtime's own checked operations do.
///
/// The default handler ends the process. A handler that leaves by an exception passes it on to the
/// caller; one that returns ends the process all the same: there is no way back.
[[noreturn]] void RaiseInvalidParameter();
