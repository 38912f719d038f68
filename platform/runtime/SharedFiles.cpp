#include "platform/runtime/SharedFiles.h"

#include <QFile>
#include <QFileInfo>
#include <optional>
#include <sys/stat.h>

namespace {

std::optional<struct stat> StatusOf(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status;
}

/// A user who is not the owner, and of that group or of none.
using Stranger = std::optional<gid_t>;

/// Whether the stranger has a right, named by everybody's bit of it.
bool Has(const Stranger& stranger, const QString& path, mode_t right) {
    const std::optional<struct stat> status = StatusOf(path);
    const bool isOfTheGroup = status && status->st_gid == stranger;
    return status && (status->st_mode & (isOfTheGroup ? right << 3U : right)) != 0;
}

/// Whether the stranger has a right to a file and gets as far as to it.
bool Reaches(const Stranger& stranger, const QString& path, mode_t right) {
    const QString whole = QFileInfo(path).canonicalFilePath();
    if (whole.isEmpty() || !Has(stranger, whole, right))
        return false;
    for (QString folder = whole; folder != QLatin1String("/");) {
        folder = QFileInfo(folder).path();
        if (!Has(stranger, folder, S_IXOTH))
            return false;
    }
    return true;
}

} // namespace

bool MayReadWhoMayChange(const QString& path, const QString& shared) {
    const std::optional<struct stat> status = StatusOf(shared);
    if (!status)
        return true;
    for (const Stranger& stranger : {Stranger(), Stranger(status->st_gid)})
        if (Reaches(stranger, shared, S_IWOTH) && !Reaches(stranger, path, S_IROTH))
            return false;
    return true;
}
