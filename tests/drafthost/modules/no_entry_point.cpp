// A library that lacks the entry point.

#include "modules/fixture_exports.h"

FIXTURE_EXPORT void somethingElse() {}
