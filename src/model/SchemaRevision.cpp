#include "model/SchemaRevision.h"

#include <atomic>

namespace vsk::detail {

namespace {

// Each container is one thread's at a time, but two containers may be in use at once.
std::atomic<std::uint64_t> revision{1};

}  // namespace

std::uint64_t SchemaRevision() { return revision.load(std::memory_order_relaxed); }

void CountSchemaChange() { revision.fetch_add(1, std::memory_order_relaxed); }

}  // namespace vsk::detail
