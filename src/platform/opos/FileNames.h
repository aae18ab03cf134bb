// File names for things whose names may hold any character.
#pragma once

#include <string>
#include <string_view>

// Letters, digits and hyphens stand for themselves, any other byte for "%" and its two hexadecimal digits: different
// names give different file names. At most 200 characters; a longer one ends in a number made of the whole name.
[[nodiscard]] std::string FileNameFor(std::string_view name);
