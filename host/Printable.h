// Text that can't harm a terminal.
#ifndef VSKCORE_HOST_PRINTABLE_H
#define VSKCORE_HOST_PRINTABLE_H

#include <cstddef>
#include <string>
#include <string_view>

// The text with each byte that is no UTF-8 replaced by U+FFFD, and each control character, escapes
// and line ends among them, by a blank.
std::string Printable(std::string_view text);

// How many characters a printable text has.
std::size_t CountCharacters(std::string_view text);

#endif
