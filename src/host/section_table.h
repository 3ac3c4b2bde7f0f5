#pragma once

#include "host/slot_range.h"

// Tables as sections of the image. Each row is a pointer-sized, read-only slot. The linker sorts
// the slots by what stands behind the "$" of their sections' names, which it then drops: "$a" for
// the begin mark, "$m" and its position for a row, "$z" for the end mark. The records that the
// slots point to lie in ordinary, writable data.
//
//   SECTION_TABLE(ARXCOMMA, ArxCommandEntry, CommandTable)
//       the marks, and SlotRange<ArxCommandEntry> CommandTable(); in one source file
//   SECTION_TABLE_ROW(ARXCOMMA, 001, ArxCommandEntry, g_row);
//       a row, in any source file; three digits, in the order of declaration, each once in the
//       program

#define SECTION_TABLE(name, Record, Accessor)                      \
    SECTION_TABLE_SLOT(name, a, Record, g_##name##Begin, nullptr); \
    SECTION_TABLE_SLOT(name, z, Record, g_##name##End, nullptr);   \
    SlotRange<Record> Accessor() {                                 \
        return SlotsBetween(&g_##name##Begin, &g_##name##End);     \
    }

#define SECTION_TABLE_ROW(name, position, Record, record) \
    SECTION_TABLE_SLOT(name, m##position, Record, g_##name##Slot##position, &record)

// One slot, also a null one. It has external linkage: nothing refers to it, so a local one could be
// dropped.
#define SECTION_TABLE_SLOT(name, part, Record, slot, value) \
    extern Record* const slot;                              \
    SECTION_TABLE_PLACED(name, part) Record* const slot = value

/// The slots between two marks, of which the compiler is not to know that they are variables: it
/// takes what lies behind one variable never to be another, and so would run past the end of an
/// empty table.
template <typename Record>
SlotRange<Record> SlotsBetween(Record* const* beginMark, Record* const* endMark) {
#if !defined(_MSC_VER)
    asm("" : "+r"(beginMark), "+r"(endMark));
#endif
    return {beginMark, endMark};
}

#define SECTION_TABLE_TEXT(text) #text
#if defined(_MSC_VER)
// Prepared, never compiled by us.
#define SECTION_TABLE_PLACED(name, part)                                   \
    __pragma(section(SECTION_TABLE_TEXT(name##$##part), read)) __declspec( \
        allocate(SECTION_TABLE_TEXT(name##$##part)))
#else
#define SECTION_TABLE_PLACED(name, part) \
    __attribute__((section(SECTION_TABLE_TEXT(name##$##part)), used))
#endif
