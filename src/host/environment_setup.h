#pragma once

/// Makes the installation ready in the host: reads its registry record into `InstallLocation` and
/// `InstallVersion`, loads its configuration, brings up the log if the configuration asks for one,
/// and puts the installation on the host's search path.
///
/// False when a registry value can't be read, nothing stands at the location, or the configuration
/// can't be loaded. Every step but the last runs all the same, so the log tells which it was; the
/// strings keep what was read, and the log stays up. With no location, the configuration is looked
/// for, and made, at the root of the current drive.
bool SetUpEnvironment();
