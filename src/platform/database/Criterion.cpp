#include "Criterion.h"

#include "RunTimeError.h"
#include "SqlTokens.h"
#include "TextNumber.h"

#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace hearthbook {

namespace {

/// Brackets within brackets, which nobody types by the hundred.
constexpr int deepest = 100;

class Parser {
public:
  explicit Parser(std::string_view text) : text_(text), tokens_(sqlTokens(text)) { skipBlanks(); }

  Criterion run() {
    Criterion criterion = any();
    if (!atEnd())
      fail();
    return criterion;
  }

private:
  Criterion any() { return joinedBy("or", Criterion::Kind::Any, &Parser::all); }
  Criterion all() { return joinedBy("and", Criterion::Kind::All, &Parser::part); }

  Criterion joinedBy(std::string_view word, Criterion::Kind kind, Criterion (Parser::*next)()) {
    Criterion first = (this->*next)();
    if (atEnd() || !isWord(token(), word))
      return first;
    Criterion group;
    group.kind = kind;
    group.parts.push_back(std::move(first));
    while (!atEnd() && isWord(token(), word)) {
      advance();
      group.parts.push_back((this->*next)());
    }
    return group;
  }

  Criterion part() {
    if (!takeMark('('))
      return comparison();
    if (++depth_ > deepest)
      fail();
    Criterion inner = any();
    --depth_;
    if (!takeMark(')'))
      fail();
    return inner;
  }

  Criterion comparison() {
    Criterion one;
    one.comparison.field = field();
    one.comparison.op = comparing();
    one.comparison.value = value();
    const bool tests = one.comparison.op == Comparison::Operator::Equal ||
                       one.comparison.op == Comparison::Operator::Unequal;
    if (one.comparison.value.isNull() && !tests)
      fail();
    return one;
  }

  std::string field() {
    if (atEnd() || !isName(token()) || !token().closed)
      fail();
    return unquoted(take());
  }

  Comparison::Operator comparing() {
    using Operator = Comparison::Operator;
    if (!atEnd() && isWord(token(), "like")) {
      advance();
      return Operator::Like;
    }
    if (takeMark('='))
      return Operator::Equal;
    if (takeMark('<'))
      return takeMark('>') ? Operator::Unequal : takeMark('=') ? Operator::AtMost : Operator::Less;
    if (takeMark('>'))
      return takeMark('=') ? Operator::AtLeast : Operator::More;
    fail();
  }

  Value value() {
    const bool negative = takeMark('-');
    if (atEnd())
      fail();
    if (token().kind == TokenKind::Number)
      return number(negative);
    if (!negative && token().kind == TokenKind::Text && token().closed)
      return unquoted(take());
    if (!negative && isWord(token(), "null")) {
      advance();
      return {};
    }
    fail();
  }

  Value number(bool negative) {
    const auto number = wholeNumberOrReal((negative ? "-" : "") + take().text);
    if (!number)
      fail();
    return *number;
  }

  [[nodiscard]] bool atEnd() const { return at_ >= tokens_.size(); }
  [[nodiscard]] const Token& token() const { return tokens_[at_]; }

  void skipBlanks() { at_ = solidFrom(tokens_, at_); }

  void advance() {
    ++at_;
    skipBlanks();
  }

  Token take() {
    Token taken = token();
    advance();
    return taken;
  }

  bool takeMark(char mark) {
    if (atEnd() || !isMark(token(), mark))
      return false;
    advance();
    return true;
  }

  [[noreturn]] void fail() const {
    throw RunTimeError("The criterion cannot be understood: " + std::string(text_));
  }

  std::string_view text_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

} // namespace

Criterion parseCriterion(std::string_view text) { return Parser(text).run(); }

} // namespace hearthbook
