#pragma once

#include "platform/runtime/FileHandle.h"
#include "platform/runtime/RuntimeError.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A folder that is not whole yet, beside those of its kind: it takes its name when all that is in
/// it is on the disk, and is removed unless it does. Only its owner can enter it until then.
/// Nothing is written through a link: files in it are made anew, and in the folder itself, whatever
/// another user who may write beside it has meanwhile given its name to.
class DraftFolder {
public:
    /// In `parent`, which is made if it is missing. When it is whole, those may read it who may
    /// read the file `like`, of the owner and the group; nobody else. Raises 75 if it cannot be
    /// made, 76 if there is nowhere to make it. What killed processes have left of such folders is
    /// removed.
    DraftFolder(const QString& parent, const QString& like);
    ~DraftFolder();
    DraftFolder(const DraftFolder&) = delete;
    DraftFolder& operator=(const DraftFolder&) = delete;

    QString Path(const QString& name) const;
    /// An empty file that has not been there; its path. Raises 75.
    QString MakeFile(const QString& name);
    /// A file with these bytes. Raises 75.
    void Write(const QString& name, const QByteArray& bytes);

    /// Has all of it kept by the disk and gives it its name. Raises 75, also if that is taken, or
    /// if the draft has lost its own.
    void TakeName(const QString& name);

private:
    RuntimeError Fault(const QString& name) const;

    QString like_;
    QString parentPath_;
    FileHandle parent_;
    QString name_;
    FileHandle folder_;
    QStringList files_;
    bool isWhole_ = false;
};

/// Removes a folder and what is in it, links themselves instead of what they lead to. It loses its
/// name first: what a kill leaves of it is no folder of its kind. False if it stays.
bool RemoveFolder(const QString& path);
