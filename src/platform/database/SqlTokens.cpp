#include "SqlTokens.h"

#include "Ascii.h"
#include "Words.h"

namespace hearthbook {

namespace {

bool isWordStart(char c) {
  return isAsciiLetter(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool isWordPart(char c) { return isWordStart(c) || isAsciiDigit(c) || c == '$'; }

class Lexer {
public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> run() {
    std::vector<Token> tokens;
    while (at_ < text_.size())
      tokens.push_back(next());
    return tokens;
  }

private:
  Token next() {
    const char c = text_[at_];
    if (isAsciiBlank(c))
      return take(TokenKind::Blank, isAsciiBlank);
    if (text_.substr(at_, 2) == "--")
      return upTo(TokenKind::Blank, "\n", true);
    if (text_.substr(at_, 2) == "/*")
      return upTo(TokenKind::Blank, "*/", true);
    if (c == '\'')
      return quoted(TokenKind::Text);
    if (c == '"' || c == '`')
      return quoted(TokenKind::Name);
    if (c == '[')
      return upTo(TokenKind::Name, "]", false);
    if (isAsciiDigit(c))
      return take(TokenKind::Number, [](char d) { return isWordPart(d) || d == '.'; });
    if (isWordStart(c))
      return take(TokenKind::Word, isWordPart);
    return ended(TokenKind::Mark, at_ + 1, true);
  }

  template <typename Belongs> Token take(TokenKind kind, Belongs belongs) {
    std::size_t end = at_;
    while (end < text_.size() && belongs(text_[end]))
      ++end;
    return ended(kind, end, true);
  }

  Token upTo(TokenKind kind, std::string_view closing, bool mayStayOpen) {
    const std::size_t found = text_.find(closing, at_ + 1);
    if (found == std::string_view::npos)
      return ended(kind, text_.size(), mayStayOpen);
    return ended(kind, found + closing.size(), true);
  }

  Token quoted(TokenKind kind) {
    const char quote = text_[at_];
    std::size_t end = at_ + 1;
    while (end < text_.size()) {
      if (text_[end] != quote) {
        ++end;
      } else if (end + 1 < text_.size() && text_[end + 1] == quote) {
        end += 2;
      } else {
        return ended(kind, end + 1, true);
      }
    }
    return ended(kind, text_.size(), false);
  }

  Token ended(TokenKind kind, std::size_t end, bool closed) {
    Token token{kind, std::string(text_.substr(at_, end - at_)), closed};
    at_ = end;
    return token;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

} // namespace

std::vector<Token> sqlTokens(std::string_view statement) { return Lexer(statement).run(); }

std::string joined(const std::vector<Token>& tokens) {
  std::string statement;
  for (const Token& token : tokens)
    statement += token.text;
  return statement;
}

bool isWord(const Token& token, std::string_view word) {
  return token.kind == TokenKind::Word && sameIgnoringCase(token.text, word);
}

bool isMark(const Token& token, char mark) {
  return token.kind == TokenKind::Mark && token.text[0] == mark;
}

bool isName(const Token& token) {
  return token.kind == TokenKind::Word || token.kind == TokenKind::Name;
}

std::size_t solidFrom(const std::vector<Token>& tokens, std::size_t from) {
  while (from < tokens.size() && tokens[from].kind == TokenKind::Blank)
    ++from;
  return from;
}

std::string unquoted(const Token& token) {
  const bool isQuoted = token.kind == TokenKind::Text || token.kind == TokenKind::Name;
  if (!isQuoted)
    return token.text;
  const char closing = token.text[0] == '[' ? ']' : token.text[0];
  std::string text;
  const std::size_t end = token.text.size() - (token.closed ? 1 : 0);
  for (std::size_t i = 1; i < end; ++i) {
    text += token.text[i];
    if (token.text[i] == closing)
      ++i;
  }
  return text;
}

std::string quotedName(std::string_view name) { return '"' + doubled(name, '"') + '"'; }

} // namespace hearthbook
