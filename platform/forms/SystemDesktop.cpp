#include "platform/forms/SystemDesktop.h"

#include "platform/forms/Colors.h"
#include "platform/forms/HelpWindow.h"
#include "platform/forms/MotionSetting.h"
#include "platform/sound/WavePlayer.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibrary>
#include <QUrl>

SystemDesktop::SystemDesktop() = default;
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
    if (!help_)
        help_ = std::make_unique<HelpWindow>();
    help_->Open(helpFile);
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
