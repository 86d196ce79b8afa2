// Counts what a piece of code takes from the heap, and denies it.
#ifndef VSKCORE_TESTS_ALLOCATIONS_ALLOCATIONSOF_H
#define VSKCORE_TESTS_ALLOCATIONS_ALLOCATIONSOF_H

#include <cstddef>
#include <functional>

// How often the process calls operator new, in any of its forms, or zlib malloc, while the body
// runs.
std::size_t AllocationsOf(const std::function<void()>& body);

// How often it gives something to operator delete meanwhile, in any of its forms.
std::size_t ReleasesOf(const std::function<void()>& body);

// Runs the body, which throws nothing, while the n-th allocation fails, or all from that one on.
// Whether it came to that.
bool WithFailingAllocation(std::size_t nth, bool lasting, const std::function<void()>& body);

#endif
