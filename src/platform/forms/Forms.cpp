#include "Forms.h"

#include "Guard.h"
#include "NestedLoop.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

namespace hearthbook {

namespace {

struct LoadedForm {
  std::type_index type;
  Form* form;
};

struct Registry {
  std::map<std::type_index, std::function<Form*()>> factories;
  std::vector<LoadedForm> loaded;  ///< in the order of loading
  std::vector<Form*> shownWindows; ///< dialogs and unhosted forms, the topmost last
  FormHost* host = nullptr;
  Form* front = nullptr; ///< whose activated() ran last
};

Registry& registry() {
  static Registry forms;
  return forms;
}

Form* frontForm() {
  if (!registry().shownWindows.empty())
    return registry().shownWindows.back();
  return registry().host ? registry().host->activeForm() : nullptr;
}

} // namespace

void Forms::provideFactory(std::type_index type, std::function<Form*()> factory) {
  registry().factories[type] = std::move(factory);
}

Form& Forms::getForm(std::type_index type) {
  if (Form* form = loadedForm(type))
    return *form;
  const auto factory = registry().factories.find(type);
  if (factory == registry().factories.end())
    throw std::logic_error(std::string("nobody provides the form ") + type.name());
  std::unique_ptr<Form> form(factory->second());
  registry().loaded.push_back({type, form.get()});
  form->load(); // it may ask for itself: it is in the list; if it throws it is forgotten
  return *form.release();
}

Form* Forms::loadedForm(std::type_index type) {
  const auto& loaded = registry().loaded;
  const auto found = std::ranges::find(loaded, type, &LoadedForm::type);
  return found == loaded.end() ? nullptr : found->form;
}

bool Forms::isLoaded(const Form* form) {
  return std::ranges::count(registry().loaded, form, &LoadedForm::form) > 0;
}

std::vector<Form*> Forms::open() {
  std::vector<Form*> forms;
  for (const LoadedForm& entry : registry().loaded)
    forms.push_back(entry.form);
  return forms;
}

void Forms::tellRowsChanged(const RowsChanged& change) {
  std::exception_ptr firstFailure;
  for (Form* form : open()) {
    if (!isLoaded(form))
      continue;
    try {
      form->rowsChanged(change);
    } catch (...) {
      if (!firstFailure)
        firstFailure = std::current_exception();
    }
  }
  if (firstFailure)
    std::rethrow_exception(firstFailure);
}

void Forms::setHost(FormHost* host) { registry().host = host; }

FormHost* Forms::host() { return registry().host; }

void Forms::reset() {
  while (!registry().loaded.empty()) {
    Form* form = registry().loaded.back().form;
    passOver([form] { form->Unload(); });
    if (isLoaded(form)) // it refuses, but this is the end
      delete form;
  }
  registry().factories.clear();
  if (NestedLoop::depth() == 0)
    NestedLoop::deleteAllNow();
}

void Forms::forget(Form& form) {
  std::erase_if(registry().loaded, [&](const LoadedForm& entry) { return entry.form == &form; });
  std::erase(registry().shownWindows, &form);
  if (registry().front == &form)
    registry().front = nullptr;
}

void Forms::noteShown(Form& form, bool shown) {
  std::erase(registry().shownWindows, &form);
  if (shown && !form.isHosted() && form.kind() != Form::Kind::Aside)
    registry().shownWindows.push_back(&form);
}

void Forms::cameToFront(Form& form) {
  if (!registry().shownWindows.empty() || registry().front == &form)
    return;
  registry().front = &form;
  guarded([&form] { form.activated(); });
}

void Forms::updateFront() {
  Form* front = frontForm();
  if (front == registry().front)
    return;
  registry().front = front;
  if (front)
    guarded([front] { front->activated(); });
}

void Forms::updateFrontSoon() {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [] { updateFront(); }, Qt::QueuedConnection);
}

} // namespace hearthbook
