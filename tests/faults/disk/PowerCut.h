#pragma once

#include "tests/faults/disk/DiskRecord.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <functional>
#include <memory>
#include <random>

/// A call that the recorder has noted.
struct RecordedCall {
    DiskNote note;
    QByteArray bytes;
};

QList<RecordedCall> ReadRecord(const QString& file);

/// A folder on a disk that keeps for sure only what has been synced: contents by a sync of the
/// file, names by one of their folder. Of the rest a power cut leaves what chance will, in any
/// order, contents by sectors.
class CutDisk {
public:
    /// Begins with the files of a folder, all of them synced.
    explicit CutDisk(const QString& folder);

    /// Takes no notice of a sync of these; for controls.
    void IgnoreSyncs(std::function<bool(const QString& path)> ignored) {
        ignored_ = std::move(ignored);
    }

    void Take(const RecordedCall& call);

    /// Writes into an empty folder what a power cut at this moment leaves.
    void CutInto(const QString& folder, std::mt19937& chance) const;

private:
    struct ContentChange {
        bool truncates;
        qint64 offset; ///< or the new size
        QByteArray bytes;
    };
    struct File {
        QByteArray kept;
        QList<ContentChange> pending;
    };
    using FilePointer = std::shared_ptr<File>;
    using Names = QMap<QString, FilePointer>;
    struct Move {
        QString from; ///< none: a new name
        QString to;   ///< none: a name less
        FilePointer file;
        /// It moves with its folder: not if the folder does not know of it.
        bool isInside = false;
    };
    /// Happens as a whole or not at all.
    struct NameChange {
        QString folder;
        QList<Move> moves;
    };

    void Rename(const QString& from, const QString& to);
    void ChangeNames(const NameChange& change);
    void Sync(int fd);
    static void Apply(const NameChange& change, Names& names);
    static void Apply(const ContentChange& change, QByteArray& content);

    QString folder_;
    Names names_;
    Names keptNames_;
    QList<NameChange> pendingNames_;
    QHash<int, FilePointer> files_; ///< by descriptor
    QHash<int, QString> paths_;     ///< the same
    std::function<bool(const QString&)> ignored_ = [](const QString&) { return false; };
};

/// Cuts the power at random moments of a record, and hands on what is left together with the
/// number that had been reported as done by then.
class PowerCuts {
public:
    using Judge = std::function<bool(const QString& folder, int reported)>;

    PowerCuts(const CutDisk& disk, const QList<RecordedCall>& calls) : disk_(disk), calls_(calls) {}

    /// The number of cuts that the judge finds bad; none comes before the call `first`.
    int Bad(int cuts, std::mt19937& chance, const Judge& isGood, qsizetype first = 0);

private:
    CutDisk disk_;
    const QList<RecordedCall>& calls_;
};
