// What all fuzz targets share. Each source that ends in Fuzzer.cpp is one target.
#ifndef VSKCORE_FUZZ_FUZZSUPPORT_H
#define VSKCORE_FUZZ_FUZZSUPPORT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class TContainer;

// The operation that a fuzzer calls for each input; a target defines it. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Larger inputs are passed over: what grows too fast shows below this as well.
constexpr std::size_t kMaxInputSize = 65536;

// Begins every target. Creates the core's logger once, then keeps it silent and its records empty.
void StartInput();

// Ends the process, with the rule that was broken, when it doesn't hold.
void Require(bool holds, const char* rule);

// The bytes up to the first NUL with a NUL behind them, as the readers want a document, in memory
// that ends there, so that a step further is seen.
std::vector<char> DocumentIn(const std::string& input);
// The bytes behind that NUL: what else a target wants to be told. A plain text has none.
std::string BehindDocument(const std::string& input);

// Declares the qualifiers that the core reads, so that an input need not.
void DeclareQualifiers(TContainer& container);

#endif
