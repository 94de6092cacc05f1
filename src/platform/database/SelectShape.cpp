#include "SelectShape.h"

#include "SqlTokens.h"

#include <algorithm>
#include <initializer_list>

namespace hearthbook {

namespace {

using Tokens = std::vector<Token>;

bool isAnyWord(const Token& token, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return isWord(token, word); });
}

bool isAggregate(const Tokens& tokens, std::size_t at) {
  const std::size_t next = solidFrom(tokens, at + 1);
  return next < tokens.size() && isMark(tokens[next], '(') &&
         isAnyWord(tokens[at], {"count", "max", "min", "sum", "avg", "total", "group_concat"});
}

/// The places of the tokens that stand in no bracket.
std::vector<std::size_t> outermost(const Tokens& tokens) {
  std::vector<std::size_t> places;
  int depth = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    depth -= isMark(tokens[i], ')') ? 1 : 0;
    if (depth == 0 && tokens[i].kind != TokenKind::Blank)
      places.push_back(i);
    depth += isMark(tokens[i], '(') ? 1 : 0;
  }
  return places;
}

bool readsRowByRow(const Tokens& tokens, const std::vector<std::size_t>& outer) {
  const bool isSelect = !outer.empty() && isWord(tokens[outer[0]], "select");
  if (!isSelect || (outer.size() > 1 && isWord(tokens[outer[1]], "distinct")))
    return false;
  for (const std::size_t i : outer)
    if (isAnyWord(tokens[i], {"group", "having", "union", "intersect", "except"}))
      return false;
  for (std::size_t i = 0; i < tokens.size() && !isWord(tokens[i], "from"); ++i)
    if (isAggregate(tokens, i))
      return false;
  return true;
}

bool startsClause(const Token& token) {
  return isMark(token, ';') || isAnyWord(token, {"where", "order", "limit"});
}

std::string soleTable(const Tokens& tokens, const std::vector<std::size_t>& outer) {
  auto at = [&](std::size_t i) { return i < outer.size() ? tokens[outer[i]] : Token{}; };
  std::size_t from = 0;
  while (from < outer.size() && !isWord(tokens[outer[from]], "from"))
    ++from;
  const Token table = at(from + 1);
  std::size_t behind = from + 2;
  if (isWord(at(behind), "as"))
    ++behind;
  if (isName(at(behind)) && !startsClause(at(behind)))
    ++behind; // another name for the table
  const bool ends = behind >= outer.size() || startsClause(at(behind));
  return isName(table) && ends ? unquoted(table) : std::string();
}

} // namespace

SelectShape selectShape(std::string_view select) {
  const Tokens tokens = sqlTokens(select);
  const auto outer = outermost(tokens);
  SelectShape shape;
  shape.plain = readsRowByRow(tokens, outer);
  shape.ordered = std::any_of(outer.begin(), outer.end(),
                              [&](std::size_t i) { return isWord(tokens[i], "order"); });
  shape.soleTable = shape.plain ? soleTable(tokens, outer) : std::string();
  return shape;
}

std::string withColumn(std::string_view select, std::string_view table, std::string_view field) {
  Tokens tokens = sqlTokens(select);
  std::size_t word = solidFrom(tokens, 0);
  const std::size_t second = solidFrom(tokens, word + 1);
  if (second < tokens.size() && isWord(tokens[second], "all"))
    word = second;
  tokens[word].text.append(" ").append(quotedName(table)).append(".");
  tokens[word].text.append(quotedName(field)).append(",");
  return joined(tokens);
}

std::string withOrder(std::string_view select, const std::vector<std::string>& fields) {
  Tokens tokens = sqlTokens(select);
  const auto outer = outermost(tokens);
  const bool hasCondition = std::any_of(outer.begin(), outer.end(),
                                        [&](std::size_t i) { return isWord(tokens[i], "where"); });
  std::string order;
  for (const std::string& field : fields) {
    order.append(order.empty() ? " ORDER BY " : ", ").append(hasCondition ? "+" : "");
    order.append(quotedName(field));
  }
  for (const std::size_t i : outer) {
    if (isMark(tokens[i], ';') || isWord(tokens[i], "limit")) {
      tokens[i].text = order + " " + tokens[i].text;
      return joined(tokens);
    }
  }
  return joined(tokens) + "\n" + order; // a comment at the end must not swallow it
}

std::string asSelect(std::string_view source) {
  const Tokens tokens = sqlTokens(source);
  const std::size_t name = solidFrom(tokens, 0);
  const bool alone =
      name < tokens.size() && isName(tokens[name]) && solidFrom(tokens, name + 1) == tokens.size();
  return alone ? "SELECT * FROM " + quotedName(unquoted(tokens[name])) : std::string(source);
}

} // namespace hearthbook
