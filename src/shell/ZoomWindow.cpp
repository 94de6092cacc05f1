#include "ZoomWindow.h"

#include "Forms.h"
#include "Zoom.h"

namespace hearthbook {

void showZoom(const QString& caption) {
  auto& zoom = Forms::get<Zoom>();
  zoom.ComposeZoomView();
  zoom.setCaption(caption);
  zoom.Show();
}

} // namespace hearthbook
