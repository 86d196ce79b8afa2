#include <vskcore/core/vskVersion.h>

#include "common/TInstanceWriter.h"
#include "identity/Identity.h"

void CollectProduct(const TSource&, TContainer& target, TCIMClass& cimClass) {
  TInstanceWriter(target, cimClass)
      .Set("InstanceID", "product:vskcore")
      .Set("ElementName", "vskcore")
      .Set("Version", VSK_VERSION)
      .Add();
}
