#pragma once

#include "store/DayTexts.h"

#include <array>

/// The weekly review's measures, in twips; those of the lines in the coordinates of Surface.
namespace ReviewLayout {

inline constexpr int LineTop = 1320;
inline constexpr int LineHeight = 255;
inline constexpr int OutlineTop = 1200;
inline constexpr int OutlineHeight = 495;
/// An outline that has been scrolled begins so far above its job.
inline constexpr int OutlineAboveJob = LineTop - OutlineTop;

inline constexpr int JobLeft = 240;
inline constexpr int JobWidth = 2175;
inline constexpr int PointsLeft = 2400;
inline constexpr int PointsWidth = 525;
/// Sunday to Saturday.
inline constexpr std::array<int, DaysOfWeek> DayLefts = {3120, 4080, 4920, 5760, 6600, 7440, 8400};
inline constexpr int DayWidth = 615;
inline constexpr int JobTotalLeft = 9240;
inline constexpr int JobTotalWidth = 1095;
inline constexpr int OutlineLeft = 120;
inline constexpr int OutlineWidth = 9015;
inline constexpr int DayTotalTop = 1800;

} // namespace ReviewLayout
