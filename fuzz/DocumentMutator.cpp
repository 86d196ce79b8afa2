// Changes documents by whole elements and names, where bytes alone would hardly ever leave one that
// reads to its end. Part of the fuzzer alone.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "FuzzSupport.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

// A part of a document: an element with all that is in it, or what stands between quotes.
struct TPart {
  std::size_t begin;
  std::size_t size;
};

// Behind the element that begins there; npos when it has no end.
std::size_t EndOfElement(const std::string& text, std::size_t begin) {
  int depth = 0;
  for (std::size_t tag = begin; tag != std::string::npos; tag = text.find('<', tag)) {
    const std::size_t end = text.find('>', tag);
    if (end == std::string::npos) break;
    const bool isEnd = text[tag + 1] == '/';
    const bool isEmpty = text[end - 1] == '/' || text[tag + 1] == '!' || text[tag + 1] == '?';
    depth += isEnd ? -1 : isEmpty ? 0 : 1;
    if (depth <= 0) return end + 1;
    tag = end;
  }
  return std::string::npos;
}

std::vector<TPart> ElementsOf(const std::string& text) {
  std::vector<TPart> elements;
  for (std::size_t begin = text.find('<'); begin != std::string::npos;
       begin = text.find('<', begin + 1)) {
    if (text.compare(begin, 2, "</") == 0) continue;
    const std::size_t end = EndOfElement(text, begin);
    if (end != std::string::npos) elements.push_back({begin, end - begin});
  }
  return elements;
}

std::vector<TPart> QuotedOf(const std::string& text) {
  std::vector<TPart> quoted;
  std::size_t begin = text.find('"');
  while (begin != std::string::npos) {
    const std::size_t end = text.find('"', begin + 1);
    if (end == std::string::npos) break;
    quoted.push_back({begin, end + 1 - begin});
    begin = text.find('"', end + 1);
  }
  return quoted;
}

template <typename TDice>
std::string Change(const std::string& text, TDice& dice) {
  const unsigned int way = dice() % 4;
  const std::vector<TPart> parts = way == 0 ? QuotedOf(text) : ElementsOf(text);
  if (parts.size() < 2) return text;
  const TPart& source = parts[dice() % parts.size()];
  const TPart& target = parts[dice() % parts.size()];
  const std::string part = way == 1 ? "" : text.substr(source.begin, source.size);
  std::string changed = text;
  return changed.replace(target.begin, way == 2 ? 0 : target.size, part);
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
  std::minstd_rand dice(seed);
  if (dice() % 2 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  const std::string changed = Change(std::string(data, data + size), dice);
  if (changed.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::copy(changed.begin(), changed.end(), data);
  return changed.size();
}
