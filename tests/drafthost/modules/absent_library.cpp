// What `needs_library` is linked with, and never finds.

#include "modules/fixture_exports.h"

FIXTURE_EXPORT void AbsentFunction() {}
