#pragma once

#include <memory>

/// A reference-counted pointer: what it points to goes with the last one.
template <class T>
using autoref_ptr = std::shared_ptr<T>;
