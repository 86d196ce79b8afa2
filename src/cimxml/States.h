// The base of all parse states and what they share. The head of TCIMXMLParser.cpp tells how states
// live together.
#ifndef VSKCORE_SRC_CIMXML_STATES_H
#define VSKCORE_SRC_CIMXML_STATES_H

#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/core/TVSKException.h>

#include <boost/make_shared.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "cimxml/Elements.h"

// One open element. Every child element is refused, the end pops, attributes are passed over: each
// state overrides what it does otherwise. The order of the virtual operations is fixed.
class TCIMXMLParser::TParseState {
 public:
  using EElement = vsk::detail::EElement;

  TParseState() = default;
  TParseState(const TParseState&) = delete;
  TParseState& operator=(const TParseState&) = delete;
  virtual ~TParseState();

  // A child begins: enters its state, or reports the name, which is in lower case.
  virtual void StartChildElement(TCIMXMLParser& parser, std::string& name, TAttributes& attributes);
  // The element ends. Pops this state, so nothing of it may be touched afterwards.
  virtual void EndOwnElement(TCIMXMLParser& parser, std::string& name);
  // Called once, when the state has been pushed.
  virtual void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes);

 protected:
  std::int32_t step = 0;  // how far the order of the children has come
};

// Takes any child, and its children; pushes itself once for each.
class TCIMXMLParser::TStateSkip : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
};

template <typename TState, typename... TArguments>
void TCIMXMLParser::Enter(TAttributes& attributes, TArguments&&... arguments) {
  states_.push(boost::make_shared<TState>(std::forward<TArguments>(arguments)...));
  states_.top()->HandleAttributes(*this, attributes);
}

namespace vsk::detail {

// Offers each attribute in turn to take, a function of its iterator. What nobody takes is ignored.
template <typename TAttributes, typename TTake>
void ForEachAttribute(TAttributes& attributes, TTake take) {
  for (auto attribute = attributes.begin(); attribute != attributes.end(); ++attribute) {
    take(attribute);
  }
}

// Adds an element to its container, which owns it from then on; on failure its owner stays.
template <typename TElement>
void Join(std::unique_ptr<TElement>& element) {
  element->AddToContainer();
  element.release();
}

// Runs body; something that is there already is no failure: the first one stands. False then.
template <typename TBody>
bool UnlessThere(TBody&& body) {
  try {
    body();
  } catch (const TVSKException& exception) {
    if (exception.status != vskStatusAlreadyExists) throw;
    return false;
  }
  return true;
}

// Logs that the document names something unknown.
void ReportMissing(const char* what, const std::string& name);

// What look-up gives. When it fails because nothing is there, the log says what was looked for.
template <typename TLookUp>
auto& Sought(const char* what, const std::string& name, TLookUp&& lookUp) {
  try {
    return lookUp();
  } catch (const TVSKException& exception) {
    if (exception.status == vskStatusNotFound) ReportMissing(what, name);
    throw;
  }
}

}  // namespace vsk::detail

#endif
