// The elements of the grammar, told apart once per start tag.
#ifndef VSKCORE_SRC_CIMXML_ELEMENTS_H
#define VSKCORE_SRC_CIMXML_ELEMENTS_H

#include <string_view>

namespace vsk::detail {

enum class EElement : unsigned char {
  kUnknown,
  kCim,
  kClass,
  kClassName,
  kClassPath,
  kDeclaration,
  kDeclGroup,
  kDeclGroupWithName,
  kDeclGroupWithPath,
  kHost,
  kIMethodCall,
  kInstance,
  kInstanceName,
  kInstancePath,
  kIParamValue,
  kKeyBinding,
  kKeyValue,
  kLocalClassPath,
  kLocalInstancePath,
  kLocalNamespacePath,
  kMessage,
  kMethod,
  kMultiReq,
  kNamespace,
  kNamespacePath,
  kProperty,
  kPropertyArray,
  kPropertyReference,
  kQualifier,
  kQualifierDeclaration,
  kScope,
  kSimpleReq,
  kValue,
  kValueArray,
  kValueNamedObject,
  kValueObject,
  kValueObjectWithLocalPath,
  kValueObjectWithPath,
  kValueReference
};

// The element of that name, which is in lower case; kUnknown for any other text.
EElement ElementOf(std::string_view name);

}  // namespace vsk::detail

#endif
