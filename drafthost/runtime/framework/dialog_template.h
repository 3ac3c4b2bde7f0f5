#pragma once

#include <windows.h>

/// What the head of a dialog template says about the dialog's place.
struct DialogTemplateHead {
    DWORD style = 0;
    int x = 0;  ///< dialog units
    int y = 0;
};

/// Reads a template of either form, the plain one and the extended one.
DialogTemplateHead ReadDialogTemplateHead(const DLGTEMPLATE* dialogTemplate);

/// Whether the template leaves the dialog's place open: a top-level dialog at 0, 0 that asks for
/// none of the platform's own placements.
bool IsPlaceOpen(const DialogTemplateHead& head);
