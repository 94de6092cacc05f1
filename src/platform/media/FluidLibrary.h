#pragma once

#include <fluidsynth.h>

namespace hearthbook {

/// What is used of FluidSynth. It draws some forty libraries in, sound and graphics systems among
/// them, and few photos have a tune in MIDI: so it is loaded when the first one is played.
struct FluidLibrary {
  decltype(&new_fluid_settings) newSettings;
  decltype(&delete_fluid_settings) deleteSettings;
  decltype(&fluid_settings_setnum) setNumber;
  decltype(&fluid_settings_setint) setInteger;
  decltype(&fluid_settings_setstr) setText;
  decltype(&new_fluid_synth) newSynth;
  decltype(&delete_fluid_synth) deleteSynth;
  decltype(&fluid_synth_sfload) loadFont;
  decltype(&fluid_synth_system_reset) resetSynth;
  decltype(&fluid_synth_write_s16) write;
  decltype(&fluid_synth_get_active_voice_count) activeVoices;
  decltype(&new_fluid_player) newPlayer;
  decltype(&delete_fluid_player) deletePlayer;
  decltype(&fluid_player_add_mem) addMusic;
  decltype(&fluid_player_seek) seek;
  decltype(&fluid_player_play) play;
};

/// Throws RunTimeError where it is not installed. What goes wrong in it is told by what it
/// returns; its own log is silent.
const FluidLibrary& fluid();

} // namespace hearthbook
