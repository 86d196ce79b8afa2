// Points at a class, or with key bindings at one instance of a class.
#ifndef VSKCORE_MODEL_TCIMREFERENCE_H
#define VSKCORE_MODEL_TCIMREFERENCE_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

class ICIMElement;
class TCIMClass;
class TCIMReferenceImpl;
class TContainer;
namespace vsk::detail {
struct TPeek;
}

// Without key bindings a class path, with them an instance path. It is the content of a property
// of type reference, the identity that TCIMInstance::BuildPath gives, and what
// TCIMClass::FindInstance takes. Built from its parts, class first, then keys; a path as text is
// output only.
//
//   TCIMReference disk;
//   disk.SetClass(container.GetClass("Sample_Disk"));
//   disk.AddKeyValue("Id", TCIMValue(std::uint32_t{7}));
//   disk.GetPath();                                      // Sample_Disk.Id="7"
//   ICIMElement& found = disk.GetCIMElement();           // the instance
//
// A key may be a path again, and so on to any depth that memory has room for. A copy costs the same
// however much there is to it.
//
// A value: copies are independent. The class, the container and the instance that it finds are
// borrowed. The target is looked up once and remembered; when that instance has been removed since,
// it is looked up anew. GetCIMElement writes what it remembers, so one reference serves one thread.
class VSK_EXPORT TCIMReference {
 public:
  // Key names to values.
  using TKeyBindings = std::map<const std::string, const TCIMValue>;

  // Points nowhere yet.
  explicit TCIMReference(const TContainer* container = nullptr);
  // Always fails, as SetPath does.
  TCIMReference(const TContainer* container, const std::string& path);
  TCIMReference(const TCIMReference& other);
  TCIMReference& operator=(const TCIMReference& other);
  ~TCIMReference();

  // The container that SetClassName looks classes up in. Changes nothing else.
  void SetContainer(TContainer* container);
  // Forgets container, class, bindings and the remembered instance.
  void Clear();

  // Not offered: throws vskStatusNotImplemented, or vskStatusInvalidOpSequence without a container.
  void SetPath(const std::string& path);

  // Throws vskStatusInvalidOpSequence when there are bindings.
  void SetClass(TCIMClass& cimClass);
  // By name in the container. Throws vskStatusInvalidOpSequence without a container or with
  // bindings, and what TContainer::GetClass throws.
  void SetClassName(const std::string& name);
  // Throws vskStatusInvalidReference when no class is set.
  TCIMClass& GetClass() const;
  const std::string& GetClassName() const;  // likewise
  // The class, null when none is set.
  TCIMClass* FindClass() const;

  // Binds a key. The name must be declared by the class, in any case of letters, and is kept as
  // given: only the declaration's own spelling matches an instance's path. A key that is bound
  // already keeps its value. Throws vskStatusInvalidOpSequence without a class, vskStatusNotFound
  // for an unknown name, vskStatusInvalidCIMName for none at all, vskStatusTypeMismatch (logged)
  // for a value of another type.
  void AddKeyValue(const std::string& key, const TCIMValue& value);
  // Replaces all bindings, unchecked.
  void SetKeyBindings(TKeyBindings bindings);
  // A copy, in ascending order of the key names.
  const TKeyBindings EnumerateKeyBindings() const;

  // Class.key1="value1",key2="value2", keys ascending, nothing escaped; the bare class name
  // without bindings. Throws vskStatusValueIsNULL for a NULL key value, vskStatusInvalidReference
  // without a class.
  std::string GetPath() const;

  // The class without bindings, else the instance. Throws vskStatusNotFound when no instance of
  // the class matches, vskStatusInvalidReference without a class. The element belongs to the
  // container.
  ICIMElement& GetCIMElement() const;

  // Same class object and equal bindings: names byte by byte, values by TCIMValue's comparison,
  // whose failures pass through.
  bool operator==(const TCIMReference& other) const;
  // By the class's address, then the bindings in key order; the shorter of two alike is less.
  bool operator<(const TCIMReference& other) const;

 private:
  friend struct vsk::detail::TPeek;

  boost::shared_ptr<TCIMReferenceImpl> impl_;  // never shared between two handles
};

#endif
