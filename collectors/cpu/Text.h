/* Pieces of text, the numbers in them, and lists that grow. Nothing here touches the machine. */
#ifndef VSKCORE_COLLECTORS_CPU_TEXT_H
#define VSKCORE_COLLECTORS_CPU_TEXT_H

#include <stddef.h>
#include <stdint.h>

/* A stretch of a longer text, valid as long as that; no NUL stands behind it. The empty one says
 * that something is not known. */
typedef struct TSpan {
  const char* start;
  size_t length;
} TSpan;

/* A number that may not be known. */
typedef struct TNumber {
  int known;
  uint64_t value;
} TNumber;

TSpan SpanOf(const char* text); /* NULL gives the empty one */
TSpan Trim(TSpan span);
int IsSame(TSpan span, const char* text);
int AreEqual(TSpan one, TSpan other);

/* Cuts the first line off the front, without its end. 0 when nothing is left. */
int NextLine(TSpan* rest, TSpan* line);
/* The same for the words between blanks. */
int NextWord(TSpan* rest, TSpan* word);
int HasWord(TSpan words, const char* word);

TNumber Known(uint64_t value);
TNumber Unknown(void);
/* The number itself when it is no larger than that, else unknown. */
TNumber AtMost(TNumber number, uint64_t limit);

/* A whole number and nothing else, decimal or with 0x in front. */
TNumber ParseNumber(TSpan span);
/* Cuts the digits off the front. Unknown, with nothing cut, where there are none; they are cut
 * but make no number where they stand for more than 64 bits. */
TNumber NextDecimal(TSpan* rest);

/* A list of CPUs as the kernel writes it, "0-3,8,10-11": cuts off the next range. 0 at the end, and
 * where the text goes on otherwise; nothing is cut then. */
int NextRange(TSpan* rest, uint32_t* first, uint32_t* last);
int IsInRanges(TSpan ranges, uint32_t number);
TNumber CountInRanges(TSpan ranges); /* unknown where anything else stands in it */
TNumber FirstInRanges(TSpan ranges);

/* Copies what is fit to be shown into a buffer of that size: printable ASCII, which is all that
 * kernels write here, with one blank for several; cut where the buffer ends. "" for "unknown". */
void CopyShown(TSpan span, char* buffer, size_t size);

/* Items of one size in a row. A list begins as {NULL, 0, 0, sizeof(TItem)}. */
typedef struct TList {
  void* items;
  size_t count;
  size_t capacity;
  size_t itemSize;
} TList;

/* A new item at the end, all zeros; it moves when the list grows further. NULL when there is no
 * memory for it, and the list is as it was. */
void* AppendItem(TList* list);
void FreeItems(TList* list);

#endif
