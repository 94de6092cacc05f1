#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

enum class TokenKind {
  Word,   ///< a keyword or a bare name
  Name,   ///< a quoted name: [x], `x`, "x"
  Text,   ///< a quoted text: 'x'
  Number, ///< begins with a digit
  Mark,   ///< one other character
  Blank,  ///< blanks and comments
};

struct Token {
  TokenKind kind = TokenKind::Mark;
  std::string text;   ///< as it stands, quotes included
  bool closed = true; ///< false where the closing quote is missing
};

/// Takes a statement or a criterion apart; the texts of the tokens together are the statement.
std::vector<Token> sqlTokens(std::string_view statement);

std::string joined(const std::vector<Token>& tokens);

/// True for that bare word, in any case.
bool isWord(const Token& token, std::string_view word);
bool isMark(const Token& token, char mark);
bool isName(const Token& token); ///< a word or a quoted name

/// The index of the first token from `from` on that is no blank, or the number of tokens.
std::size_t solidFrom(const std::vector<Token>& tokens, std::size_t from);

/// The text or the name without its quotes, doubled quotes made single.
std::string unquoted(const Token& token);

/// In double quotes, as SQLite takes any name.
std::string quotedName(std::string_view name);

} // namespace hearthbook
