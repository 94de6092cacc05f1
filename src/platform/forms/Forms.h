#pragma once

#include "Form.h"

#include <functional>
#include <memory>
#include <typeindex>
#include <vector>

namespace hearthbook {

/// The one instance of each form, made at its first use.
///
/// `provide<X>(factory)` says once, in main or in a test, how X is made and from what;
/// `get<X>()` makes it if it is not loaded, runs its load() and returns it.
class Forms {
public:
  template <class X> static void provide(std::function<X*()> factory) {
    provideFactory(typeid(X), [factory] { return static_cast<Form*>(factory()); });
  }
  template <class X> static X& get() { return static_cast<X&>(getForm(typeid(X))); }
  /// The form if it is loaded, else null: never makes one.
  template <class X> static X* loaded() { return static_cast<X*>(loadedForm(typeid(X))); }

  /// The loaded forms, shown or not, in the order of loading.
  static std::vector<Form*> open();

  /// Tells all open forms, in that order, on a copy of the list, skipping what has gone. All
  /// are told even if one fails; the first failure is thrown at the end.
  static void tellRowsChanged(const RowsChanged& change);

  static void setHost(FormHost* host); ///< the frame, or null
  static FormHost* host();

  /// Unloads everything and forgets the factories (end of the process, end of a test).
  static void reset();

private:
  friend class Form;
  friend class FormHost;
  static void provideFactory(std::type_index type, std::function<Form*()> factory);
  static Form& getForm(std::type_index type);
  static Form* loadedForm(std::type_index type);
  static bool isLoaded(const Form* form);
  static void forget(Form& form);

  static void noteShown(Form& form, bool shown);
  static void cameToFront(Form& form); ///< told by the host
  static void updateFront();           ///< runs activated() if another form is in front now
  static void updateFrontSoon();       ///< when the running handler has returned
};

} // namespace hearthbook
