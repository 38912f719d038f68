#pragma once

#include <QString>

/// The names under which forms of different rooms open each other, in the registry of default
/// instances.
namespace FormNames {

inline constexpr QLatin1String BackgroundOptions("BackgroundOptions");
inline constexpr QLatin1String ChangePasswordfrm("ChangePasswordfrm");
inline constexpr QLatin1String LogIn("LogIn");
inline constexpr QLatin1String LoginWindow("LoginWindow");
inline constexpr QLatin1String MainForm("MainForm");
inline constexpr QLatin1String NewUser("NewUser");
inline constexpr QLatin1String OtherOptions("OtherOptions");
inline constexpr QLatin1String frmAboutDutygrid("frmAboutDutygrid");

inline constexpr QLatin1String AddIncentives("AddIncentives");
inline constexpr QLatin1String DisplayAccount("DisplayAccount");

inline constexpr QLatin1String ChartEditor("ChartEditor");
inline constexpr QLatin1String DeleteChartForm("DeleteChartForm");
inline constexpr QLatin1String DisplayAllPeople("DisplayAllPeople");
inline constexpr QLatin1String Newfrm("Newfrm");
inline constexpr QLatin1String Openfrm("Openfrm");
inline constexpr QLatin1String ResetDate("ResetDate");

inline constexpr QLatin1String ChartViewer("ChartViewer");
inline constexpr QLatin1String OpenFillfrm("OpenFillfrm");

inline constexpr QLatin1String DateRangefrm("DateRangefrm");
inline constexpr QLatin1String Reportfrm("Reportfrm");
inline constexpr QLatin1String WeekChartRepresentation("WeekChartRepresentation");

} // namespace FormNames
