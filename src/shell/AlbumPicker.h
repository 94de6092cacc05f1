#pragma once

#include "PublicVar.h"

#include <QObject>

class QLabel;

namespace hearthbook {

class FlexGrid;
class Stage;

/// The list of albums over the start screen's View command: the Master Album, then the
/// sub-albums by name, with the description of the one under the mouse beside it. The arrow
/// keys go through it too, Return opens an album, Escape gives up.
///
/// Its current row is the album chosen, for every form that asks.
class AlbumPicker : public QObject {
  Q_OBJECT
public:
  struct Parts {
    FlexGrid* list;
    QLabel* description;
    QWidget* command; ///< above which the list stands
  };

  AlbumPicker(Stage& stage, Parts parts, Recordset& albums, PublicVar::ChosenAlbum& chosen,
              QObject* parent);

  void open();
  void hideList();
  void hideDescription();

Q_SIGNALS:
  void picked(int albumId, const QString& name);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void fill();
  void place();
  void placeDescription();
  void pointAtRow();
  void rowChanged();
  void pick();
  void giveUp();
  [[nodiscard]] double toTwips(int pixels) const;

  Stage& stage_;
  Parts parts_;
  Recordset& albums_;
  PublicVar::ChosenAlbum& chosen_;
};

} // namespace hearthbook
