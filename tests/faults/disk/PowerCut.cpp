#include "tests/faults/disk/PowerCut.h"

#include "tests/common/MemoryFolder.h"
#include "tests/faults/FaultWorld.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr qint64 SectorBytes = 512;

QString FolderOf(const QString& path) {
    return QFileInfo(path).path();
}

void Put(QByteArray& content, qint64 offset, QByteArrayView bytes) {
    if (content.size() < offset + bytes.size())
        content.resize(offset + bytes.size(), '\0');
    std::memcpy(content.data() + offset, bytes.data(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

QList<RecordedCall> ReadRecord(const QString& file) {
    const QByteArray record = BytesOf(file);
    QList<RecordedCall> calls;
    qsizetype at = 0;
    while (at + qsizetype(sizeof(DiskNote)) <= record.size()) {
        RecordedCall call{};
        std::memcpy(&call.note, record.data() + at, sizeof call.note);
        at += qsizetype(sizeof call.note);
        call.bytes = record.mid(at, static_cast<qsizetype>(call.note.size));
        at += call.bytes.size();
        calls += call;
    }
    return calls;
}

CutDisk::CutDisk(const QString& folder) : folder_(folder) {
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        names_[path] = std::make_shared<File>(File{BytesOf(path), {}});
    }
    keptNames_ = names_;
}

void CutDisk::Take(const RecordedCall& call) {
    const int fd = call.note.fd;
    const QString path = QString::fromUtf8(call.bytes);
    switch (call.note.call) {
    case FileCall::Make:
        ChangeNames({FolderOf(path), {{QString(), path, std::make_shared<File>()}}});
        [[fallthrough]];
    case FileCall::Open:
        paths_[fd] = path;
        // None is what a folder has.
        files_[fd] = names_.value(path);
        break;
    case FileCall::Write:
        files_[fd]->pending += {false, call.note.number, call.bytes};
        break;
    case FileCall::Truncate:
        files_[fd]->pending += {true, call.note.number, {}};
        break;
    case FileCall::Sync:
        Sync(fd);
        break;
    case FileCall::Unlink:
        ChangeNames({FolderOf(path), {{path, QString(), nullptr}}});
        break;
    case FileCall::Rename:
        Rename(path.section(QLatin1Char('\n'), 0, 0), path.section(QLatin1Char('\n'), 1));
        break;
    case FileCall::Other:
    case FileCall::Report:
        break;
    }
}

void CutDisk::Rename(const QString& from, const QString& to) {
    NameChange change{FolderOf(to), {}};
    for (auto name = names_.cbegin(); name != names_.cend(); ++name)
        if (name.key() == from || name.key().startsWith(from + QLatin1Char('/')))
            change.moves +=
                {name.key(), to + name.key().mid(from.size()), name.value(), name.key() != from};
    ChangeNames(change);
}

void CutDisk::ChangeNames(const NameChange& change) {
    Apply(change, names_);
    pendingNames_ += change;
}

void CutDisk::Sync(int fd) {
    const QString path = paths_.value(fd);
    if (ignored_(path))
        return;
    if (const FilePointer file = files_.value(fd)) {
        for (const auto& change : std::as_const(file->pending))
            Apply(change, file->kept);
        file->pending.clear();
        return;
    }
    QList<NameChange> others;
    for (const NameChange& change : std::as_const(pendingNames_))
        if (change.folder == path)
            Apply(change, keptNames_);
        else
            others += change;
    pendingNames_ = others;
}

void CutDisk::Apply(const NameChange& change, Names& names) {
    for (const Move& move : change.moves) {
        if (move.isInside && !names.contains(move.from))
            continue;
        names.remove(move.from);
        if (!move.to.isEmpty())
            names[move.to] = move.file;
    }
}

void CutDisk::Apply(const ContentChange& change, QByteArray& content) {
    if (change.truncates)
        content.resize(change.offset, '\0');
    else
        Put(content, change.offset, change.bytes);
}

void CutDisk::CutInto(const QString& folder, std::mt19937& chance) const {
    // Some disks are quick and some are slow.
    constexpr std::array<unsigned, 5> percents{0, 15, 50, 85, 100};
    const unsigned percent = percents[chance() % percents.size()];
    const auto isKept = [&] { return chance() % 100 < percent; };
    Names names = keptNames_;
    for (const NameChange& change : pendingNames_)
        if (isKept())
            Apply(change, names);
    for (auto name = names.cbegin(); name != names.cend(); ++name) {
        QByteArray content = name.value()->kept;
        for (const auto& change : std::as_const(name.value()->pending)) {
            if (change.truncates) {
                if (isKept())
                    Apply(change, content);
                continue;
            }
            for (qint64 from = 0; from < change.bytes.size();) {
                const qint64 sectorEnd = ((change.offset + from) / SectorBytes + 1) * SectorBytes;
                const qint64 size =
                    qMin(sectorEnd - change.offset - from, qint64(change.bytes.size()) - from);
                if (isKept())
                    Put(content, change.offset + from,
                        QByteArrayView(change.bytes).sliced(from, size));
                from += size;
            }
        }
        const QString path = folder + name.key().mid(folder_.size());
        QDir().mkpath(FolderOf(path));
        WriteBytes(path, content);
    }
}

int PowerCuts::Bad(int cuts, std::mt19937& chance, const Judge& isGood, qsizetype first) {
    first = std::clamp(first, qsizetype{0}, calls_.size() - 1);
    QList<qsizetype> moments;
    for (int cut = 0; cut < cuts; ++cut)
        moments +=
            first + static_cast<qsizetype>(chance() % static_cast<quint32>(calls_.size() - first));
    std::sort(moments.begin(), moments.end());
    int bad = 0;
    int reported = 0;
    qsizetype taken = 0;
    for (const qsizetype moment : std::as_const(moments)) {
        for (; taken <= moment; ++taken) {
            const RecordedCall& call = calls_.at(taken);
            disk_.Take(call);
            if (call.note.call == FileCall::Report)
                reported = static_cast<int>(call.note.number);
        }
        const QTemporaryDir left(MemoryFolder());
        disk_.CutInto(left.path(), chance);
        bad += !isGood(left.path(), reported);
    }
    return bad;
}
