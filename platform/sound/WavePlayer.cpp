#include "platform/sound/WavePlayer.h"

#include <QFileInfo>
#include <QSoundEffect>
#include <QUrl>

namespace {

class SoundEffectPlayer : public WavePlayer {
public:
    void Play(const QString& waveFile) override {
        effect_.stop();
        if (!QFileInfo::exists(waveFile))
            return;
        effect_.setSource(QUrl::fromLocalFile(waveFile));
        effect_.play();
    }

private:
    QSoundEffect effect_;
};

} // namespace

extern "C" Q_DECL_EXPORT WavePlayer* MakeWavePlayer() {
    return new SoundEffectPlayer;
}
