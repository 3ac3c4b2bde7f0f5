; acrxGetApiVersion for the Microsoft assembler; its counterpart is api_version_head.S.
; Prepared, never assembled by us.

EXTERN  ContinueApiVersion:PROC

.code

        ALIGN   16
acrxGetApiVersion PROC
        DB      0EBh, 04h               ; jmp over the generation
        DD      00110000h
        jmp     ContinueApiVersion      ; the argument stays where it is
acrxGetApiVersion ENDP

END
