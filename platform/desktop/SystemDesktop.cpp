#include "platform/desktop/SystemDesktop.h"

#include "platform/desktop/MotionSetting.h"
#include "platform/desktop/PictureDialog.h"
#include "platform/forms/WidgetRole.h"
#include "platform/runtime/Colors.h"
#include "platform/runtime/RuntimeError.h"
#include "platform/runtime/WaveFiles.h"
#include "platform/runtime/WholeFiles.h"
#include "platform/sound/WavePlayer.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLibrary>
#include <QPointer>
#include <QPushButton>
#include <QUrl>
#include <utility>

SystemDesktop::SystemDesktop(OpenHelp openHelp, QString pictures)
    : openHelp_(std::move(openHelp)), pictures_(std::move(pictures)) {}
SystemDesktop::~SystemDesktop() = default;

std::optional<QString> SystemDesktop::OpenFile(const QString& initialFolder) {
    // On the heap: the window beneath may be deleted while the dialog stands.
    const QPointer<PictureDialog> dialog =
        new PictureDialog(QApplication::activeWindow(), initialFolder, pictures_);
    const bool isChosen = dialog->exec() == QDialog::Accepted && !dialog.isNull();
    const QString file = isChosen ? dialog->selectedFiles().value(0) : QString();
    delete dialog.data();
    if (file.isEmpty())
        return std::nullopt;
    return file;
}

namespace {

/// Pale colours, on which everything can be read, for the squares that nobody has filled yet.
void OfferPastels() {
    constexpr int PaleAsPaper = 40; // saturation
    for (int square = 0; square < QColorDialog::customCount(); ++square)
        if (QColorDialog::customColor(square) == QColor(Qt::white))
            QColorDialog::setCustomColor(
                square,
                QColor::fromHsv(square * 360 / QColorDialog::customCount(), PaleAsPaper, 255));
}

} // namespace

std::optional<qint32> SystemDesktop::ChooseColor(qint32 initial) {
    OfferPastels();
    // On the heap, as the dialog for files.
    const QPointer<QColorDialog> dialog =
        new QColorDialog(ColorFromValue(initial), QApplication::activeWindow());
    // A desktop's own dialog has none of the toolkit's buttons.
    if (const auto* buttons = dialog->findChild<QDialogButtonBox*>())
        SetRole(*buttons->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    const bool isChosen = dialog->exec() == QDialog::Accepted && !dialog.isNull();
    const QColor color = isChosen ? dialog->selectedColor() : QColor();
    delete dialog.data();
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

namespace {

bool IsSound(const QString& path) {
    constexpr qint64 most = 64 << 20; // bytes
    try {
        return IsWholeWave(ReadWholeFile(path, most));
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

void SystemDesktop::PlaySoundA(const QString& waveFile, quint32) {
    if (!IsSound(waveFile))
        return;
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
