#include "model/NormalizeCIMName.h"

#include <array>
#include <cstddef>

#include "core/base/Fail.h"

namespace {

// What a byte becomes in a name's key; 0 for one that no name may hold. Digits are told apart by
// the caller, because they may not stand first.
constexpr char Fold(char byte) {
  if (byte >= 'A' && byte <= 'Z') return static_cast<char>(byte - 'A' + 'a');
  if ((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '_') return byte;
  return 0;
}

// Fold of each byte: every look-up by name passes here.
constexpr std::array<char, 256> MakeFolded() {
  std::array<char, 256> folded{};
  for (std::size_t byte = 0; byte < folded.size(); ++byte) {
    folded[byte] = Fold(static_cast<char>(byte));
  }
  return folded;
}
constexpr std::array<char, 256> kFolded = MakeFolded();

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

}  // namespace

std::string NormalizeCIMName(const std::string& name) {
  std::string key(name);
  bool valid = key.empty() || !IsDigit(key.front());
  for (char& byte : key) {
    byte = kFolded[static_cast<unsigned char>(byte)];
    valid = valid && byte != 0;
  }
  if (!valid) vsk::detail::Fail(vskStatusInvalidCIMName, "CIM name '" + name + "' is invalid");
  return key;
}
