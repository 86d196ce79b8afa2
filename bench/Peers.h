// Other readers of XML, run over a document with callbacks that do nothing.
#ifndef VSKCORE_BENCH_PEERS_H
#define VSKCORE_BENCH_PEERS_H

#include <string>

// Each throws std::runtime_error when the reader refuses the document.
void ReadWithExpat(const std::string& text);
void ReadWithLibxml2(const std::string& text);
// Builds a tree in place: the text is changed.
void ReadWithPugixml(std::string& text);

#endif
