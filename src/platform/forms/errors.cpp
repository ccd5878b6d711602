#include "platform/forms/errors.h"

namespace forms {

basic::RuntimeError objectNotSet() {
    return basic::RuntimeError(91, QStringLiteral("Object variable or With block variable not set"));
}
basic::RuntimeError invalidArrayIndex() {
    return basic::RuntimeError(381, QStringLiteral("Invalid property array index"));
}
basic::RuntimeError indexOutOfBounds() { return basic::RuntimeError(35600, QStringLiteral("Index out of bounds")); }
basic::RuntimeError elementNotFound() { return basic::RuntimeError(35601, QStringLiteral("Element not found")); }
basic::RuntimeError keyNotUnique() {
    return basic::RuntimeError(35602, QStringLiteral("Key is not unique in collection"));
}

}  // namespace forms
