#include "host/lisp_functions.h"

#include "host/resource_name.h"

#include <acedads.h>

void DefineLispFunctions(SlotRange<AdsSymbolEntry> table, HINSTANCE instance) {
    int code = 0;
    for (const AdsSymbolEntry& row : table) {
        const ResourceName name(row.name, instance, row.nameId);
        // Results ignored: a refused name stops nothing.
        // Meant: a name gets the low 16 bits of its code, though a call is compared in all 32.
        acedDefun(name.Text(), static_cast<short>(code));
        if (row.regFunc) acedRegFunc(row.function, code);
        ++code;
    }
}

void UndefineLispFunctions(SlotRange<AdsSymbolEntry> table, HINSTANCE instance) {
    int code = 0;
    for (const AdsSymbolEntry& row : table) {
        const ResourceName name(row.name, instance, row.nameId);
        // Result ignored: what wasn't defined needs no undoing.
        acedUndef(name.Text(), static_cast<short>(code));
        ++code;
    }
}

void InvokeLispFunction(SlotRange<AdsSymbolEntry> table) {
    const int called = acedGetFunCode();
    int code = 0;
    for (const AdsSymbolEntry& row : table) {
        if (code++ != called) continue;  // Meant: all 32 bits, of which names got the low 16.
        row.function();  // Result ignored: the function has given LISP its value itself.
        return;
    }
}
