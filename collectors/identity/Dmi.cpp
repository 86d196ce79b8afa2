#include "identity/Identity.h"

std::optional<std::string> ReadDmi(const TSource& source, const std::string& name) {
  return source.ReadText(std::string(kDmiFolder) + "/" + name);
}
