#pragma once

#include <QDate>
#include <QString>

/// Shows and hides the main window's menu entries and toolbar buttons for the kind of the account
/// logged in. A kind that is neither an adult's nor a child's changes nothing.
void SetAccountRights();

/// Removes the scratch folder of pictures if it is empty; one that is missing or still holds
/// files stays as it is, and nothing is reported.
void RemoveDeleteMe();

/// The date as eight digits, year, month, day; two keys compare as strings in date order. No
/// form asks for it: they take DateKey, as the store does.
QString ReturnDateKey(const QDate& Value);
