#include "FactsPanel.h"

#include "DescriptionIcon.h"
#include "FilesBeside.h"
#include "Look.h"
#include "NamesGrid.h"
#include "PaperPanel.h"
#include "PictureImage.h"
#include "PrintPage.h"
#include "SoundIcon.h"
#include "Text.h"

#include <QImage>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace hearthbook {

namespace {

constexpr double yearHeight = 390;
constexpr double placeHeight = 720;
constexpr double edge = 15;
constexpr double iconTop = yearHeight + placeHeight + 75;
constexpr TwipsSize iconSize{390, 390};
constexpr double yearPoints = 13;

void setTextColour(QWidget& widget, const QColor& colour) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, colour);
  palette.setColor(QPalette::Text, colour);
  widget.setPalette(palette);
}

QToolButton* makeIcon(const QIcon& icon, const QString& says, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setIcon(icon);
  button->setIconSize({18, 18});
  button->setAutoRaise(true);
  button->setAccessibleName(says);
  button->setToolTip(says);
  return button;
}

} // namespace

QString familyName(const char* family, int index) {
  return QStringLiteral("%1(%2)").arg(toQString(family)).arg(index);
}

FactsPanel::FactsPanel(const Design& design, QWidget* parent)
    : Stage(design.size, parent), gridHeight_(design.gridHeight) {
  setObjectName(familyName("Info", design.index));
  setAutoFillBackground(true);
  QPalette palette = this->palette();
  palette.setColor(QPalette::Window, look::panelYellow);
  setPalette(palette);
  makeTexts(design);
  makeIcons(design);
  makeNames(design);
}

void FactsPanel::makeTexts(const Design& design) {
  paper_ = new PaperPanel(this);
  paper_->setObjectName(familyName("BGpaper", design.index));
  paper_->setProperty("paper", QStringLiteral("print"));
  place(paper_, {0, 0, design.size.width, design.size.height - gridHeight_});

  year_ = new QLabel(this);
  year_->setObjectName(familyName("txtYear", design.index));
  year_->setAlignment(Qt::AlignCenter);
  QFont bold = year_->font();
  bold.setBold(true);
  year_->setFont(bold);
  place(year_, {0, 0, design.size.width, yearHeight}, yearPoints);

  place_ = new QLabel(this);
  place_->setObjectName(familyName("txtPlace", design.index));
  place_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  place_->setWordWrap(true);
  place_->setTextFormat(Qt::PlainText);
  place_->setMargin(4);
  place(place_, {edge, yearHeight, design.size.width - 2 * edge, placeHeight});
}

void FactsPanel::makeIcons(const Design& design) {
  description_ = makeIcon(descriptionIcon(), QStringLiteral("Read the description"), this);
  description_->setObjectName(familyName("Image2", design.index));
  sound_ = makeIcon(soundIcon(), QStringLiteral("Play the sound"), this);
  sound_->setToolTip(QStringLiteral("Play the sound (Esc ends it)"));
  sound_->setObjectName(familyName("Image3", design.index));
  const double third = design.size.width / 3;
  place(description_, {third - iconSize.width / 2, iconTop, iconSize.width, iconSize.height});
  place(sound_, {2 * third - iconSize.width / 2, iconTop, iconSize.width, iconSize.height});
  sound_->hide();
  connect(description_, &QToolButton::clicked, this, &FactsPanel::descriptionAsked);
  connect(sound_, &QToolButton::clicked, this, &FactsPanel::soundAsked);
}

void FactsPanel::makeNames(const Design& design) {
  names_ = new NamesGrid(design.namesInSight, this);
  names_->setObjectName(familyName("gridNames", design.index));
  names_->setAccessibleName(QStringLiteral("Names in the photo"));
  names_->setProperty("helpKey", design.helpKey);
  QPalette palette = names_->palette();
  palette.setColor(QPalette::Base, look::panelYellow);
  names_->setPalette(palette);
  place(names_, {0, design.size.height - gridHeight_, design.size.width, gridHeight_});
}

void FactsPanel::setArrow(const QPixmap& arrow) { names_->setArrow(arrow); }

void FactsPanel::showFacts(const PhotoFacts& facts) {
  setRect(paper_, {0, 0, design().width, design().height - rect(names_).height});
  year_->setText(toQString(facts.year));
  place_->setText(toQString(facts.place));
  place_->setToolTip(toQString(facts.place));
  setTextColour(*place_, look::darkRed);
  description_->setVisible(facts.hasDescription);
  names_->showNames(facts.names);
}

/// Read again, a photo keeps its icon meanwhile; another one has none until it is known.
void FactsPanel::lookForSound(WorkPool& pool, const Album& album, const std::string& id) {
  if (soundOf_ != id)
    sound_->hide();
  soundOf_ = id;
  isLookingForSound_ = true;
  findSoundBeside(pool, this, album, id, [this, lookup = ++lookups_](bool attached) {
    if (lookup != lookups_)
      return;
    isLookingForSound_ = false;
    sound_->setVisible(attached);
  });
}

std::array<QWidget*, 3> FactsPanel::tabOrder() const { return {description_, sound_, names_}; }

QString FactsPanel::yearText() const { return year_->text(); }

QString FactsPanel::placeText() const { return place_->text(); }

QString FactsPanel::summary() const {
  const QString place = place_->text().trimmed();
  return year_->text() +
         (year_->text().isEmpty() || place.isEmpty() ? QString() : QStringLiteral(", ")) + place;
}

std::string FactsPanel::heading() const {
  return printHeading(toUtf8(year_->text()), toUtf8(place_->text()));
}

TwipsSize FactsPanel::namesSize() const {
  const TwipsRect grid = rect(names_);
  return {grid.width, grid.height};
}

/// As sharp as paper wants it, whatever the screen's pixels.
Picture FactsPanel::namesPicture() const {
  constexpr double dotsPerInch = 300;
  const double width = namesSize().width / twipsPerInch * dotsPerInch;
  const double ratio = width / std::max(names_->width(), 1);
  QImage image((QSizeF(names_->size()) * ratio).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  names_->render(&image);
  return paintedPicture(image);
}

bool FactsPanel::hasMoreNames() const { return names_->names() > names_->rowsInSight(); }

} // namespace hearthbook
