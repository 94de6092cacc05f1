#include "MixerPrograms.h"

#include <QProcess>
#include <QStandardPaths>
#include <QString>

#include <array>

namespace hearthbook {

namespace {

/// A program, and what it is told to show: one word or none.
struct MixerProgram {
  const char* name;
  const char* playback;
  const char* recording;
  const char* runningRecording;

  [[nodiscard]] const char* wordFor(Mixer mixer) const {
    return mixer == Mixer::Playback    ? playback
           : mixer == Mixer::Recording ? recording
                                       : runningRecording;
  }
};

// Those that show loudspeakers and microphones apart come first. Of the pages of the first two,
// 3 has the loudspeakers, 4 the microphones, and 2 the recordings that run, where even what the
// loudspeakers play can be chosen for them; while none runs that page is empty.
constexpr std::array mixerPrograms = {
    MixerProgram{"pavucontrol", "--tab=3", "--tab=4", "--tab=2"},
    MixerProgram{"pavucontrol-qt", "--tab=3", "--tab=4", "--tab=2"},
    MixerProgram{"gnome-control-center", "sound", "sound", "sound"},
    MixerProgram{"systemsettings", "kcm_pulseaudio", "kcm_pulseaudio", "kcm_pulseaudio"},
    MixerProgram{"systemsettings5", "kcm_pulseaudio", "kcm_pulseaudio", "kcm_pulseaudio"},
    MixerProgram{"mate-volume-control", "", "", ""},
    MixerProgram{"cinnamon-settings", "sound", "sound", "sound"},
    MixerProgram{"kmix", "", "", ""},
};

} // namespace

bool startMixer(Mixer mixer) {
  for (const MixerProgram& program : mixerPrograms) {
    const QString found = QStandardPaths::findExecutable(QLatin1String(program.name));
    if (found.isEmpty())
      continue;
    const QLatin1String word(program.wordFor(mixer));
    if (QProcess::startDetached(found, word.isEmpty() ? QStringList() : QStringList{word}))
      return true;
  }
  return false;
}

} // namespace hearthbook
