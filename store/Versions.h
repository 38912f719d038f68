#pragma once

#include <QString>
#include <QtGlobal>

/// The two versions of the program, as the session's SchoolMode holds them and by name. With any
/// other value the chart editor is neither; the job report takes whatever is not school for home,
/// the job names and the forms of the accounts whatever is not home for school.
namespace Version {

inline constexpr qint16 School = -1;
inline constexpr qint16 Home = 0;

inline const QString SchoolName = QStringLiteral("School");
inline const QString HomeName = QStringLiteral("Home");

inline bool IsSchool(qint16 version) {
    return version == School;
}

inline bool IsHome(qint16 version) {
    return version == Home;
}

/// True for whatever is not home.
inline bool CountsAsSchool(qint16 version) {
    return !IsHome(version);
}

inline qint16 Of(bool school) {
    return school ? School : Home;
}

/// The name; "" for a value that is neither.
inline QString NameOf(qint16 version) {
    return IsSchool(version) ? SchoolName : IsHome(version) ? HomeName : QString();
}

} // namespace Version
