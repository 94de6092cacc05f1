#pragma once

#include <QString>

namespace hearthbook::test {

/// What the print form says on a desktop without a printing service.
inline const QString noPrintersText = QStringLiteral(
    "Can not print page. Please make sure your printer is connected and configured, and that you "
    "selected a valid device!\n\nThe printing service does not answer.\nThe page can still be "
    "saved "
    "as a PDF file.");

/// What it says where printing fails, whatever the reason.
inline const QString printFailureText = QStringLiteral(
    "Can not print page, printer not responding or not compatible with this action.\r\nPlease make "
    "sure your printer is connected and configured, and that you selected a valid device!");

} // namespace hearthbook::test
