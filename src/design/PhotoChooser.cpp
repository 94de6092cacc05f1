#include "PhotoChooser.h"

#include "Command.h"
#include "FoundPhotos.h"
#include "Text.h"

#include <QComboBox>
#include <QRadioButton>

namespace hearthbook {

PhotoChooser::PhotoChooser(const Lists& lists, FoundPhotos* found, Connection& albumDb,
                           QObject* parent)
    : QObject(parent), lists_(lists), found_(found), albumDb_(albumDb) {
  for (const List& list : lists_) {
    onCommand(list.button, this, [this, &list] { showList(list); });
    connect(list.choices, &QComboBox::activated, this, asCommand([this, &list] { search(list); }));
  }
}

void PhotoChooser::fillLists() {
  for (const List& list : lists_) {
    list.choices->clear();
    list.choices->addItem(toQString(list.prompt));
    for (const DesignChoice& choice : designChoices(albumDb_, list.by))
      list.choices->addItem(toQString(choice.name), static_cast<qlonglong>(choice.id));
  }
}

void PhotoChooser::startOver() {
  lists_.front().button->setChecked(true);
  showList(lists_.front());
}

void PhotoChooser::showList(const List& shown) {
  for (const List& list : lists_) {
    list.choices->setVisible(&list == &shown);
    list.choices->setCurrentIndex(0);
  }
  found_->showNothing();
}

void PhotoChooser::search(const List& list) {
  if (list.choices->currentIndex() < 1)
    return found_->showNothing();
  found_->showHits(designHits(albumDb_, list.by, list.choices->currentData().toLongLong()));
}

} // namespace hearthbook
