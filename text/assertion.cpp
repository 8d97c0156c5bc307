#include "text/assertion.h"

#include <utility>

namespace kvez {
namespace {

AssertionHandler theHandler = nullptr;

}  // namespace

AssertionHandler SetAssertionHandler(AssertionHandler handler) { return std::exchange(theHandler, handler); }

void AssertionFails(const char* what) {
  if (theHandler != nullptr) theHandler(what);
}

}  // namespace kvez
