#pragma once

#include <optional>
#include <string>

namespace drafthost {

/// `value` in another unit. Names are those of lengths, times, masses, angles and temperatures, in
/// any case, in the singular, the plural or short ("inch", "inches", "in"); "sq" or "cu" ahead of a
/// length makes an area or a volume of it. Empty for an unknown name, and for units of different
/// kinds.
std::optional<double> ConvertUnits(double value, const std::wstring& from, const std::wstring& to);

}  // namespace drafthost
