#pragma once

#include "session/FormSlots.h"
#include "store/AccountKinds.h"
#include "store/DatabaseCls.h"
#include "store/Versions.h"

#include <QString>
#include <functional>

/// The variables that the forms of a session share. All are empty at the start of the process and
/// survive a log-off. One account is logged in at a time, or none.

/// The one store object, made on first use.
DatabaseCls& Database();

/// Shows the picture of the account of that name, none if it has none.
void ShowPictureOf(const QString& name, PictureTarget& target);

/// Name of the account logged in, exactly as typed at the log-in.
extern QString CurrentUser;
/// Its kind (AccountKind).
extern QString CurrentState;
/// Version::School or Version::Home.
extern qint16 SchoolMode;
/// 1 school, 0 home: SchoolMode as the settings file holds it.
extern qint16 SchoolFlag;
/// 1 on, 0 off: the stored form of the menu's check mark.
extern qint16 SoundOn;
/// 1: a child may look at the other children's accounts; 0: its own only.
extern qint16 SeeOtherAccounts;
/// Full path of the main window's background picture, "" for none.
extern QString BackgroundPicture;
/// The main window's background colour, red in the low byte.
extern qint32 BackgroundColor;
/// Every chart editor and viewer opened in this run. A slot is filled in one of the two arrays
/// and never used again.
extern FormSlots<ChartEditorRows> ChartEditors;
extern FormSlots<ChartViewerRows> ChartViewers;
/// How the store reaches the weekly review; set by the room that owns the form.
extern std::function<ChartMatrix&()> WeeklyReview;
/// The next slot to fill, in both arrays. Only grows.
extern qint16 ChartFormIndex;

/// Empties all session variables, as at the start of the process, and lets go of the store.
void ResetSession();
