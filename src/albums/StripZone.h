#pragma once

#include <QWidget>

namespace hearthbook {

/// The bar above or below the strip: a photo that is pulled over it makes the strip scroll.
/// While there is more that way, an arrow says so.
class StripZone : public QWidget {
  Q_OBJECT
public:
  enum class Way { Up, Down };
  StripZone(Way way, QWidget* parent);

  void setMore(bool isMore); ///< there are more rows that way

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  Way way_;
  bool isMore_ = false;
};

} // namespace hearthbook
