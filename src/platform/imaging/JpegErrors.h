#pragma once

#include <cstdio> // before jpeglib.h, which needs it

#include <jpeglib.h>

#include <csetjmp>
#include <string>

namespace hearthbook {

/// How libjpeg's failures come back: it may neither return from them nor let an exception
/// through its frames, so it jumps to where `jump` was set.
struct JpegErrors : jpeg_error_mgr {
  JpegErrors();
  std::jmp_buf jump;
  char text[JMSG_LENGTH_MAX] = "";
};

} // namespace hearthbook
