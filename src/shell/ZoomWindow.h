#pragma once

class QString;

namespace hearthbook {

/// Opens the zoom view on the photo on which rsZoom stands.
void showZoom(const QString& caption);

} // namespace hearthbook
