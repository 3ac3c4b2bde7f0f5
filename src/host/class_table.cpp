#include "host/class_table.h"

#include "host/section_table.h"

SECTION_TABLE(DBXCUSTO, DbxClassEntry, ClassTable)
