#pragma once

#include "DesignSearch.h"

#include <QObject>

#include <array>
#include <functional>
#include <string>

class QComboBox;
class QRadioButton;

namespace hearthbook {

class FoundPhotos;

/// Looks for photos by one of three lists: persons, places and events, of which a radio button
/// shows one.
class PhotoChooser : public QObject {
  Q_OBJECT
public:
  struct List {
    DesignSearch by;
    QRadioButton* button;
    QComboBox* choices;
    const char* prompt; ///< its first line: "Search for person"
  };
  using Lists = std::array<List, 3>;

  PhotoChooser(const Lists& lists, FoundPhotos* found, Connection& albumDb, QObject* parent);

  void fillLists();
  void startOver(); ///< nothing is chosen, the first list is shown

private:
  void showList(const List& shown);
  void search(const List& list);

  Lists lists_;
  FoundPhotos* found_;
  Connection& albumDb_;
};

} // namespace hearthbook
