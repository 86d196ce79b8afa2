// One complete CIM store.
#ifndef VSKCORE_MODEL_TCONTAINER_H
#define VSKCORE_MODEL_TCONTAINER_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMQualifierDecl.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

class TCIMClass;
class TCIMInstance;
class TCIMValue;
class TContainerImpl;

// Qualifier declarations, classes, and through the classes all instances. The only place where
// classes and qualifier declarations are found by name, and where documents enter the model.
//
// A hidden root class stands at the top of every superclass chain: GetRootClass, or the empty name
// in GetClass and FindClass, gives it. All classes of a container are
// GetRootClass().EnumerateSubClasses(true), all instances GetRootClass().EnumerateInstances(true).
//
// Known by its address and never copied. It owns all that was added to it, and what it hands out
// is valid while it lives. Names are taken in any case of letters; one that could not be a CIM
// name throws vskStatusInvalidCIMName, after a line in the log, from Find... as well. No locks: one
// thread at a time.
class VSK_EXPORT TContainer {
 public:
  TContainer();
  TContainer(const TContainer&) = delete;
  TContainer& operator=(const TContainer&) = delete;
  virtual ~TContainer();

  // New heap objects that are not added yet and belong to the caller. The order of these three in
  // the virtual table is part of the contract. A null superclass means none.
  virtual TCIMClass& AllocateClass(const std::string& name, TCIMClass* superClass) const;
  // Fails as TCIMInstance's constructor does.
  virtual TCIMInstance& AllocateInstance(TCIMClass* cimClass) const;
  // Scope and flavor are the bits of TCIMQualifierDecl.
  virtual TCIMQualifierDecl& AllocateQualifierDecl(const std::string& name, const TCIMValue& value,
                                                   TCIMQualifierDecl::EScope scope,
                                                   TCIMQualifierDecl::EFlavor flavor) const;

  // The hidden class above all others, "<root>", which is found under the empty name.
  TCIMClass& GetRootClass() const;
  // Throws vskStatusNotFound when absent.
  TCIMClass& GetClass(const std::string& name) const;
  // Null when absent.
  TCIMClass* FindClass(const std::string& name) const;
  // Destroys the class that stands under the argument's name, with its instances. Throws
  // vskStatusNotFound when absent; throws vskStatusInvalidOpSequence, after a line in the log that
  // says what it is, while a subclass, an association, a property declaration of another class, an
  // instance or a stored reference depends on it. What the caller keeps outside the
  // container, a reference or a class derived from that one, must not be used any more.
  void RemoveClass(TCIMClass& cimClass);

  // Throws vskStatusNotFound when absent.
  TCIMQualifierDecl& GetQualifierDecl(const std::string& name) const;
  // Null when absent; the empty name is not special here.
  TCIMQualifierDecl* FindQualifierDecl(const std::string& name) const;
  // As RemoveClass, for a declaration: refused while a qualifier was made from it.
  void RemoveQualifierDecl(TCIMQualifierDecl& declaration);
  // Ascending by lower-cased name.
  std::vector<TCIMQualifierDecl*> EnumerateQualifiers() const;

  // Reads a CIM-XML document (a subset of DSP0201) into this container and gives the classes that
  // its declarations added, in document order; those of a message are not among them. ".gz"
  // anywhere in the path says that the file is gzip (RFC 1952). A class or qualifier that stands
  // here already stays as it is. At the first failure reading ends, and what was added until then
  // stays. Where the content failed, the log has the line and the file; a file that can't be read,
  // is too large or is no good gzip is told by the status alone. Throws:
  // - vskStatusFileNotFound: no such file;
  // - vskStatusFileSystemError: it can't be opened or read;
  // - vskStatusInvalidSpecificationDocument: more than 100 MiB uncompressed, or bad XML or grammar;
  // - vskStatusInvalidGzipFile: no gzip signature;
  // - vskStatusCorruptGzipFile: damaged or cut gzip data;
  // - vskStatusOutOfMemory: no room for the document;
  // - any status of the model, for content that the model refuses.
  std::vector<TCIMClass*> PopulateContainerFromFile(const std::string& path);

 private:
  friend class TCIMClassImpl;
  friend class TCIMQualifierDecl;
  friend class TCIMQualifierDeclImpl;

  VSK_LOCAL void AddClass(TCIMClass& cimClass);
  VSK_LOCAL void AddQualifierDecl(TCIMQualifierDecl& declaration);

  boost::shared_ptr<TContainerImpl> impl_;
};

#endif
