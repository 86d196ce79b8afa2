// The names of this platform.
#include <vskcore/platform/TOSSpecific.h>

// The library starts itself while it is being loaded, among constructors of the default priority,
// and reads these: they come before.
#define VSK_EARLY __attribute__((init_priority(1000)))

VSK_EARLY const std::string TOSSpecific::kPluginExtension = ".pi.so";
VSK_EARLY const std::string TOSSpecific::kSpecificationExtension = ".properties.xml";
VSK_EARLY const std::string TOSSpecific::kFileSeparator = "/";
