#pragma once

#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>

namespace hearthbook {

/// Opens a page so that the system's browser shows it. Never seen itself.
class HyperlinkControl : public QWidget {
  Q_OBJECT
public:
  using Opener = std::function<bool(const std::filesystem::path& page)>;

  explicit HyperlinkControl(QWidget* parent = nullptr);

  /// What shows pages; tests look on in its place.
  void setOpener(Opener opener);

  /// False where the desktop has nothing that shows pages.
  bool nav(const std::filesystem::path& page) const; // NOLINT(modernize-use-nodiscard)

private:
  Opener opener_;
};

/// Opens the page. Where the desktop has nothing that shows it, a box of that title says so.
void openOrTell(const HyperlinkControl::Opener& opener, const std::filesystem::path& page,
                const QString& title, const QString& kind = QStringLiteral("page"));

} // namespace hearthbook
