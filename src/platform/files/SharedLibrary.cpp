#include "SharedLibrary.h"

#include "RunTimeError.h"

#include <dlfcn.h>

namespace hearthbook {

SharedLibrary::SharedLibrary(const char* file, const char* purpose)
    : file_(file), library_(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {
  if (!library_)
    throw RunTimeError(std::string(purpose) + " is not there: " +
                       dlerror()); // NOLINT(concurrency-mt-unsafe): its text is the thread's own
}

void* SharedLibrary::address(const char* name) const {
  void* found = dlsym(library_, name);
  if (!found)
    throw RunTimeError(file_ + " lacks " + name + ".");
  return found;
}

} // namespace hearthbook
