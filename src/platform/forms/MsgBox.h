#pragma once

#include <QString>

namespace hearthbook {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { Ok, OkCancel, YesNo };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// A modal message. Without a title it has the program's. Escape is Cancel, No, or OK where
/// that is all there is. The text is shown as it stands, never as markup.
MsgAnswer MsgBox(const QString& text, const QString& title = {}, MsgIcon icon = MsgIcon::None,
                 MsgButtons buttons = MsgButtons::Ok);

/// A modal question with one line of text; the empty text after Cancel.
QString InputBox(const QString& prompt, const QString& title, const QString& initial = {});

/// What answers boxes; tests put a script in its place.
class BoxPlayer {
public:
  virtual ~BoxPlayer() = default;
  virtual MsgAnswer message(const QString& text, const QString& title, MsgIcon icon,
                            MsgButtons buttons) = 0;
  virtual QString input(const QString& prompt, const QString& title, const QString& initial) = 0;

  /// Puts `player` in place of the real boxes; null brings them back. Returns the former one.
  static BoxPlayer* install(BoxPlayer* player);
};

} // namespace hearthbook
