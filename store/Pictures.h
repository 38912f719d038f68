#pragma once

#include "platform/tables/Recordset.h"
#include "store/FormViews.h"

#include <QString>
#include <functional>

/// The name of the file through which an account's picture is shown: the account's name where a
/// file can bear it, else that percent-encoded, and never so long that a file system refuses it.
QString ScratchFileName(const QString& account);

/// Stores a picture file in a field of the row being added or edited, and lets events run between
/// its pieces. Raises 53, 75 or 481 for a file that cannot be read or is too large.
void StorePicture(Recordset& rows, const QString& field, const QString& path);

/// Shows the picture in a field of each row of the account, the last one's in the end; none where
/// the scratch file cannot be written. `beforePicture` runs on such a row first. `accounts` stands
/// on its first row; raises 3021 if there is none. All other errors are skipped. A small
/// picture needs neither the scratch file nor a row.
void ShowPictures(
    Recordset& accounts, const QString& account, const QString& field, PictureTarget& target,
    const std::function<void()>& beforePicture = [] {});
