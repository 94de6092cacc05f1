#pragma once

#include <sane/sane.h>

namespace hearthbook {

/// What is used of SANE. Few families scan: it is loaded when scanners are first asked for.
struct SaneLibrary {
  decltype(&sane_init) init;
  decltype(&sane_exit) exit;
  decltype(&sane_get_devices) getDevices;
  decltype(&sane_open) open;
  decltype(&sane_close) close;
  decltype(&sane_get_option_descriptor) getOptionDescriptor;
  decltype(&sane_control_option) controlOption;
  decltype(&sane_get_parameters) getParameters;
  decltype(&sane_start) start;
  decltype(&sane_read) read;
  decltype(&sane_cancel) cancel;
  decltype(&sane_get_select_fd) getSelectFd;
};

/// Throws RunTimeError where it is not installed.
const SaneLibrary& sane();

} // namespace hearthbook
