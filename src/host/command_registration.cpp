#include "host/command_registration.h"

#include "host/host_services.h"
#include "host/resource_name.h"

void RegisterCommands(SlotRange<ArxCommandEntry> table, HINSTANCE instance) {
    for (const ArxCommandEntry& row : table) {
        const ResourceName localName(row.localName, instance, row.localNameId);
        const bool session = (row.flags & ACRX_CMD_SESSION) != 0;
        // Result ignored: a refused command leaves the module as good as it can be.
        CommandStack()->addCommand(row.groupName, row.globalName, localName.Text(), row.flags,
                                   row.handler, row.uiContext, -1, session ? nullptr : instance,
                                   nullptr);
    }
}

void RemoveCommands(SlotRange<ArxCommandEntry> table) {
    for (const ArxCommandEntry& row : table) {
        // Result ignored: gone is gone, whoever removed it.
        CommandStack()->removeCmd(row.groupName, row.globalName);
    }
}
