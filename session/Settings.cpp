#include "session/Settings.h"

#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/SharedFiles.h"
#include "platform/runtime/TextFiles.h"
#include "session/Session.h"
#include "store/ProgramFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

SettingsForms* shownIn = nullptr;

SettingsForms& Forms() {
    if (shownIn == nullptr)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *shownIn;
}

void ReadVariables() {
    InputFile file(SettingsFile());
    SeeOtherAccounts = ToInteger(file.InputNumber());
    BackgroundPicture = file.InputText();
    BackgroundColor = ToLong(file.InputNumber());
    SchoolFlag = ToInteger(file.InputNumber());
    SoundOn = ToInteger(file.InputNumber());
}

/// A delivered background stays what it is in a program folder that has been moved, or replaced by
/// a newer one beside it.
QString BackgroundFile() {
    const QFileInfo chosen(BackgroundPicture);
    const QString folder = QStringLiteral("Backgrounds");
    if (chosen.exists() || chosen.dir().dirName() != folder)
        return BackgroundPicture;
    const QString own = InProgramFolder(folder + QLatin1Char('/') + chosen.fileName());
    return QFileInfo(own).isFile() ? own : BackgroundPicture;
}

/// Reads the file afresh only where it is another one than last time: the account view reads the
/// settings at each click.
QImage LoadKept(const QString& path) {
    struct Kept {
        QString path;
        qint64 size = 0;
        QDateTime changed;
        QImage picture;
    };
    static Kept kept;
    if (path.isEmpty())
        return {};
    QFile file(path);
    OpenPicture(file);
    const QDateTime changed = file.fileTime(QFileDevice::FileModificationTime);
    if (kept.path != path || kept.size != file.size() || kept.changed != changed)
        kept = {path, file.size(), changed, LoadPicture(path)};
    return kept.picture;
}

/// One child's choice is everybody's at the next start: whoever cannot start any more is told why.
QImage LoadBackgroundPicture() {
    try {
        return LoadKept(BackgroundFile());
    } catch (RuntimeError& error) {
        error.SetAdvice(
            QStringLiteral("The background picture cannot be shown: %1\n\nTo start without it, "
                           "empty the second line of %2; the line itself stays.")
                .arg(error.Advice(), QDir::toNativeSeparators(SettingsFile())));
        throw;
    }
}

/// Says what the file should be like, where no disk is to blame.
void ReadVariablesWithAdvice() {
    try {
        ReadVariables();
    } catch (RuntimeError& error) {
        if (error.Advice().isEmpty())
            error.SetAdvice(
                QStringLiteral(
                    "%1 is not as the program writes it: a number (0 or 1), the path of "
                    "the background picture or nothing, the number of a colour, and two "
                    "more numbers (0 or 1), one a line. Mend it, or put a safety copy in "
                    "its place.")
                    .arg(QDir::toNativeSeparators(SettingsFile())));
        throw;
    }
}

void ApplyVariables() {
    // The version before the colour: the option's handler may write the file here, and it is to
    // write the colour that the main window had until now.
    const bool school = SchoolFlag != 0;
    SchoolMode = Version::Of(school);
    Forms().SelectVersion(school);

    Forms().SetBackColor(BackgroundColor);
    Forms().SetPicture(LoadBackgroundPicture());
    Forms().SetSoundMark(SoundOn == 1);
}

} // namespace

void SetSettingsForms(SettingsForms* forms) {
    shownIn = forms;
}

void ReadSettings() {
    WithErrorsEndingTheRun([] {
        ReadVariablesWithAdvice();
        ApplyVariables();
    });
}

bool IsSeenByAllUsers(const QString& picture) {
    return MayReadWhoMayChange(picture, SettingsFile());
}

void WriteSettings() {
    const qint32 color = Forms().BackColor();
    OutputFile file(SettingsFile());
    file.PrintNumber(SeeOtherAccounts);
    file.PrintText(BackgroundPicture);
    file.PrintNumber(color);
    file.PrintNumber(SchoolFlag);
    file.PrintNumber(SoundOn);
    file.Close();
}
