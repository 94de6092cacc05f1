#include "FrameMenu.h"

#include "Command.h"
#include "FrameCommands.h"
#include "Text.h"
#include "TextOrder.h"

#include <QMenuBar>

namespace hearthbook {

namespace {

using Kind = MenuRow::Kind;

constexpr MenuRow rows[] = {
    {Kind::Menu, "", "mnuFile", "&File", "", nullptr},
    {Kind::Item, "mnuFile", "mnuExport", "&Export Album...", "", &FrameCommands::exportAlbum},
    {Kind::Item, "mnuFile", "mnuDesign", "&Design Export...", "", &FrameCommands::designExport},
    {Kind::Line, "mnuFile", "mnuLine1", "", "", nullptr},
    {Kind::Item, "mnuFile", "mnuPrint", "&Print...", "Ctrl+P", &FrameCommands::print},
    {Kind::Line, "mnuFile", "mnuLine3", "", "", nullptr},
    {Kind::Item, "mnuFile", "mnuQuit", "&Quit", "Ctrl+Q", &FrameCommands::quit},
    {Kind::Menu, "", "mnuTools", "&Tools", "", nullptr},
    {Kind::Item, "mnuTools", "mnuBuildAlbum", "&Build Album", "Ctrl+B",
     &FrameCommands::buildFromMenu},
    {Kind::Item, "mnuTools", "mnuSearch", "&Search Photos", "Ctrl+F",
     &FrameCommands::searchFromMenu},
    {Kind::Menu, "mnuTools", "mnuView", "&View Albums", "", nullptr},
    {Kind::Menu, "", "mnuMainHelp", "&Help", "", nullptr},
    {Kind::Item, "mnuMainHelp", "mnuStart", "&Getting Started", "F1",
     &FrameCommands::gettingStarted},
    {Kind::Check, "mnuMainHelp", "mnuHelp", "&Show Help", "", &FrameCommands::switchHelp},
    {Kind::Line, "mnuMainHelp", "mnuLine4", "", "", nullptr},
    {Kind::Item, "mnuMainHelp", "mnuAbout", "&About Hearthbook", "", &FrameCommands::about},
    {Kind::Menu, "", "mnuEdit", "&Edit", "", nullptr},
    {Kind::Item, "mnuEdit", "mnuRemove", "&Remove From Sub-Album", "",
     &FrameCommands::removeFromSubAlbum},
};

// An album's name is shown as it stands, its "&" too.
QString shown(const QString& name) {
  return QString(name).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

int idOf(const QAction& entry) { return entry.data().toInt(); }

} // namespace

std::span<const MenuRow> menuTree() { return rows; }

FrameMenu::FrameMenu(QMenuBar& bar, FrameCommands& commands) : QObject(&bar), commands_(commands) {
  for (const MenuRow& row : menuTree())
    addRow(bar, row);
  menu("mnuEdit").menuAction()->setVisible(false); // a pop-up only
  addAlbum(0, toQString("Master Album"));
}

void FrameMenu::addRow(QMenuBar& bar, const MenuRow& row) {
  if (row.kind == Kind::Menu)
    addMenu(bar, row);
  else
    addItem(row);
}

void FrameMenu::addMenu(QMenuBar& bar, const MenuRow& row) {
  const QString text = toQString(row.text);
  QMenu* made = *row.parent ? menu(row.parent).addMenu(text) : bar.addMenu(text);
  made->setObjectName(toQString(row.name));
  menus_.insert(toQString(row.name), made);
}

void FrameMenu::addItem(const MenuRow& row) {
  QMenu& in = menu(row.parent);
  QAction* made = row.kind == Kind::Line ? in.addSeparator() : in.addAction(toQString(row.text));
  made->setObjectName(toQString(row.name));
  made->setCheckable(row.kind == Kind::Check);
  made->setShortcut(QKeySequence(toQString(row.shortcut)));
  made->setEnabled(row.handler || row.kind == Kind::Line);
  if (row.handler)
    onCommand(made, &commands_, row.handler);
  items_.insert(toQString(row.name), made);
}

void FrameMenu::addAlbum(int albumId, const QString& name) {
  auto* entry = new QAction(shown(name), &menu("mnuView"));
  entry->setObjectName(QStringLiteral("mnuSubAlbums"));
  entry->setData(albumId);
  entry->setIconText(name);
  onCommand(entry, &commands_,
            [this, entry] { commands_.viewAlbum(idOf(*entry), entry->iconText()); });
  insertAlbum(entry);
}

void FrameMenu::insertAlbum(QAction* entry) {
  QMenu& albums = menu("mnuView");
  QAction* before = nullptr;
  for (QAction* other : albums.actions())
    if (!before && idOf(*other) != 0 &&
        compareText(toUtf8(entry->iconText()), toUtf8(other->iconText())) < 0)
      before = other;
  albums.insertAction(before, entry);
}

void FrameMenu::renameAlbum(int albumId, const QString& name) {
  QAction* entry = album(albumId);
  if (!entry || albumId == 0)
    return;
  menu("mnuView").removeAction(entry);
  entry->setText(shown(name));
  entry->setIconText(name);
  insertAlbum(entry);
}

void FrameMenu::removeAlbum(int albumId) {
  if (albumId != 0)
    delete album(albumId);
}

QAction* FrameMenu::album(int albumId) const {
  for (QAction* entry : menu("mnuView").actions())
    if (idOf(*entry) == albumId)
      return entry;
  return nullptr;
}

QMenu& FrameMenu::menu(const char* name) const { return *menus_.value(toQString(name)); }

QAction* FrameMenu::item(const char* name) const { return items_.value(toQString(name)); }

} // namespace hearthbook
