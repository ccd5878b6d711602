#pragma once
// The run-time errors that the controls raise, with the numbers and texts the windows' code expects.
#include "platform/basic/runtime_error.h"

namespace forms {

basic::RuntimeError objectNotSet();          // 91 "Object variable or With block variable not set"
basic::RuntimeError invalidArrayIndex();     // 381 "Invalid property array index"
basic::RuntimeError indexOutOfBounds();      // 35600 "Index out of bounds"
basic::RuntimeError elementNotFound();       // 35601 "Element not found"
basic::RuntimeError keyNotUnique();          // 35602 "Key is not unique in collection"

}  // namespace forms
