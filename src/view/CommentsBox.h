#pragma once

#include "Stage.h"

#include <QPointer>
#include <QVariantAnimation>

class QLabel;
class QPushButton;

namespace hearthbook {

/// What is written about a photo: a panel that slides up from the foot of the photo's facts,
/// step by step, and goes at a click. The window stays usable meanwhile.
class CommentsBox : public Stage {
  Q_OBJECT
public:
  /// How it rises on the stage on which it stands.
  struct Slide {
    double left = 0;
    double foot = 0; ///< its lower edge
    int steps = 0;
    double step = 0; ///< twips that each of the steps adds to its height
  };

  /// `size` is what it has in the end; `closeLabel` names the label "Click To Close".
  CommentsBox(TwipsSize size, const QString& closeLabel, Stage& stage);

  void slideUp(const QString& text, const Slide& slide);
  void putAway();
  [[nodiscard]] bool isSliding() const { return rise_.state() == QVariantAnimation::Running; }

protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void makeControls(const QString& closeLabel);
  void standAt(int steps);

  Stage& stage_;
  QLabel* text_;
  QPushButton* close_;
  QLabel* closeHint_;
  Slide slide_;
  QVariantAnimation rise_;
  QPointer<QWidget> focusBefore_;
};

} // namespace hearthbook
