#include "JpegErrors.h"

namespace hearthbook {

namespace {

void jumpOut(j_common_ptr codec) {
  auto* errors = static_cast<JpegErrors*>(codec->err);
  errors->format_message(codec, errors->text);
  std::longjmp(errors->jump, 1);
}

void keepQuiet(j_common_ptr) {}

} // namespace

JpegErrors::JpegErrors() : jpeg_error_mgr() {
  jpeg_std_error(this);
  error_exit = jumpOut;
  output_message = keepQuiet;
}

} // namespace hearthbook
