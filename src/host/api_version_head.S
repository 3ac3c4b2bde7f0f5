/* acrxGetApiVersion for the GNU assembler; its counterpart is api_version_head.asm. */

        .text
        .p2align 4
        .globl  acrxGetApiVersion
        .def    acrxGetApiVersion
        .scl    2
        .type   32
        .endef
acrxGetApiVersion:
        .byte   0xEB, 0x04              /* jmp over the generation */
        .long   0x00110000
        jmp     ContinueApiVersion      /* the argument stays where it is */
