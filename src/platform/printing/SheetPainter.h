#pragma once

#include "PrintSheet.h"

#include <functional>

class QImage;
class QPainter;

namespace hearthbook {

/// Paints what is on a sheet; a unit of the painter is a twip, its origin the sheet's corner.
/// `pixelsOf` gives the pixels of the sheet's pictures, counted from 0; a picture without any is
/// left out.
void paintSheet(QPainter& painter, const PrintSheet& sheet,
                const std::function<QImage(std::size_t picture)>& pixelsOf);

} // namespace hearthbook
