#pragma once

#include "platform/runtime/Desktop.h"

#include <QString>
#include <functional>
#include <memory>
#include <optional>

class MotionSetting;
class WavePlayer;

/// The desktop that the program runs on.
class SystemDesktop : public Desktop {
public:
    /// What shows a file of help.
    using OpenHelp = std::function<void(const QString& helpFile)>;

    /// `pictures`: a folder that the open-file dialog offers where it is told none.
    explicit SystemDesktop(OpenHelp openHelp, QString pictures = QString());
    ~SystemDesktop() override;

    std::optional<QString> OpenFile(const QString& initialFolder) override;
    std::optional<qint32> ChooseColor(qint32 initial) override;
    void ShellExecute(const QString& verb, const QString& target, int showState) override;
    void ShowHelp(const QString& helpFile, int command) override;
    void PlaySoundA(const QString& waveFile, quint32 flags) override;
    bool WantsLessMotion() override;

private:
    OpenHelp openHelp_;
    QString pictures_;
    std::unique_ptr<WavePlayer> sound_;
    std::unique_ptr<MotionSetting> motion_;
};
