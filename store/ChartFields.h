#pragma once

#include <QString>
#include <QVariant>

/// True if a field holds exactly this text. Null equals nothing.
inline bool Holds(const QVariant& field, const QString& text) {
    return !field.isNull() && field.toString() == text;
}

/// Positions of the fields of a chart table; the order is part of the format.
namespace ChartField {
inline constexpr int Instructions = 0;
inline constexpr int DayOfWeek = 1;
inline constexpr int AdultResponsable = 2;
inline constexpr int Difficuly = 3;
inline constexpr int Points = 4;
inline constexpr int Completed = 5;
inline constexpr int FirstDate = 6;
inline constexpr int LastDate = 7;
inline constexpr int UserName = 8;
inline constexpr int AutoCreate = 9;
} // namespace ChartField

/// Names of the fields of the accounts' table.
namespace AccountField {
inline const QString Image = QStringLiteral("Image");
inline const QString Name = QStringLiteral("Name");
inline const QString Password = QStringLiteral("Password");
inline const QString Points = QStringLiteral("Points");
inline const QString State = QStringLiteral("State");
inline const QString IncentiveName = QStringLiteral("IncentiveName");
inline const QString IncentiveCost = QStringLiteral("IncentiveCost");
inline const QString IncentivePicture = QStringLiteral("IncentivePicture");
} // namespace AccountField
