#include "modules/fixture_exports.h"

FIXTURE_EXPORT unsigned acrxGetApiVersion(unsigned) {
    return 17u << 16;
}
