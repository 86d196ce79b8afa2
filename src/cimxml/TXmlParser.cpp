#include <vskcore/cimxml/TXmlParser.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

// One operation for each production of the grammar; each returns whether it read what it stands
// for. ParseElement reads the root element with all that is in it, tag by tag, and TLevels holds
// the elements that are open.
// What a callback is given points into the buffer and is terminated there for the length of the
// call; the byte behind an element's name is held back for as long as the element is open.
//
// Nothing looks further than the terminating NUL: it is neither space nor name nor quote, so every
// scan stops at it, and GetChar does not step over it. Scans that take eight bytes at once keep
// ahead of limit_, which LookAhead moves on, and go byte by byte from there.

namespace {

enum EByteClass : unsigned char {
  kNameStart = 1,
  kNameByte = 2,
  kSpace = 4,
  kTagEnd = 8,
  kTextEnd = 16
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
  Mark(classes, {"<&\0", 3}, kTextEnd);
  return classes;
}

constexpr std::ptrdiff_t kLookAhead = 4096;

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

// Eight bytes, the first one lowest, whatever the machine's byte order.
using TWord = std::uint64_t;
constexpr std::ptrdiff_t kWordSize = sizeof(TWord);
constexpr TWord kOnes = ~TWord{0} / 255;

TWord LoadWord(const char* place) {
  TWord word = 0;
  for (std::size_t index = 0; index < sizeof word; ++index) {
    word |= TWord{static_cast<unsigned char>(place[index])} << (8 * index);
  }
  return word;
}

// The high bit is set in the first byte that is one of those sought, and in none ahead of it; 0
// without any. What is sought is ASCII, so bytes with a high bit of their own don't count.
template <typename... TBytes>
constexpr TWord MarkBytes(TWord word, TBytes... sought) {
  const TWord borrows = (... | ((word ^ (kOnes * static_cast<unsigned char>(sought))) - kOnes));
  return borrows & ~word & (kOnes << 7);
}

std::size_t GetFirst(TWord marks) { return static_cast<unsigned int>(__builtin_ctzll(marks)) / 8; }

// "<", "&" or the end. Most runs are a line feed between two tags, or short; strcspn is faster on
// long ones, but a call of it has to pay off.
char* FindTextEnd(char* place, const char* limit) {
  constexpr int kFewWords = 4;
  if (limit - place > 1 && place[1] == '<' && !Is(place[0], kTextEnd)) return place + 1;
  for (int words = 0; words < kFewWords && limit - place >= kWordSize; ++words) {
    const TWord word = LoadWord(place);
    const TWord marks = MarkBytes(word, '<', '&');
    if (marks != 0) return place + GetFirst(marks);
    place += kWordSize;
  }
  return place + std::strcspn(place, "<&");
}

// The closing quote, or what may not stand ahead of it.
char* FindValueEnd(char* place, const char* limit, char quote) {
  for (; limit - place >= kWordSize; place += kWordSize) {
    const TWord word = LoadWord(place);
    const TWord marks = MarkBytes(word, quote, '<', '&');
    if (marks != 0) return place + GetFirst(marks);
  }
  while (*place != quote && !Is(*place, kTextEnd)) ++place;
  return place;
}

template <typename TPart>
bool SamePart(const char* left, const char* right) {
  TPart leftPart;
  TPart rightPart;
  std::memcpy(&leftPart, left, sizeof leftPart);
  std::memcpy(&rightPart, right, sizeof rightPart);
  return leftPart == rightPart;
}

// Equality for names of 4 to 16 bytes in two comparisons, whose parts may overlap.
inline bool Same(std::string_view left, std::string_view right) {
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  if (size < 4 || size > 16) return left == right;
  const char* const a = left.data();
  const char* const b = right.data();
  if (size < 8) {
    return SamePart<std::uint32_t>(a, b) && SamePart<std::uint32_t>(a + size - 4, b + size - 4);
  }
  return SamePart<std::uint64_t>(a, b) && SamePart<std::uint64_t>(a + size - 8, b + size - 8);
}

// Like assign, but without a call when the text was no shorter.
void Assign(std::string& text, std::string_view value) {
  if (text.size() < value.size()) {
    text.assign(value);
    return;
  }
  value.copy(text.data(), value.size());
  text.erase(value.size());
}

// Names differ early: a call of memcmp would cost more than the bytes it compares.
bool Less(std::string_view left, std::string_view right) {
  const std::size_t size = std::min(left.size(), right.size());
  for (std::size_t index = 0; index < size; ++index) {
    if (left[index] != right[index]) return left[index] < right[index];
  }
  return left.size() < right.size();
}

}  // namespace

// One attribute of the tag that is being read, still in the buffer.
struct TXmlParser::TAttribute {
  std::string_view name;
  std::string_view value;
};

// One level of open elements. Its attribute maps outlive the element: siblings tend to be alike.
// Which map a tag takes depends on the length of its attributes' names taken together: tags that
// are alike share one, and most others don't.
struct TXmlParser::TLevel {
  TAttributes& GetMap(std::size_t length) { return (*maps)[length % maps->size()]; }

  using TMaps = std::array<TAttributes, 16>;
  std::unique_ptr<TMaps> maps = std::make_unique<TMaps>();
  char* name = nullptr;  // of the open element
  char* nameEnd = nullptr;
  char heldBack = 0;  // what stands at nameEnd otherwise
};

// Makes a map hold exactly the attributes of one tag, whatever it held before: an entry that has
// the same name is taken over, what is left over is kept for later ones, and so a document soon
// costs no allocations. To meet the map in its own order, the attributes of a usual tag are sorted
// first; the rest of a very long one goes straight into the map.
class TXmlParser::TAttributeFiller {
 public:
  void Start(TLevel& level) {
    level_ = &level;
    target_ = nullptr;
    count_ = 0;
    length_ = 0;
  }

  // Where to put the next attribute, before Add.
  TAttribute& GetNext() { return few_[count_]; }

  // False if the name was there already.
  bool Add() {
    if (target_ != nullptr) return target_->emplace(GetNext().name, GetNext().value).second;
    length_ += GetNext().name.size();
    if (!SortLast()) return false;
    if (++count_ == kFew) {
      target_ = &level_->GetMap(length_);
      Replace();
      count_ = 0;
    }
    return true;
  }

  TAttributes& Finish() {
    if (target_ == nullptr) {
      target_ = &level_->GetMap(length_);
      if (count_ > 0 || !target_->empty()) Replace();
    }
    return *target_;
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
    while (place != target_->end()) place = Drop(place);
  }

  // Drops old entries up to where the attribute belongs; gives the place behind it.
  TAttributes::iterator Put(TAttributes::iterator place, const TAttribute& attribute) {
    for (; place != target_->end(); place = Drop(place)) {
      if (Same(place->first, attribute.name)) {
        Assign(place->second, attribute.value);
        return ++place;
      }
      if (attribute.name < place->first) break;
    }
    Insert(place, attribute);
    return place;
  }

  TAttributes::iterator Drop(TAttributes::iterator place) {
    const auto next = std::next(place);
    spare_.push_back(target_->extract(place));
    return next;
  }

  void Insert(TAttributes::iterator place, const TAttribute& attribute) {
    if (spare_.empty()) {
      target_->emplace_hint(place, attribute.name, attribute.value);
      return;
    }
    TAttributes::node_type node = std::move(spare_.back());
    spare_.pop_back();
    node.key().assign(attribute.name);
    node.mapped().assign(attribute.value);
    target_->insert(place, std::move(node));
  }

  TLevel* level_ = nullptr;
  TAttributes* target_ = nullptr;  // null until the map is filled
  std::vector<TAttributes::node_type> spare_;
  std::array<TAttribute, kFew> few_;  // count_ of them, ascending by name
  std::size_t count_ = 0;
  std::size_t length_ = 0;  // of all names together
};

// The open elements, and what those that have ended left behind.
class TXmlParser::TLevels {
 public:
  bool IsFull() const { return depth_ == kMaxDepth; }
  bool IsEmpty() const { return depth_ == 0; }

  // For the attributes of the element that is about to be entered.
  TAttributeFiller& StartAttributes() {
    if (depth_ == levels_.size()) levels_.emplace_back();
    filler_.Start(levels_[depth_]);
    return filler_;
  }

  // Terminates the name for as long as the element is open.
  void Enter(char* name, char* nameEnd) {
    TLevel& level = levels_[depth_++];
    level.name = name;
    level.nameEnd = nameEnd;
    level.heldBack = *nameEnd;
    *nameEnd = '\0';
  }

  // Of the innermost element.
  std::string_view GetName() const {
    const TLevel& level = levels_[depth_ - 1];
    return {level.name, static_cast<std::size_t>(level.nameEnd - level.name)};
  }

  void Leave() {
    const TLevel& level = levels_[--depth_];
    *level.nameEnd = level.heldBack;
  }

 private:
  unsigned int depth_ = 0;
  TAttributeFiller filler_;
  std::vector<TLevel> levels_;
};

TXmlParser::TXmlParser()
    : position_(nullptr), start_(nullptr), limit_(nullptr), lineMark_(nullptr), lineAtMark_(1) {}
TXmlParser::TXmlParser(const TXmlParser& other) = default;
TXmlParser& TXmlParser::operator=(const TXmlParser& other) = default;
TXmlParser::~TXmlParser() = default;

void TXmlParser::Parse(char* buffer) {
  position_ = start_ = buffer;
  limit_ = lineMark_ = start_;
  lineAtMark_ = 1;
  TLevels levels;
  ParseProlog();
  ParseElement(levels);
  while (!levels.IsEmpty()) levels.Leave();
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

// Reads the next byte like GetChar; true if it is the expected one.
inline bool TXmlParser::Accept(char expected) {
  if (*position_ != expected) {
    GetChar();
    return false;
  }
  ++position_;
  return true;
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

// Reached by no production yet: a notation stands in a DOCTYPE, which is skipped whole.
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

// The root element, with all that is in it.
bool TXmlParser::ParseElement(TLevels& levels) {
  if (GetChar() != '<') return Refuse("Unexpected character before element");
  UngetChar();
  if (!ParseStartTag(levels)) return false;
  while (!levels.IsEmpty()) {
    ParseCharData();
    if (PeekChar() != '<') return Refuse("Unexpected character where element expected");
    const char next = position_[1];
    const bool wasRead = next == '/'   ? ParseEndTag(levels)
                         : next == '?' ? ParseProcessingInstruction()
                         : next == '!' ? SkipComment()
                                       : ParseStartTag(levels);
    if (!wasRead) return false;
  }
  return true;
}

inline bool TXmlParser::ParseStartTag(TLevels& levels) {
  ++position_;
  if (levels.IsFull()) return Refuse("Elements nested too deeply");
  char* const name = position_;
  if (!ValidateName()) return false;
  char* const nameEnd = position_;
  TAttributeFiller& filler = levels.StartAttributes();
  if (SkipWhitespace() && !ParseAttributes(filler)) return false;
  const bool isEmpty = PeekChar() == '/';
  if (isEmpty) ++position_;
  if (!Accept('>')) return Refuse("Unexpected character before end of element");

  if (*nameEnd == '\n') CountLinesTo(nameEnd + 1);  // while it can still be seen
  levels.Enter(name, nameEnd);
  StartElement(name, filler.Finish());
  if (isEmpty) {
    EndElement(name);
    levels.Leave();
  }
  return true;
}

// Up to the end of the tag.
bool TXmlParser::ParseAttributes(TAttributeFiller& filler) {
  while (!Is(PeekChar(), kTagEnd)) {
    if (!ParseAttribute(filler.GetNext())) return false;
    if (!filler.Add()) return Refuse("Attribute appears twice");
    if (!SkipWhitespace()) break;
  }
  return true;
}

inline bool TXmlParser::ParseAttribute(TAttribute& attribute) {
  char* const name = position_;
  if (!ValidateName()) return false;
  char* const nameEnd = position_;
  SkipWhitespace();
  if (!Accept('=')) {
    return Refuse("Unexpected character between attribute name and value");
  }
  SkipWhitespace();
  const char quote = PeekChar();
  if (quote != '\'' && quote != '"') {
    return Refuse("Unexpected character after equals of attribute name");
  }
  const char* const value = ++position_;
  if (!ParseAttributeValue(quote)) return false;
  for (char* letter = name; letter != nameEnd; ++letter) {
    if (*letter >= 'A' && *letter <= 'Z') *letter = ToLower(*letter);
  }
  attribute.name = {name, static_cast<std::size_t>(nameEnd - name)};
  attribute.value = {value, static_cast<std::size_t>(position_ - 1 - value)};
  return true;
}

// Reads on until behind the closing quote.
inline bool TXmlParser::ParseAttributeValue(char quote) {
  position_ = FindValueEnd(position_, limit_, quote);
  if (PeekChar() == '\0') return Refuse("Unterminated attribute value");
  return Accept(quote) || Refuse("Unexpected character in attribute value");
}

inline bool TXmlParser::ParseCharData() {
  bool hasDelivered = false;
  while (true) {
    if (limit_ - position_ < kLookAhead / 2) LookAhead();
    char* const text = position_;
    char* const end = FindTextEnd(text, limit_);
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

inline bool TXmlParser::ParseEndTag(TLevels& levels) {
  const std::string_view name = levels.GetName();
  position_ += 2;
  if (!ConsumeName(name)) {
    return ValidateName() && Refuse("Start and end element names don't match");
  }
  SkipWhitespace();
  if (!Accept('>')) return Refuse("Unexpected character before end of element");
  EndElement(name.data());
  levels.Leave();
  return true;
}

// True, and behind the name, if it stands here and ends here.
inline bool TXmlParser::ConsumeName(std::string_view name) {
  const bool isInside = limit_ - position_ >= static_cast<std::ptrdiff_t>(name.size());
  const bool stands = isInside ? Same(name, {position_, name.size()})
                               : std::strncmp(name.data(), position_, name.size()) == 0;
  if (!stands || Is(position_[name.size()], kNameByte)) return false;
  position_ += name.size();
  return true;
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

// Up to the end of the document, by blocks: the bytes are needed again at once.
void TXmlParser::LookAhead() {
  const char* const first = std::max<const char*>(limit_, position_);
  const void* const end = std::memchr(first, '\0', kLookAhead);
  limit_ = end != nullptr ? static_cast<const char*>(end) : first + kLookAhead;
}

void TXmlParser::CountLinesTo(const char* place) {
  lineAtMark_ += static_cast<unsigned int>(std::count(lineMark_, place, '\n'));
  lineMark_ = place;
}
