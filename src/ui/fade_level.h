#pragma once

/// The level of a tip's fade: it begins at 0.0 and is a double to which steps are added, so that
/// the eleven levels that are drawn are sums (0.30000000000000004, ..., 0.9999999999999999) and
/// 1.0 is never among them.
constexpr double fadeFirstLevel = 0.0;

/// The level of a tip that comes up without a fade.
constexpr double fadeFullLevel = 1.0;

/// Meant: a sum and not a count of steps; it isn't cut at 1.0.
constexpr double NextFadeLevel(double level) {
    return level + 0.1;
}

/// Whether the level lies past the last one that is drawn.
constexpr bool FadeIsOver(double level) {
    return level > fadeFullLevel;
}
