#include "common/TInstanceWriter.h"

#include <vskcore/model/TContainer.h>

TInstanceWriter::TInstanceWriter(TContainer& target, TCIMClass& cimClass)
    : instance_(&target.AllocateInstance(&cimClass)) {}

TInstanceWriter& TInstanceWriter::Set(const std::string& name, const TCIMValue& value) {
  instance_->SetPropertyValue(name, value);
  return *this;
}

void TInstanceWriter::Add() {
  instance_->AddToContainer();
  static_cast<void>(instance_.release());  // the class owns it now
}
