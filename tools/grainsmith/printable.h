// Text from files and command lines is shown to the user only through printable(), so that
// no control or non-ASCII byte ever reaches the terminal raw.
#pragma once

#include <string>
#include <string_view>

namespace grainsmith::cli {

// Printable ASCII stays as it is (a backslash is doubled); every other byte becomes \xNN.
std::string printable(std::string_view text);

}  // namespace grainsmith::cli
