#pragma once

#include <QByteArray>
#include <QString>

/// Files as wholes. All errors say which file they are about, and the way out. The folder that a
/// file lies in may be a link, as somebody may have moved it to where there is room; the file
/// itself is never written through one.

/// All bytes of a regular file. Raises 53 if it is not there, 76 if its folder is missing, 75 if it
/// is a folder, a pipe or a device, is larger than `most` bytes, or the disk refuses any part of
/// it.
QByteArray ReadWholeFile(const QString& path, qint64 most);

/// Raises what ReplaceFile would raise now: 76 if the folder is missing, 75 if the file is
/// protected, a link or no regular file.
void RefuseToReplace(const QString& path);

/// Puts a file with these bytes in the place of the one there was, with its rights. The former one
/// stays whole until all of the new one is on the disk, whenever the write fails or the process is
/// killed; what killed writes have left beside it is removed. Raises what RefuseToReplace does, and
/// 75 if the disk refuses any part.
void ReplaceFile(const QString& path, const QByteArray& content);

/// The same for a file that is only of use until the next one: in place of whatever file or link
/// has the name, and not waiting until the disk has it. Raises 75.
void ReplaceScratchFile(const QString& path, const QByteArray& content);

/// Gives a file another name in its folder if nothing has that yet, neither file nor link. False if
/// something has, or the disk refuses.
bool RenameToFreeName(const QString& from, const QString& to);

/// A part of a name for a draft that nobody can foresee: 16 hexadecimal digits.
QString UnforeseenName();

/// Has the disk keep a file's bytes, or which files a folder holds. False if it refuses.
bool SyncPath(const QString& path);
