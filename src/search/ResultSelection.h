#pragma once

#include "PublicVar.h"

#include <QObject>

#include <cstdint>
#include <optional>

class QAbstractButton;

namespace hearthbook {

class ResultGrid;

/// Selecting photos of a result: what a click or a key in the grid does to the selection set, and
/// what of it the frames and the commands then show.
class ResultSelection : public QObject {
  Q_OBJECT
public:
  struct Commands {
    QAbstractButton* addToSubAlbum; ///< of all, or of the selection
    QAbstractButton* batchEdit;
    QAbstractButton* clear; ///< says how many are selected
  };

  ResultSelection(PublicVar& vars, ResultGrid& grid, Commands commands, QObject* parent);

  void toggle(int cell);
  void selectUpTo(int cell); ///< all from where Shift extends from, over all pages between
  void selectPage();
  void extendFrom(int cell);
  void clear();

  /// Another page is on the screen.
  void enableBatchEdit();
  /// There is nothing that could be cleared: of the selection a new result has none, and one
  /// without records keeps the former unseen.
  void disableClear();
  void forgetWhereToExtendFrom() { anchor_.reset(); }

private:
  [[nodiscard]] std::int64_t positionIn(int cell) const;
  void selectAll(std::int64_t from, std::int64_t to);
  void show();
  void showFrames();

  PublicVar& vars_;
  ResultGrid& grid_;
  Commands commands_;
  std::optional<std::int64_t> anchor_; ///< a position in rsSearch
};

} // namespace hearthbook
