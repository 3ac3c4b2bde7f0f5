#include "host/load_kvt_command.h"

#include "host/module_handles.h"
#include "ui/about_dialog.h"

#include <acdocman.h>

namespace {

/// While it lives, the host looks for dialogs and bitmaps in this module. Each end looks the
/// document manager up for itself.
class OwnResources {
  public:
    OwnResources() {
        acDocManagerPtr()->pushResourceHandle(ModuleExtensionRecord.m_moduleResource);
    }
    OwnResources(const OwnResources&) = delete;
    OwnResources& operator=(const OwnResources&) = delete;
    ~OwnResources() { acDocManagerPtr()->popResourceHandle(); }
};

}  // namespace

void LoadKVTCommand() {
    const OwnResources resources;
    AboutDialog dialog(0);
    dialog.DoModal();  // Result ignored: OK and the close box are the same here.
}
