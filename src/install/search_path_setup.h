#pragma once

/// Puts the installation at the head of the host's setting "ACAD", its support search path, as
/// `PrependSearchPaths` tells. The setting is written in every case, also when nothing changed, and
/// no result is looked at. A value beyond 2,047 characters isn't provided for.
void AddSearchPaths();
