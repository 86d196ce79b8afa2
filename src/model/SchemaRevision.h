// Tells what is derived from declarations whether it still holds.
#ifndef VSKCORE_SRC_MODEL_SCHEMAREVISION_H
#define VSKCORE_SRC_MODEL_SCHEMAREVISION_H

#include <cstdint>

namespace vsk::detail {

// Grows with every change to what decides about keys and value maps: the name, the default or a
// qualifier of a property declaration, the value of a qualifier, the declarations of a class; and
// when a class goes. One number for the whole process, for a declaration is used by any number of
// classes, and an instance may borrow one from elsewhere.
std::uint64_t SchemaRevision();
// Called ahead of each such change, so that one that fails half-way counts as well.
void CountSchemaChange();

}  // namespace vsk::detail

#endif
