#include "platform/desktop/SystemDesktop.h"

#include "platform/desktop/MotionSetting.h"
#include "platform/runtime/Colors.h"
#include "platform/sound/WavePlayer.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibrary>
#include <QUrl>
#include <utility>

SystemDesktop::SystemDesktop(OpenHelp openHelp) : openHelp_(std::move(openHelp)) {}
SystemDesktop::~SystemDesktop() = default;

std::optional<QString> SystemDesktop::OpenFile(const QString& initialFolder) {
    const QString filter =
        initialFolder.isEmpty()
            ? QString()
            : QStringLiteral("Pictures (*.png *.jpg *.jpeg *.gif *.bmp *.ico);;All files (*)");
    const QString file = QFileDialog::getOpenFileName(
        QApplication::activeWindow(), QStringLiteral("Open"), initialFolder, filter);
    if (file.isEmpty())
        return std::nullopt;
    return file;
}

std::optional<qint32> SystemDesktop::ChooseColor(qint32 initial) {
    const QColor color =
        QColorDialog::getColor(ColorFromValue(initial), QApplication::activeWindow());
    if (!color.isValid())
        return std::nullopt;
    return ValueFromColor(color);
}

void SystemDesktop::ShellExecute(const QString&, const QString& target, int) {
    // The verb is always "open", and the show state is a wish that no desktop here takes.
    QDesktopServices::openUrl(QFileInfo(target).isAbsolute() ? QUrl::fromLocalFile(target)
                                                             : QUrl(target));
}

void SystemDesktop::ShowHelp(const QString& helpFile, int) {
    openHelp_(helpFile);
}

void SystemDesktop::PlaySoundA(const QString& waveFile, quint32) {
    // Loaded at the first sound: what it takes to play one is a good part of the whole start.
    if (!sound_) {
        QLibrary library(QCoreApplication::applicationDirPath() + QLatin1Char('/') +
                         QLatin1String(WavePlayerLibrary));
        const auto make =
            reinterpret_cast<MakeWavePlayerFunction>(library.resolve(MakeWavePlayerName));
        if (make == nullptr)
            return;
        sound_.reset(make());
    }
    sound_->Play(waveFile);
}

bool SystemDesktop::WantsLessMotion() {
    if (!motion_)
        motion_ = MotionSetting::OfSession();
    return motion_->WantsLess();
}
