#include "SaneLibrary.h"

#include "SharedLibrary.h"

namespace hearthbook {

namespace {

SaneLibrary loadSaneLibrary() {
  const SharedLibrary library("libsane.so.1", "The access to scanners");
  SaneLibrary functions{};
  library.find(functions.init, "sane_init");
  library.find(functions.exit, "sane_exit");
  library.find(functions.getDevices, "sane_get_devices");
  library.find(functions.open, "sane_open");
  library.find(functions.close, "sane_close");
  library.find(functions.getOptionDescriptor, "sane_get_option_descriptor");
  library.find(functions.controlOption, "sane_control_option");
  library.find(functions.getParameters, "sane_get_parameters");
  library.find(functions.start, "sane_start");
  library.find(functions.read, "sane_read");
  library.find(functions.cancel, "sane_cancel");
  library.find(functions.getSelectFd, "sane_get_select_fd");
  return functions;
}

} // namespace

const SaneLibrary& sane() {
  static const SaneLibrary loaded = loadSaneLibrary();
  return loaded;
}

} // namespace hearthbook
