#pragma once

#include <QIcon>

namespace hearthbook {

/// What the buttons of a recorder and of the mixers bear.
enum class TransportSymbol {
  ToStart,
  Play,
  Pause,
  Stop,
  ToEnd,
  Record,
  Eject,
  Loudspeaker,
  Microphone
};

QIcon transportIcon(TransportSymbol symbol);

} // namespace hearthbook
