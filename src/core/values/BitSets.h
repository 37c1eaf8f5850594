// The operators of the framework's bit sets, where argument-dependent look-up finds them.
#pragma once

#include "utils/BitSet.h"

namespace kzo::core {

using utils::operator|;
using utils::operator&;
using utils::operator^;
using utils::operator|=;
using utils::operator^=;
using utils::any;
using utils::bits;

} // namespace kzo::core
