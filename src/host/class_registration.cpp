#include "host/class_registration.h"

void RegisterClasses(SlotRange<DbxClassEntry> table) {
    bool anyRow = false;
    for (DbxClassEntry& row : table) {
        row.classInit();
        row.registered = true;
        anyRow = true;
    }
    if (anyRow) acrxBuildClassHierarchy();
}

void RemoveClasses(SlotRange<DbxClassEntry> table) {
    for (DbxClassEntry& row : table) {
        if (row.registered) UnloadClassEntry(table, row);
    }
}

void UnloadClassEntry(SlotRange<DbxClassEntry> table, DbxClassEntry& entry) {
    for (DbxClassEntry& other : table) {
        if (&other == &entry || !other.registered) continue;
        if (other.classDesc()->myParent() == entry.classDesc()) UnloadClassEntry(table, other);
    }
    deleteAcRxClass(entry.classDesc());
    entry.registered = false;
}
