// The key function of every name table of the model.
#ifndef VSKCORE_SRC_MODEL_NORMALIZECIMNAME_H
#define VSKCORE_SRC_MODEL_NORMALIZECIMNAME_H

#include <string>

// The name in lower case. A CIM name is a letter or "_", followed by letters, digits and "_", all
// of them ASCII; the empty name passes, as the hidden root class's. Anything else is logged and
// throws vskStatusInvalidCIMName. Names of up to 15 letters cost no allocation.
std::string NormalizeCIMName(const std::string& name);

#endif
