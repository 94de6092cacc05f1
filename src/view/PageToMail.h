#pragma once

#include "MailPage.h"

namespace hearthbook {

class PageCells;

/// The photos in sight on an album page, and which of them is selected.
MailPage pageToMail(const PageCells& cells);

} // namespace hearthbook
