#pragma once

#include "WorkPool.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>

#include <utility>

namespace hearthbook {

/// Runs `work` on the pool and hands its result to `then` on the album's thread, if `wanted`
/// still lives by then. `work` must not throw: what can go wrong is part of its result.
template <class Work, class Then>
void runBeside(WorkPool& pool, QObject* wanted, Work work, Then then, bool urgent = false) {
  pool.post(
      [guard = QPointer<QObject>(wanted), work = std::move(work),
       then = std::move(then)]() mutable {
        auto result = work();
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [guard = std::move(guard), then = std::move(then),
             result = std::move(result)]() mutable {
              if (guard)
                then(std::move(result));
            },
            Qt::QueuedConnection);
      },
      urgent);
}

} // namespace hearthbook
