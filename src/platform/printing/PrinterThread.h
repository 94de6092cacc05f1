#pragma once

#include "WorkPool.h"

#include <memory>

namespace hearthbook {

/// A thread of its own for all that waits for the printing service, or for the disk on which a
/// sheet is put away. Where they hang, photos are decoded all the same, and neither a form's end
/// nor the program's waits for them.
class PrinterThread {
public:
  PrinterThread();
  ~PrinterThread(); ///< drops what has not begun; what has goes on, and nobody waits for it
  PrinterThread(const PrinterThread&) = delete;
  PrinterThread& operator=(const PrinterThread&) = delete;

  [[nodiscard]] WorkPool& work() { return *pool_; }

private:
  std::unique_ptr<WorkPool> pool_;
};

} // namespace hearthbook
