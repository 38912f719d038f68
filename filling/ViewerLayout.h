#pragma once

/// The chart viewer's measures, in twips.
namespace ViewerLayout {

inline constexpr int RowHeight = 375;
inline constexpr int RowGap = 50;
/// The line above which a row is hidden, and the first row's place when nothing is scrolled.
inline constexpr int ListTop = 1200;
inline constexpr int FirstRowTop = ListTop + RowGap;
/// Of the frame that holds the list, where the form has its designed height.
inline constexpr int ListHeight = 4200;

inline constexpr int FormHeight = 8700;
inline constexpr int FormHeightWithResponsible = 9800;

} // namespace ViewerLayout
