#include "cpu/Text.h"

#include <stdlib.h>
#include <string.h>

/* The C library's own tests follow the locale of the host. */
static int IsBlank(char letter) { return letter == ' ' || (letter >= '\t' && letter <= '\r'); }

static int IsPrintable(char letter) { return letter > ' ' && letter <= '~'; }

/* What the digit stands for; 255 for what is none. */
static unsigned DigitOf(char letter) {
  if (letter >= '0' && letter <= '9') return (unsigned)(letter - '0');
  if (letter >= 'a' && letter <= 'f') return (unsigned)(letter - 'a') + 10;
  if (letter >= 'A' && letter <= 'F') return (unsigned)(letter - 'A') + 10;
  return 255;
}

static TSpan Behind(TSpan span, size_t length) {
  span.start += length;
  span.length -= length;
  return span;
}

TSpan SpanOf(const char* text) {
  TSpan span = {"", 0};
  if (text == NULL) return span;
  span.start = text;
  span.length = strlen(text);
  return span;
}

TSpan Trim(TSpan span) {
  while (span.length > 0 && IsBlank(span.start[0])) span = Behind(span, 1);
  while (span.length > 0 && IsBlank(span.start[span.length - 1])) --span.length;
  return span;
}

int IsSame(TSpan span, const char* text) { return AreEqual(span, SpanOf(text)); }

int AreEqual(TSpan one, TSpan other) {
  return one.length == other.length &&
         (one.length == 0 || memcmp(one.start, other.start, one.length) == 0);
}

int NextLine(TSpan* rest, TSpan* line) {
  if (rest->length == 0) return 0;
  const char* end = memchr(rest->start, '\n', rest->length);
  *line = *rest;
  if (end != NULL) line->length = (size_t)(end - rest->start);
  *rest = Behind(*rest, line->length + (end != NULL));
  return 1;
}

int NextWord(TSpan* rest, TSpan* word) {
  while (rest->length > 0 && IsBlank(rest->start[0])) *rest = Behind(*rest, 1);
  *word = *rest;
  word->length = 0;
  while (word->length < rest->length && !IsBlank(rest->start[word->length])) ++word->length;
  *rest = Behind(*rest, word->length);
  return word->length > 0;
}

int HasWord(TSpan words, const char* word) {
  TSpan next;
  while (NextWord(&words, &next)) {
    if (IsSame(next, word)) return 1;
  }
  return 0;
}

TNumber Known(uint64_t value) {
  TNumber number = {1, 0};
  number.value = value;
  return number;
}

TNumber Unknown(void) {
  const TNumber number = {0, 0};
  return number;
}

TNumber AtMost(TNumber number, uint64_t limit) {
  return number.known && number.value <= limit ? number : Unknown();
}

static TNumber NextDigits(TSpan* rest, unsigned radix) {
  TNumber number = Unknown();
  int fits = 1;
  while (rest->length > 0 && DigitOf(rest->start[0]) < radix) {
    const unsigned digit = DigitOf(rest->start[0]);
    fits = fits && number.value <= (UINT64_MAX - digit) / radix;
    number = Known(number.value * radix + digit);
    *rest = Behind(*rest, 1);
  }
  return fits ? number : Unknown();
}

TNumber NextDecimal(TSpan* rest) { return NextDigits(rest, 10); }

TNumber ParseNumber(TSpan span) {
  const int isHexadecimal = span.length > 2 && span.start[0] == '0' && (span.start[1] | 32) == 'x';
  TSpan rest = isHexadecimal ? Behind(span, 2) : span;
  const TNumber number = NextDigits(&rest, isHexadecimal ? 16 : 10);
  return rest.length == 0 ? number : Unknown();
}

static int CutOff(TSpan* rest, char letter) {
  if (rest->length == 0 || rest->start[0] != letter) return 0;
  *rest = Behind(*rest, 1);
  return 1;
}

int NextRange(TSpan* rest, uint32_t* first, uint32_t* last) {
  TSpan behind = *rest;
  const TNumber low = AtMost(NextDecimal(&behind), UINT32_MAX);
  const TNumber high = CutOff(&behind, '-') ? AtMost(NextDecimal(&behind), UINT32_MAX) : low;
  if (!low.known || !high.known || high.value < low.value) return 0;
  CutOff(&behind, ',');
  *rest = behind;
  *first = (uint32_t)low.value;
  *last = (uint32_t)high.value;
  return 1;
}

int IsInRanges(TSpan ranges, uint32_t number) {
  uint32_t first;
  uint32_t last;
  while (NextRange(&ranges, &first, &last)) {
    if (number >= first && number <= last) return 1;
  }
  return 0;
}

TNumber CountInRanges(TSpan ranges) {
  uint64_t count = 0;
  uint32_t first;
  uint32_t last;
  while (NextRange(&ranges, &first, &last)) count += (uint64_t)last - first + 1;
  return count > 0 && ranges.length == 0 ? Known(count) : Unknown();
}

TNumber FirstInRanges(TSpan ranges) {
  uint32_t first;
  uint32_t last;
  return NextRange(&ranges, &first, &last) ? Known(first) : Unknown();
}

void CopyShown(TSpan span, char* buffer, size_t size) {
  size_t length = 0;
  for (size_t i = 0; i < span.length && length + 1 < size; ++i) {
    const int isGap = IsBlank(span.start[i]) && length > 0 && buffer[length - 1] != ' ';
    if (isGap) buffer[length++] = ' ';
    if (IsPrintable(span.start[i])) buffer[length++] = span.start[i];
  }
  if (length > 0 && buffer[length - 1] == ' ') --length;
  buffer[length] = '\0';
  if (strcmp(buffer, "unknown") == 0) buffer[0] = '\0';
}

static int Grow(TList* list) {
  const size_t capacity = list->capacity == 0 ? 16 : list->capacity * 2;
  if (capacity > SIZE_MAX / list->itemSize) return 0;
  void* items = realloc(list->items, capacity * list->itemSize);
  if (items == NULL) return 0;
  list->items = items;
  list->capacity = capacity;
  return 1;
}

void* AppendItem(TList* list) {
  if (list->count == list->capacity && !Grow(list)) return NULL;
  void* item = (char*)list->items + list->count++ * list->itemSize;
  return memset(item, 0, list->itemSize);
}

void FreeItems(TList* list) {
  free(list->items);
  list->items = NULL;
  list->count = list->capacity = 0;
}
