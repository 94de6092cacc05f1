#include "FluidLibrary.h"

#include "SharedLibrary.h"

namespace hearthbook {

namespace {

void silenceItsLog(const SharedLibrary& library) {
  decltype(&fluid_set_log_function) setLogFunction = nullptr;
  library.find(setLogFunction, "fluid_set_log_function");
  for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
    setLogFunction(level, nullptr, nullptr);
}

FluidLibrary loadFluidLibrary() {
  const SharedLibrary library("libfluidsynth.so.3", "The player of MIDI");
  silenceItsLog(library);
  FluidLibrary functions{};
  library.find(functions.newSettings, "new_fluid_settings");
  library.find(functions.deleteSettings, "delete_fluid_settings");
  library.find(functions.setNumber, "fluid_settings_setnum");
  library.find(functions.setInteger, "fluid_settings_setint");
  library.find(functions.setText, "fluid_settings_setstr");
  library.find(functions.newSynth, "new_fluid_synth");
  library.find(functions.deleteSynth, "delete_fluid_synth");
  library.find(functions.loadFont, "fluid_synth_sfload");
  library.find(functions.resetSynth, "fluid_synth_system_reset");
  library.find(functions.write, "fluid_synth_write_s16");
  library.find(functions.activeVoices, "fluid_synth_get_active_voice_count");
  library.find(functions.newPlayer, "new_fluid_player");
  library.find(functions.deletePlayer, "delete_fluid_player");
  library.find(functions.addMusic, "fluid_player_add_mem");
  library.find(functions.seek, "fluid_player_seek");
  library.find(functions.play, "fluid_player_play");
  return functions;
}

} // namespace

const FluidLibrary& fluid() {
  static const FluidLibrary loaded = loadFluidLibrary();
  return loaded;
}

} // namespace hearthbook
