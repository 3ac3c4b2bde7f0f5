#pragma once

/// The command LoadKVT: shows the About dialog and returns when it was closed.
void LoadKVTCommand();
