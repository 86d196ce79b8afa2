#include "model/NormalizeCIMName.h"

#include "core/base/Fail.h"

namespace {

// What a byte becomes in a name's key; 0 for one that no name may hold. Digits are told apart by
// the caller, because they may not stand first.
constexpr char Fold(char byte) {
  if (byte >= 'A' && byte <= 'Z') return static_cast<char>(byte - 'A' + 'a');
  if ((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '_') return byte;
  return 0;
}

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

}  // namespace

std::string NormalizeCIMName(const std::string& name) {
  std::string key(name);
  bool valid = key.empty() || !IsDigit(key.front());
  for (char& byte : key) {
    byte = Fold(byte);
    valid = valid && byte != 0;
  }
  if (!valid) vsk::detail::Fail(vskStatusInvalidCIMName, "CIM name '" + name + "' is invalid");
  return key;
}
