#include "FuzzSupport.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TContainer.h>

#include <cstdio>
#include <cstdlib>

#include "core/log/TLogger.h"

namespace {

using TType = TCIMValue::TCIMType;

constexpr std::int32_t kSilent = -1;

struct TQualifierRow {
  const char* name;
  TType::ECIMType type;
  TCIMQualifierDecl::EFlavor flavor;
};

constexpr TCIMQualifierDecl::EFlavor kFree =
    TCIMQualifierDecl::flavorOverridable | TCIMQualifierDecl::flavorToSubclass;
constexpr TType::ECIMType kTexts = TType::cimString | TType::cimArrayFlag;

const TQualifierRow kQualifiers[] = {
    {"ABSTRACT", TType::cimBoolean, TCIMQualifierDecl::flavorNone},
    {"ASSOCIATION", TType::cimBoolean, TCIMQualifierDecl::flavorToSubclass},
    {"KEY", TType::cimBoolean, TCIMQualifierDecl::flavorToSubclass},
    {"OVERRIDE", TType::cimString, TCIMQualifierDecl::flavorOverridable},
    {"BASE", TType::cimUint8, kFree},
    {"NULLDISPLAY", TType::cimString, kFree},
    {"UNITS", TType::cimString, kFree},
    {"Values", kTexts, kFree},
    {"ValueMap", kTexts, kFree},
};

}  // namespace

void StartInput() {
  static const vskStatus created = vsk::detail::CreateCoreLogger();
  static_cast<void>(created);
  TRootObject::GetCoreLogger()->SetLevel(kSilent);
  TRootObject::GetCoreLogger()->ClearRecords();
}

void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", rule);
  std::abort();
}

std::vector<char> DocumentIn(const std::string& input) {
  const char* const text = input.c_str();
  return std::vector<char>(text, text + std::char_traits<char>::length(text) + 1);
}

std::string BehindDocument(const std::string& input) {
  const std::size_t end = input.find('\0');
  return end == std::string::npos ? "" : input.substr(end + 1);
}

void DeclareQualifiers(TContainer& container) {
  for (const TQualifierRow& row : kQualifiers) {
    TCIMValue null;
    null.SetNullValue(row.type, 0);
    container.AllocateQualifierDecl(row.name, null, TCIMQualifierDecl::scopeNone, row.flavor)
        .AddToContainer();
  }
}
