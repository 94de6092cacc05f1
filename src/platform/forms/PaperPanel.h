#pragma once

#include <QString>
#include <QWidget>

namespace hearthbook {

/// A sheet of paper on which a work form lays a group of its controls. Its property `paper`
/// says which: "yellow" for a panel, "print" for the white border of a photo.
class PaperPanel : public QWidget {
  Q_OBJECT
public:
  explicit PaperPanel(QWidget* parent = nullptr);

protected:
  void paintEvent(QPaintEvent* event) override;
};

} // namespace hearthbook
