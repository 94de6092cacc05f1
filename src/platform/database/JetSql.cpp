#include "JetSql.h"

#include "SqlTokens.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace hearthbook {

namespace {

using Tokens = std::vector<Token>;

/// SQLite refuses expressions that are more than 1000 deep, and every OR of a chain is one.
constexpr std::size_t longestOrChain = 400;

bool isReserved(const Token& token) {
  return token.kind == TokenKind::Word &&
         sqlite3_keyword_check(token.text.data(), static_cast<int>(token.text.size())) != 0;
}

void quote(Token& word) { word = {TokenKind::Name, "[" + word.text + "]"}; }

void quoteReservedNamesBehindDots(Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!isName(tokens[i]))
      continue;
    const std::size_t dot = solidFrom(tokens, i + 1);
    if (dot == tokens.size() || !isMark(tokens[dot], '.'))
      continue;
    const std::size_t name = solidFrom(tokens, dot + 1);
    if (name < tokens.size() && isReserved(tokens[name]))
      quote(tokens[name]);
  }
}

void erase(Tokens& tokens, std::size_t from, std::size_t to) {
  for (std::size_t i = from; i < to; ++i)
    tokens[i] = {TokenKind::Blank, ""};
}

/// `Table.Field = ...` behind SET: the table goes, and a reserved field name is quoted.
void rewordSetTarget(Tokens& tokens, std::size_t target) {
  std::size_t dot = solidFrom(tokens, target + 1);
  while (dot < tokens.size() && isMark(tokens[dot], '.')) {
    const std::size_t field = solidFrom(tokens, dot + 1);
    erase(tokens, target, field);
    target = field;
    dot = solidFrom(tokens, target + 1);
  }
  if (target < tokens.size() && isReserved(tokens[target]))
    quote(tokens[target]);
}

void rewordSetTargets(Tokens& tokens, std::size_t update) {
  bool inTargets = false;
  int depth = 0;
  for (std::size_t i = update; i < tokens.size(); ++i) {
    depth += isMark(tokens[i], '(') ? 1 : isMark(tokens[i], ')') ? -1 : 0;
    if (depth != 0)
      continue;
    if (inTargets && (isWord(tokens[i], "where") || isWord(tokens[i], "from")))
      return;
    const bool starts = !inTargets && isWord(tokens[i], "set");
    inTargets = inTargets || starts;
    const std::size_t target = solidFrom(tokens, i + 1);
    if ((starts || (inTargets && isMark(tokens[i], ','))) && target < tokens.size() &&
        isName(tokens[target]))
      rewordSetTarget(tokens, target);
  }
}

void dropStar(Tokens& tokens, std::size_t deleteWord) {
  const std::size_t star = solidFrom(tokens, deleteWord + 1);
  const std::size_t from = solidFrom(tokens, star + 1);
  if (from < tokens.size() && isMark(tokens[star], '*') && isWord(tokens[from], "from"))
    erase(tokens, star, star + 1);
}

bool endsCondition(const Token& token) {
  static constexpr std::array words{"order", "group",  "limit", "union", "intersect", "except",
                                    "from",  "select", "join",  "inner", "left",      "right",
                                    "full",  "cross",  "set",   "when",  "then",      "else"};
  return isMark(token, ',') || isMark(token, ';') ||
         (token.kind == TokenKind::Word &&
          std::any_of(words.begin(), words.end(), [&](const char* w) { return isWord(token, w); }));
}

bool startsCondition(const Token& token) {
  return isWord(token, "where") || isWord(token, "on") || isWord(token, "having");
}

/// Puts brackets round runs of terms joined by OR. A condition lies between WHERE, ON, HAVING
/// or an opening bracket and the next clause or the closing bracket.
class OrChains {
public:
  explicit OrChains(Tokens& tokens) : tokens_(tokens) {}

  bool bracket() {
    levels_.push_back({});
    for (std::size_t i = 0; i < tokens_.size(); ++i)
      look(i);
    while (!levels_.empty())
      leave(tokens_.size());
    return changed_;
  }

private:
  struct Condition {
    std::size_t first = 0;
    bool open = false;
    std::vector<std::size_t> ors;
  };

  void look(std::size_t i) {
    const Token& token = tokens_[i];
    if (isMark(token, '(') || isWord(token, "case")) {
      levels_.push_back({});
      begin(i + 1);
    } else if (isMark(token, ')') || isWord(token, "end")) {
      leave(i);
    } else if (startsCondition(token)) {
      finish(i);
      begin(i + 1);
    } else if (endsCondition(token)) {
      finish(i);
    } else if (isWord(token, "or") && levels_.back().open) {
      levels_.back().ors.push_back(i);
    }
  }

  void begin(std::size_t at) { levels_.back() = {solidFrom(tokens_, at), true, {}}; }

  void leave(std::size_t end) {
    finish(end);
    levels_.pop_back();
    if (levels_.empty() && end < tokens_.size())
      levels_.push_back({}); // a bracket too many stays the statement's own fault
  }

  void finish(std::size_t end) {
    Condition& condition = levels_.back();
    if (condition.open && condition.ors.size() > longestOrChain)
      split(condition, end);
    condition = {};
  }

  void split(const Condition& condition, std::size_t end) {
    tokens_[condition.first].text.insert(0, "(");
    for (std::size_t i = longestOrChain - 1; i < condition.ors.size(); i += longestOrChain)
      tokens_[condition.ors[i]].text = ") OR (";
    while (tokens_[end - 1].kind == TokenKind::Blank)
      --end;
    tokens_[end - 1].text += ")";
    changed_ = true;
  }

  Tokens& tokens_;
  std::vector<Condition> levels_;
  bool changed_ = false;
};

} // namespace

std::string toSqlite(std::string_view statement) {
  Tokens tokens = sqlTokens(statement);
  quoteReservedNamesBehindDots(tokens);
  const std::size_t first = solidFrom(tokens, 0);
  if (first < tokens.size() && isWord(tokens[first], "update"))
    rewordSetTargets(tokens, first);
  if (first < tokens.size() && isWord(tokens[first], "delete"))
    dropStar(tokens, first);
  while (OrChains(tokens).bracket())
    tokens = sqlTokens(joined(tokens)); // until the runs of runs are short, too
  return joined(tokens);
}

} // namespace hearthbook
