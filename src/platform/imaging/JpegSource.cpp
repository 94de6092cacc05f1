#include "JpegSource.h"

namespace hearthbook {

JpegSource::JpegSource(InputFile& file) : jpeg_source_mgr(), file_(&file) {
  init_source = begin;
  fill_input_buffer = fill;
  skip_input_data = skip;
  resync_to_restart = jpeg_resync_to_restart;
  term_source = begin;
}

boolean JpegSource::fill(j_decompress_ptr codec) {
  auto* source = static_cast<JpegSource*>(codec->src);
  std::size_t count = source->file_->read(source->buffer_.data(), source->buffer_.size());
  if (count == 0) {
    source->ranOut_ = true;
    source->buffer_[0] = 0xff;
    source->buffer_[1] = JPEG_EOI;
    count = 2;
  }
  source->next_input_byte = source->buffer_.data();
  source->bytes_in_buffer = count;
  return TRUE;
}

void JpegSource::skip(j_decompress_ptr codec, long count) {
  auto* source = static_cast<JpegSource*>(codec->src);
  auto left = static_cast<std::size_t>(count > 0 ? count : 0);
  while (left > source->bytes_in_buffer && !source->ranOut_) {
    left -= source->bytes_in_buffer;
    fill(codec);
  }
  if (left > source->bytes_in_buffer)
    left = 0; // the end marker itself is not skipped
  source->next_input_byte += left;
  source->bytes_in_buffer -= left;
}

} // namespace hearthbook
