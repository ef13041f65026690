#pragma once

/// Spaces between the controls of windows, in units for FromDIP().
namespace Spacing {
inline constexpr int kThin = 2;    ///< between the parts of one control
inline constexpr int kTight = 4;   ///< between controls that belong together
inline constexpr int kRow = 6;     ///< between rows
inline constexpr int kDialog = 8;  ///< between a dialog's edge and what it holds
}  // namespace Spacing
