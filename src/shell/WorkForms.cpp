#include "WorkForms.h"

#include "Forms.h"

#include <algorithm>

namespace hearthbook {

namespace {

// The frame is the first of all forms; Forms does not list it.
constexpr std::size_t frame = 1;

bool isLoaded(const Form* form) {
  const auto open = Forms::open();
  return std::find(open.begin(), open.end(), form) != open.end();
}

bool isStartup(const Form& form) { return form.kind() == Form::Kind::Backdrop; }

} // namespace

bool closeWorkForms() {
  std::size_t index = 2;
  for (auto open = Forms::open(); frame + open.size() > 2; open = Forms::open()) {
    if (index - frame >= open.size())
      break;
    Form* form = open[index - frame];
    if (isStartup(*form)) {
      ++index;
      continue;
    }
    if (!form->Unload())
      return false;
    --index;
  }
  return true;
}

bool closeWorkFormsTopmostFirst() {
  const auto open = Forms::open();
  for (auto form = open.rbegin(); form != open.rend(); ++form)
    if (isLoaded(*form) && !isStartup(**form) && !(*form)->Unload())
      return false;
  return true;
}

} // namespace hearthbook
