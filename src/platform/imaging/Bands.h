#pragma once

#include <functional>

namespace hearthbook {

class WorkPool;

/// Goes through rows 0 to `rows` - 1 in bands of `rowsAtOnce`, each once, in any order, on this
/// thread and on those of the pool that are free. Throws what the first failing band has thrown.
/// It never waits for work that nobody has begun, so that work of a pool may call it too.
void inBands(WorkPool* pool, int rows, int rowsAtOnce,
             const std::function<void(int first, int end)>& work);

/// Rows that hold about a quarter of a megabyte: enough to be worth a thread's while.
int rowsOfBand(int width);

} // namespace hearthbook
