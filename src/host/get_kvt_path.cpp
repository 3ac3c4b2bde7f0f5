#include "host/get_kvt_path.h"

#include "install/install_record.h"

#include <acedads.h>

Adesk::Int32 GetKVTPath() {
    return acedRetStr(GetInstallLocation().c_str());
}
