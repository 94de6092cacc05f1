#include "MixerPrograms.h"

#include <QProcess>
#include <QStandardPaths>
#include <QString>

#include <array>

namespace hearthbook {

namespace {

struct MixerProgram {
  const char* name;
  const char* playback; ///< what it is told to show loudspeakers, one word or none
  const char* recording;
};

// Those that show loudspeakers and microphones apart come first.
constexpr std::array mixerPrograms = {
    MixerProgram{"pavucontrol", "--tab=3", "--tab=4"},
    MixerProgram{"pavucontrol-qt", "--tab=3", "--tab=4"},
    MixerProgram{"gnome-control-center", "sound", "sound"},
    MixerProgram{"systemsettings", "kcm_pulseaudio", "kcm_pulseaudio"},
    MixerProgram{"systemsettings5", "kcm_pulseaudio", "kcm_pulseaudio"},
    MixerProgram{"mate-volume-control", "", ""},
    MixerProgram{"cinnamon-settings", "sound", "sound"},
    MixerProgram{"kmix", "", ""},
};

} // namespace

bool startMixer(Mixer mixer) {
  for (const MixerProgram& program : mixerPrograms) {
    const QString found = QStandardPaths::findExecutable(QLatin1String(program.name));
    if (found.isEmpty())
      continue;
    const QLatin1String word(mixer == Mixer::Playback ? program.playback : program.recording);
    if (QProcess::startDetached(found, word.isEmpty() ? QStringList() : QStringList{word}))
      return true;
  }
  return false;
}

} // namespace hearthbook
