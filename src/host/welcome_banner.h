#pragma once

#include <string>

/// What the module says on the command line after a good start: a greeting with the version between
/// two lines of stars. Printed as a format, so a percent sign in `version` is the format's.
std::wstring WelcomeBanner(const std::wstring& version);
