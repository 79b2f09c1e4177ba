#pragma once

#include "fuzz/Bytes.h"

#include <boost/any.hpp>

namespace kt::fuzz
{

/// A value of one of many types; the input says which, and what it holds. A third of them are strings, a
/// third lists of strings. Behind the end of the input it is empty.
boost::any anyValue(Bytes& bytes);

} // namespace kt::fuzz
