#include <vskcore/cimxml/TXmlParser.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// One operation for each production of the grammar; each returns whether it read what it stands
// for. An element's content is read by recursion, so the open elements are the C++ stack itself.
// What a callback is given points into the buffer and is terminated there for the length of the
// call; ParseElement holds back the byte behind its element's name for as long as the element is
// open.
//
// Nothing looks further than the terminating NUL: it is neither space nor name nor quote, so every
// scan stops at it, and GetChar does not step over it.

namespace {

enum EByteClass : unsigned char {
  kNameStart = 1,
  kNameByte = 2,
  kSpace = 4,
  kTagEnd = 8,
  kTextEnd = 16,
  kValueEnd = 32  // whichever quote opened the value
};

using TByteClasses = std::array<unsigned char, 256>;

constexpr void Mark(TByteClasses& classes, std::string_view bytes, unsigned int byteClasses) {
  for (const char byte : bytes) {
    unsigned char& entry = classes[static_cast<unsigned char>(byte)];
    entry = static_cast<unsigned char>(entry | byteClasses);
  }
}

constexpr TByteClasses MakeByteClasses() {
  TByteClasses classes{};
  Mark(classes, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_:", kNameStart | kNameByte);
  Mark(classes, "0123456789.-", kNameByte);
  Mark(classes, " \t\r\n", kSpace);
  Mark(classes, "/>", kTagEnd);
  Mark(classes, {"<&\0", 3}, kTextEnd | kValueEnd);
  Mark(classes, "\"'", kValueEnd);
  return classes;
}

constexpr TByteClasses kByteClasses = MakeByteClasses();

bool Is(char byte, EByteClass byteClass) {
  return (kByteClasses[static_cast<unsigned char>(byte)] & byteClass) != 0;
}

// ASCII alone, whatever the locale: names hold nothing else.
char ToLower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte;
}

// -1 for what is no digit of that base.
int DigitValue(char byte, int base) {
  const char lower = ToLower(byte);
  if (lower >= '0' && lower <= '9') return lower - '0';
  return base == 16 && lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Most runs are the space between two tags, too short to pay for a call.
char* FindTextEnd(char* text) {
  const int kShortRun = 16;
  for (int count = 0; count < kShortRun; ++count, ++text) {
    if (Is(*text, kTextEnd)) return text;
  }
  return text + std::strcspn(text, "<&");
}

template <typename TWord>
bool SameWord(const char* left, const char* right) {
  TWord leftWord;
  TWord rightWord;
  std::memcpy(&leftWord, left, sizeof leftWord);
  std::memcpy(&rightWord, right, sizeof rightWord);
  return leftWord == rightWord;
}

// Equality for names of 4 to 16 bytes in two comparisons of words, which may overlap.
bool Same(std::string_view left, std::string_view right) {
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  if (size < 4 || size > 16) return left == right;
  const char* const a = left.data();
  const char* const b = right.data();
  if (size < 8) {
    return SameWord<std::uint32_t>(a, b) && SameWord<std::uint32_t>(a + size - 4, b + size - 4);
  }
  return SameWord<std::uint64_t>(a, b) && SameWord<std::uint64_t>(a + size - 8, b + size - 8);
}

// Neither is empty.
bool Less(std::string_view left, std::string_view right) {
  const auto a = static_cast<unsigned char>(left.front());
  const auto b = static_cast<unsigned char>(right.front());
  return a != b ? a < b : left < right;
}

}  // namespace

// One attribute of the tag that is being read, still in the buffer.
struct TXmlParser::TAttribute {
  std::string_view name;
  std::string_view value;
};

// Makes a map hold exactly the attributes of one tag, whatever it held before: an entry that has
// the same name is taken over, storage and all, and only what is new costs an allocation. To meet
// the map in its own order, the attributes of a usual tag are sorted first; the rest of a very
// long one goes straight into the map.
class TXmlParser::TAttributeFiller {
 public:
  void Start(TAttributes& target) {
    target_ = &target;
    count_ = 0;
    isLong_ = false;
  }

  // Where to put the next attribute, before Add.
  TAttribute& GetNext() { return few_[count_]; }

  // False if the name was there already.
  bool Add() {
    if (isLong_) return target_->emplace(GetNext().name, GetNext().value).second;
    if (!SortLast()) return false;
    if (++count_ == kFew) {
      Replace();
      isLong_ = true;
      count_ = 0;
    }
    return true;
  }

  void Finish() {
    if (!isLong_) Replace();
  }

 private:
  static constexpr std::size_t kFew = 16;

  bool SortLast() {
    if (count_ == 0 || Less(few_[count_ - 1].name, few_[count_].name)) return true;
    const TAttribute last = few_[count_];
    std::size_t place = count_;
    for (; place > 0 && !Less(few_[place - 1].name, last.name); --place) {
      if (Same(few_[place - 1].name, last.name)) return false;
      few_[place] = few_[place - 1];
    }
    few_[place] = last;
    return true;
  }

  void Replace() {
    auto place = target_->begin();
    for (std::size_t index = 0; index < count_; ++index) place = Put(place, few_[index]);
    target_->erase(place, target_->end());
  }

  // Drops old entries up to where the attribute belongs; gives the place behind it.
  TAttributes::iterator Put(TAttributes::iterator place, const TAttribute& attribute) {
    for (; place != target_->end(); place = target_->erase(place)) {
      if (Same(place->first, attribute.name)) {
        place->second.assign(attribute.value);
        return ++place;
      }
      if (attribute.name < place->first) break;
    }
    target_->emplace_hint(place, attribute.name, attribute.value);
    return place;
  }

  TAttributes* target_ = nullptr;
  std::array<TAttribute, kFew> few_;  // count_ of them, ascending by name
  std::size_t count_ = 0;
  bool isLong_ = false;
};

// The open elements' attributes, level by level. The map of an element that has ended waits for
// the next one on its level: siblings tend to be alike.
class TXmlParser::TLevels {
 public:
  bool IsFull() const { return depth_ == kMaxDepth; }
  void Enter() { ++depth_; }
  void Leave() { --depth_; }
  // Of the element that is about to be entered.
  TAttributes& GetAttributes() { return attributes_[depth_]; }
  TAttributeFiller& GetFiller() { return filler_; }

 private:
  unsigned int depth_ = 0;
  TAttributeFiller filler_;
  std::array<TAttributes, kMaxDepth> attributes_;
};

TXmlParser::TXmlParser()
    : position_(nullptr), start_(nullptr), lineMark_(nullptr), lineAtMark_(1) {}
TXmlParser::TXmlParser(const TXmlParser& other) = default;
TXmlParser& TXmlParser::operator=(const TXmlParser& other) = default;
TXmlParser::~TXmlParser() = default;

void TXmlParser::Parse(char* buffer) {
  position_ = start_ = buffer;
  lineMark_ = buffer;
  lineAtMark_ = 1;
  TLevels levels;
  ParseProlog();
  ParseElement(levels);
  while (ParseMisc()) continue;
}

unsigned int TXmlParser::GetCurLine() {
  CountLinesTo(position_);
  return lineAtMark_;
}

inline char TXmlParser::GetChar() {
  const char byte = *position_;
  if (byte != '\0') ++position_;
  return byte;
}

inline char TXmlParser::PeekChar() { return *position_; }

inline void TXmlParser::UngetChar() { --position_; }

inline bool TXmlParser::SkipWhitespace() {
  char* const first = position_;
  char* place = first;
  while (Is(*place, kSpace)) ++place;
  position_ = place;
  return place != first;
}

inline bool TXmlParser::ValidateName() {
  char* place = position_;
  if (!Is(*place, kNameStart)) return Refuse("Invalid element/attribute name");
  while (Is(*place, kNameByte)) ++place;
  position_ = place;
  return true;
}

bool TXmlParser::ParseProlog() {
  if (GetChar() != '<') return Refuse("Unexpected character before prolog");
  const char next = PeekChar();
  UngetChar();
  if (next != '?') return false;
  ParseXMLDecl();
  while (ParseMisc()) continue;
  if (position_[0] != '<' || position_[1] != '!') return true;
  ParseDocTypeDecl();
  while (ParseMisc()) continue;
  return true;
}

bool TXmlParser::ParseXMLDecl() { return SkipPast("?>"); }

bool TXmlParser::ParseMisc() {
  if (PeekChar() != '<') return SkipWhitespace();
  if (position_[1] == '?') return ParseProcessingInstruction();
  if (position_[1] == '!' && position_[2] == '-') return SkipComment();
  return false;
}

bool TXmlParser::ParseDocTypeDecl() {
  for (const char expected : {'<', '!', 'D', 'O', 'C', 'T', 'Y', 'P', 'E'}) {
    if (GetChar() != expected) return Refuse("Unexpected character in doctypedecl");
  }
  if (!SkipPast(">")) return false;
  SkipWhitespace();
  return true;
}

bool TXmlParser::ParseProcessingInstruction() {
  if (!SkipPast("?>")) return false;
  processingInstruction("TBD", "TBD");
  return true;
}

bool TXmlParser::ParseNotationDecl() {
  if (!SkipPast(">")) return false;
  notationDecl("TBD", "TBD", "TBD");
  return true;
}

bool TXmlParser::SkipComment() {
  if (std::strncmp(position_, "<!--", 4) != 0) return false;
  position_ += 4;
  return SkipPast("-->");
}

bool TXmlParser::ParseElement(TLevels& levels) {
  if (GetChar() != '<') return Refuse("Unexpected character before element");
  if (levels.IsFull()) return Refuse("Elements nested too deeply");
  char* const name = position_;
  if (!ValidateName()) return false;
  char* const nameEnd = position_;
  TAttributes none;
  TAttributes* attributes = &none;
  if (SkipWhitespace() && !Is(PeekChar(), kTagEnd)) {
    attributes = &levels.GetAttributes();
    if (!ParseAttributes(levels.GetFiller(), *attributes)) return false;
  }
  const bool isEmpty = PeekChar() == '/';
  if (isEmpty) GetChar();
  if (GetChar() != '>') return Refuse("Unexpected character before end of element");

  const char heldBack = *nameEnd;
  if (heldBack == '\n') CountLinesTo(nameEnd + 1);  // while it can still be seen
  *nameEnd = '\0';
  levels.Enter();
  StartElement(name, *attributes);
  bool isComplete = true;
  if (isEmpty) {
    EndElement(name);
  } else {
    isComplete = ParseContent(levels, name);
  }
  levels.Leave();
  *nameEnd = heldBack;
  return isComplete;
}

// At least one, from its name to the end of the tag.
bool TXmlParser::ParseAttributes(TAttributeFiller& filler, TAttributes& attributes) {
  filler.Start(attributes);
  do {
    if (!ParseAttribute(filler.GetNext())) return false;
    if (!filler.Add()) return Refuse("Attribute appears twice");
  } while (SkipWhitespace() && !Is(PeekChar(), kTagEnd));
  filler.Finish();
  return true;
}

inline bool TXmlParser::ParseAttribute(TAttribute& attribute) {
  char* const name = position_;
  if (!ValidateName()) return false;
  char* const nameEnd = position_;
  SkipWhitespace();
  if (GetChar() != '=') {
    return Refuse("Unexpected character between attribute name and value");
  }
  SkipWhitespace();
  const char quote = GetChar();
  if (quote != '\'' && quote != '"') {
    return Refuse("Unexpected character after equals of attribute name");
  }
  const char* const value = position_;
  if (!ParseAttributeValue(quote)) return false;
  std::transform(name, nameEnd, name, ToLower);
  attribute.name = {name, static_cast<std::size_t>(nameEnd - name)};
  attribute.value = {value, static_cast<std::size_t>(position_ - 1 - value)};
  return true;
}

// Reads on until behind the closing quote.
inline bool TXmlParser::ParseAttributeValue(char quote) {
  char* place = position_;
  while (true) {
    while (!Is(*place, kValueEnd)) ++place;
    if (*place != '\'' && *place != '"') break;
    if (*place++ == quote) {
      position_ = place;
      return true;
    }
  }
  position_ = place;
  if (GetChar() == '\0') return Refuse("Unterminated attribute value");
  return Refuse("Unexpected character in attribute value");
}

bool TXmlParser::ParseContent(TLevels& levels, const char* name) {
  while (true) {
    ParseCharData();
    if (GetChar() != '<') return Refuse("Unexpected character where element expected");
    const char next = PeekChar();
    if (next == '/') return ParseEndTag(name);
    UngetChar();
    const bool wasRead = next == '?'   ? ParseProcessingInstruction()
                         : next == '!' ? SkipComment()
                                       : ParseElement(levels);
    if (!wasRead) return false;
  }
}

// From its "/" on.
inline bool TXmlParser::ParseEndTag(const char* name) {
  GetChar();
  if (!ConsumeName(name)) {
    return ValidateName() && Refuse("Start and end element names don't match");
  }
  SkipWhitespace();
  if (GetChar() != '>') return Refuse("Unexpected character before end of element");
  EndElement(name);
  return true;
}

// True, and behind the name, if it stands here and ends here.
inline bool TXmlParser::ConsumeName(const char* name) {
  char* place = position_;
  for (; *name != '\0' && *place == *name; ++name) ++place;
  if (*name != '\0' || Is(*place, kNameByte)) return false;
  position_ = place;
  return true;
}

bool TXmlParser::ParseCharData() {
  bool hasDelivered = false;
  while (true) {
    char* const text = position_;
    char* const end = FindTextEnd(text);
    const char heldBack = *end;
    if (end != text) {
      position_ = end;
      *end = '\0';
      characters(text, static_cast<unsigned int>(end - text));
      *end = heldBack;
      hasDelivered = true;
    }
    if (heldBack != '&') return hasDelivered;
    hasDelivered = true;
    ParseReference();
  }
}

bool TXmlParser::ParseReference() {
  static constexpr struct {
    const char* name;
    char byte;
  } kEntities[] = {{"amp;", '&'}, {"apos;", '\''}, {"gt;", '>'}, {"lt;", '<'}, {"quot;", '"'}};

  GetChar();
  if (PeekChar() == '#') return ParseNumericReference();
  for (const auto& entity : kEntities) {
    if (!ConsumeEntityName(entity.name)) continue;
    DeliverByte(entity.byte);
    return true;
  }
  return Refuse("Unknown entity reference");
}

// The value lives in one byte: what does not fit is lost at each digit.
bool TXmlParser::ParseNumericReference() {
  GetChar();
  const int base = ToLower(PeekChar()) == 'x' ? 16 : 10;
  if (base == 16) GetChar();
  const char* const digits = position_;
  unsigned char value = 0;
  while (PeekChar() != ';') {
    const int digit = DigitValue(GetChar(), base);
    if (digit < 0) return Refuse("Unknown entity reference");
    value = static_cast<unsigned char>(value * base + digit);
  }
  if (position_ == digits) return Refuse("Invalid hex character");
  GetChar();
  DeliverByte(static_cast<char>(value));
  return true;
}

// True, and behind the name, if it stands here in any case of letters.
bool TXmlParser::ConsumeEntityName(const char* name) {
  char* place = position_;
  for (; *name != '\0'; ++name, ++place) {
    if (ToLower(*place) != *name) return false;
  }
  position_ = place;
  return true;
}

void TXmlParser::DeliverByte(char byte) {
  const char text[] = {byte, '\0'};
  characters(text, 1);
}

// Behind the first occurrence of text; false, and nothing moves, if there is none.
bool TXmlParser::SkipPast(const char* text) {
  char* const found = std::strstr(position_, text);
  if (found == nullptr) return false;
  position_ = found + std::strlen(text);
  return true;
}

bool TXmlParser::Refuse(const char* message) {
  FatalError(message);
  return false;
}

void TXmlParser::CountLinesTo(const char* place) {
  lineAtMark_ += static_cast<unsigned int>(std::count(lineMark_, place, '\n'));
  lineMark_ = place;
}
