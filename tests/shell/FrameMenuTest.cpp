#include "FrameMenu.h"

#include "FrameCommands.h"
#include "ShellFixture.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMenuBar>

#include <algorithm>

namespace hearthbook {
namespace {

/// The tree as it is to be: parent, name, caption.
struct Wanted {
  const char* parent;
  const char* name;
  const char* caption;
};

constexpr Wanted wantedTree[] = {
    {"", "mnuFile", "File"},
    {"mnuFile", "mnuExport", "Export Album..."},
    {"mnuFile", "mnuDesign", "Design Export..."},
    {"mnuFile", "mnuLine1", ""},
    {"mnuFile", "mnuPrint", "Print..."},
    {"mnuFile", "mnuLine3", ""},
    {"mnuFile", "mnuQuit", "Quit"},
    {"", "mnuTools", "Tools"},
    {"mnuTools", "mnuBuildAlbum", "Build Album"},
    {"mnuTools", "mnuSearch", "Search Photos"},
    {"mnuTools", "mnuView", "View Albums"},
    {"", "mnuMainHelp", "Help"},
    {"mnuMainHelp", "mnuStart", "Getting Started"},
    {"mnuMainHelp", "mnuHelp", "Show Help"},
    {"mnuMainHelp", "mnuLine4", ""},
    {"mnuMainHelp", "mnuAbout", "About Hearthbook"},
    {"", "mnuEdit", "Edit"},
    {"mnuEdit", "mnuRemove", "Remove From Sub-Album"},
};

QString caption(const QAction& action) { return QString(action.text()).remove(QLatin1Char('&')); }

class FrameMenuTest : public test::ShellTest {
protected:
  QStringList albumNames() {
    QStringList names;
    for (const QAction* entry : menu.menu("mnuView").actions())
      names << entry->text();
    return names;
  }

  QMainWindow frame;
  FrameCommands commands{album(), {}, frame};
  FrameMenu menu{*frame.menuBar(), commands};
};

TEST_F(FrameMenuTest, TheTreeHasEveryItemInItsPlace) {
  ASSERT_EQ(menuTree().size(), std::size(wantedTree));
  std::size_t at = 0;
  for (const Wanted& wanted : wantedTree) {
    const MenuRow& row = menuTree()[at++];
    EXPECT_STREQ(row.name, wanted.name);
    EXPECT_STREQ(row.parent, wanted.parent);
    EXPECT_EQ(QString::fromLatin1(row.text).remove(QLatin1Char('&')).toStdString(), wanted.caption);
  }
}

TEST_F(FrameMenuTest, EveryItemOfTheTreeStandsInTheMenuBar) {
  for (const MenuRow& row : menuTree()) {
    SCOPED_TRACE(row.name);
    if (row.kind == MenuRow::Kind::Menu)
      continue;
    const QAction* item = menu.item(row.name);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->objectName().toStdString(), row.name);
    EXPECT_TRUE(menu.menu(row.parent).actions().contains(const_cast<QAction*>(item)));
    EXPECT_EQ(item->isSeparator(), row.kind == MenuRow::Kind::Line);
    EXPECT_EQ(item->isCheckable(), row.kind == MenuRow::Kind::Check);
  }
}

TEST_F(FrameMenuTest, EveryCommandCanBeChosenAndTheHelpIsHiddenAtFirst) {
  for (const char* name : {"mnuExport", "mnuDesign", "mnuPrint", "mnuQuit", "mnuBuildAlbum",
                           "mnuSearch", "mnuStart", "mnuHelp", "mnuAbout", "mnuRemove"})
    EXPECT_TRUE(menu.item(name)->isEnabled()) << name;
  EXPECT_FALSE(menu.item("mnuHelp")->isChecked());
}

TEST_F(FrameMenuTest, TheEditMenuIsNotInTheMenuBar) {
  EXPECT_FALSE(menu.menu("mnuEdit").menuAction()->isVisible());
}

TEST_F(FrameMenuTest, NoTwoItemsOfAMenuShareAnAccessKeyOrShortcut) {
  QStringList seen;
  for (const MenuRow& row : menuTree()) {
    const QString text = QString::fromLatin1(row.text);
    const QString key =
        QString::fromLatin1(row.parent) + text.mid(text.indexOf(QLatin1Char('&')), 2);
    const QString shortcut = QString::fromLatin1(row.shortcut);
    EXPECT_TRUE(row.kind == MenuRow::Kind::Line || !seen.contains(key)) << row.name;
    EXPECT_TRUE(shortcut.isEmpty() || !seen.contains(shortcut)) << row.name;
    seen << key << shortcut;
  }
}

TEST_F(FrameMenuTest, TheMasterAlbumIsElementZero) {
  ASSERT_TRUE(menu.album(0));
  EXPECT_EQ(caption(*menu.album(0)), QStringLiteral("Master Album"));
  EXPECT_EQ(menu.album(0)->objectName(), QStringLiteral("mnuSubAlbums"));
}

TEST_F(FrameMenuTest, AlbumsAreFoundByTheirIdAndStandInTheOrderOfNames) {
  menu.addAlbum(7, QStringLiteral("lake"));
  menu.addAlbum(3, QStringLiteral("Wedding"));
  menu.addAlbum(12, QStringLiteral("Birthday"));

  EXPECT_EQ(albumNames(), (QStringList{QStringLiteral("Master Album"), QStringLiteral("Birthday"),
                                       QStringLiteral("lake"), QStringLiteral("Wedding")}));
  EXPECT_EQ(menu.album(7)->text(), QStringLiteral("lake"));
  EXPECT_FALSE(menu.album(8));
}

TEST_F(FrameMenuTest, ARenamedAlbumGoesToItsNewPlace) {
  menu.addAlbum(7, QStringLiteral("Lake"));
  menu.addAlbum(3, QStringLiteral("Wedding"));

  menu.renameAlbum(7, QStringLiteral("Winter"));

  EXPECT_EQ(albumNames(), (QStringList{QStringLiteral("Master Album"), QStringLiteral("Wedding"),
                                       QStringLiteral("Winter")}));
}

TEST_F(FrameMenuTest, ARemovedAlbumIsGoneAndTheMasterAlbumCannotBeRemoved) {
  menu.addAlbum(7, QStringLiteral("Lake"));

  menu.removeAlbum(7);
  menu.removeAlbum(0);
  menu.removeAlbum(99);

  EXPECT_EQ(albumNames(), QStringList{QStringLiteral("Master Album")});
}

TEST_F(FrameMenuTest, TwoHundredAlbumsAreFoundByTheirIdAndStandInTheOrderOfNames) {
  const auto name = [](int id) { return QStringLiteral("Lake %1").arg(id * 37 % 200, 3); };
  for (int id = 1; id <= 200; ++id)
    menu.addAlbum(id, name(id));
  menu.removeAlbum(100);
  menu.renameAlbum(200, QStringLiteral("Zoo"));

  QStringList names = albumNames();
  ASSERT_EQ(names.size(), 200); // the Master Album is one of them
  EXPECT_EQ(names.takeFirst(), QStringLiteral("Master Album"));
  EXPECT_EQ(names.back(), QStringLiteral("Zoo"));
  EXPECT_TRUE(std::ranges::is_sorted(names));
  EXPECT_FALSE(menu.album(100));
  for (const int id : {1, 99, 101, 199})
    EXPECT_EQ(menu.album(id)->text(), name(id));
}

TEST_F(FrameMenuTest, AnAmpersandInAnAlbumsNameIsShown) {
  menu.addAlbum(7, QStringLiteral("Tom & Anna"));

  EXPECT_EQ(menu.album(7)->text(), QStringLiteral("Tom && Anna"));
}

} // namespace
} // namespace hearthbook
