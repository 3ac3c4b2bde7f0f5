// A module of another library generation, told by the fixed head of the routine: a jump over the
// value. The code behind it is never to be run.

#include "modules/fixture_exports.h"

#include <cstdlib>

asm(".globl acrxGetApiVersion\n"
    "acrxGetApiVersion:\n"
    "    .byte 0xEB, 0x04\n"
    "    .long 0x00120000\n"
    "    ud2\n"
    ".section .drectve\n"
    "    .ascii \" -export:acrxGetApiVersion\"\n"
    ".text\n");

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*) {
    std::abort();
}
