#include "Printable.h"

#include <algorithm>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

unsigned char Byte(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// The lead byte says how long a sequence is and, with it, from where on the second byte counts:
// below lie longer spellings of shorter sequences, surrogates, and what is beyond U+10FFFF.
struct TLead {
  unsigned char first, last;
  std::size_t length;
  unsigned char secondFirst, secondLast;
};

constexpr TLead kLeads[] = {
    {0x00, 0x7F, 1, 0, 0},       {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool Fits(const TLead& lead, std::string_view text) {
  if (Byte(text, 0) < lead.first || Byte(text, 0) > lead.last) return false;
  if (text.size() < lead.length) return false;
  if (lead.length > 1 && (Byte(text, 1) < lead.secondFirst || Byte(text, 1) > lead.secondLast)) {
    return false;
  }
  for (std::size_t at = 2; at < lead.length; ++at) {
    if ((Byte(text, at) & 0xC0) != 0x80) return false;
  }
  return true;
}

// 0 when the text does not begin with valid UTF-8.
std::size_t SequenceLength(std::string_view text) {
  for (const TLead& lead : kLeads) {
    if (Fits(lead, text)) return lead.length;
  }
  return 0;
}

bool IsControl(std::string_view sequence) {
  const unsigned char first = Byte(sequence, 0);
  if (sequence.size() == 1) return first < 0x20 || first == 0x7F;
  return first == 0xC2 && Byte(sequence, 1) < 0xA0;
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string printable;
  printable.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    const std::string_view sequence = text.substr(0, std::max<std::size_t>(length, 1));
    text.remove_prefix(sequence.size());
    if (length == 0) {
      printable += kReplacement;
    } else if (IsControl(sequence)) {
      printable += ' ';
    } else {
      printable += sequence;
    }
  }
  return printable;
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}
