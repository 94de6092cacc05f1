#pragma once

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QObject>

#include <span>

class QMenuBar;

namespace hearthbook {

class FrameCommands;

/// One line of the menu tree.
struct MenuRow {
  enum class Kind { Menu, Item, Check, Line };
  Kind kind;
  const char* parent; ///< name of the menu that it stands in; empty for the menu bar
  const char* name;
  const char* text;                 ///< with "&" before its access key
  const char* shortcut;             ///< empty: none
  void (FrameCommands::*handler)(); ///< null where the program does not have it yet
};

/// The whole tree, in the order shown. The albums of View Albums are not in it.
std::span<const MenuRow> menuTree();

/// The menu bar of the frame, built from the tree, and the albums in View Albums.
class FrameMenu : public QObject {
  Q_OBJECT
public:
  FrameMenu(QMenuBar& bar, FrameCommands& commands);

  /// Adds an album in the order of names; element 0 stays in front.
  void addAlbum(int albumId, const QString& name);
  void renameAlbum(int albumId, const QString& name);
  void removeAlbum(int albumId);
  [[nodiscard]] QAction* album(int albumId) const; ///< `mnuSubAlbums(albumId)`, or null

  [[nodiscard]] QMenu& menu(const char* name) const;
  [[nodiscard]] QAction* item(const char* name) const;

private:
  void addRow(QMenuBar& bar, const MenuRow& row);
  void addMenu(QMenuBar& bar, const MenuRow& row);
  void addItem(const MenuRow& row);
  void insertAlbum(QAction* entry);

  FrameCommands& commands_;
  QHash<QString, QMenu*> menus_;
  QHash<QString, QAction*> items_;
};

} // namespace hearthbook
