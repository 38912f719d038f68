#pragma once

#include <QColor>

/// The program's colours, each with one meaning. docs/look.md tells where each is used, and what
/// contrasts it has.
namespace LookColors {

inline constexpr QColor Ink(0x26, 0x32, 0x38);   ///< text
inline constexpr QColor Muted(0x54, 0x62, 0x69); ///< text that explains
inline constexpr QColor Deep(0x0b, 0x5f, 0x5c);  ///< headings, links
inline constexpr QColor Teal(0x0b, 0x72, 0x6e);  ///< what goes on, is chosen or has the keyboard
inline constexpr QColor TealHover(0x0a, 0x62, 0x5f);
inline constexpr QColor TealPressed(0x08, 0x4f, 0x4c);
inline constexpr QColor TealPale(0xd9, 0xeb, 0xe8);  ///< ground of a chosen card
inline constexpr QColor Card(0xff, 0xff, 0xff);      ///< ground of lists, boxes and cards
inline constexpr QColor Paper(0xfb, 0xf6, 0xec);     ///< ground of windows
inline constexpr QColor Band(0xf6, 0xef, 0xdf);      ///< ground of headings of columns, grooves
inline constexpr QColor Line(0xdc, 0xcf, 0xb6);      ///< edges that only adorn
inline constexpr QColor Outline(0x85, 0x7b, 0x64);   ///< edges that a control is known by
inline constexpr QColor Honey(0xff, 0xf3, 0xd6);     ///< under the mouse
inline constexpr QColor HoneyDark(0xff, 0xe4, 0xa8); ///< pressed
inline constexpr QColor Unusable(0x8d, 0x8b, 0x86);  ///< text of what cannot be used now
inline constexpr QColor Done(0xa9, 0xdf, 0xb4);      ///< ground of a job done, in the review
inline constexpr QColor DoneEdge(0x3f, 0x8a, 0x55);
inline constexpr QColor Tick(0x23, 0x86, 0x36);      ///< in the box of a job done
inline constexpr QColor Ticked(0xe6, 0xf7, 0xe3);    ///< ground of that box
inline constexpr QColor Found(0xff, 0xec, 0xb3);     ///< ground of words found in the help
inline constexpr QColor FoundHere(0xff, 0xb9, 0x2e); ///< of the one gone to

// Those of the program's pictures, for what is painted beside them: of stars and of joy.
inline constexpr QColor Gold(0xff, 0xc5, 0x33);
inline constexpr QColor Coral(0xe4, 0x57, 0x3d);
inline constexpr QColor Sky(0x4f, 0x9f, 0xd8);

} // namespace LookColors
