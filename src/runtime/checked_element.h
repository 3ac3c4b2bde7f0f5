#pragma once

#include "runtime/invalid_parameter.h"

#include <cstddef>
#include <vector>

/// The element at `index`. An index outside of the vector, below 0 included, leaves by
/// RaiseInvalidParameter: there is no way back into the caller.
template <typename Element>
const Element& CheckedElement(const std::vector<Element>& elements, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= elements.size()) RaiseInvalidParameter();
    return elements[static_cast<std::size_t>(index)];
}
