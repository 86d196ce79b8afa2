#include "model/TPropertyTable.h"

#include <algorithm>
#include <boost/make_shared.hpp>
#include <iterator>
#include <utility>

#include "model/TNameTable.h"

namespace vsk::detail {

namespace {

constexpr std::size_t kPageSize = 64;

template <typename TPage>
auto PlaceIn(TPage& page, const std::string& key) {
  return std::lower_bound(page.begin(), page.end(), key,
                          [](const auto& entry, const auto& sought) { return entry.key < sought; });
}

}  // namespace

TCIMPropertyDecl* TPropertyTable::FindKey(const std::string& key) const {
  const std::size_t place = PageOf(key);
  if (place == pages_.size()) return nullptr;
  const auto found = PlaceIn(*pages_[place], key);
  return found->key == key ? found->declaration.get() : nullptr;
}

void TPropertyTable::Adopt(std::string key, TCIMPropertyDecl& declaration) {
  AdoptBy(declaration,
          [&](const boost::shared_ptr<TCIMPropertyDecl>& owner) { Put(std::move(key), owner); });
}

void TPropertyTable::RemoveKey(const std::string& key) {
  if (FindKey(key) == nullptr) return;
  const std::size_t place = PageOf(key);
  TPage& page = OwnPage(place);
  page.erase(PlaceIn(page, key));
  if (page.empty()) pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(place));
}

std::size_t TPropertyTable::Size() const {
  std::size_t size = 0;
  for (const TPagePointer& page : pages_) size += page->size();
  return size;
}

std::vector<const TCIMPropertyDecl*> TPropertyTable::Enumerate() const {
  std::vector<const TCIMPropertyDecl*> all;
  all.reserve(Size());
  Visit([&](const TEntry& entry) { all.push_back(entry.declaration.get()); });
  return all;
}

std::size_t TPropertyTable::PageOf(const std::string& key) const {
  const auto found =
      std::partition_point(pages_.begin(), pages_.end(),
                           [&](const TPagePointer& page) { return page->back().key < key; });
  return static_cast<std::size_t>(found - pages_.begin());
}

TPropertyTable::TPage& TPropertyTable::OwnPage(std::size_t place) {
  TPagePointer& page = pages_[place];
  if (page.use_count() > 1) page = boost::make_shared<TPage>(*page);
  return *page;
}

TPropertyTable::TPage& TPropertyTable::PageWithRoom(const std::string& key) {
  const std::size_t last = pages_.size() - 1;
  const std::size_t place = std::min(PageOf(key), last);
  TPage& page = OwnPage(place);
  if (page.size() < kPageSize) return page;
  // Names that come in ascending order leave full pages behind.
  const bool appends = place == last && page.back().key < key;
  const auto half =
      page.begin() + static_cast<std::ptrdiff_t>(appends ? kPageSize - 1 : kPageSize / 2);
  const auto upper = boost::make_shared<TPage>(half, page.end());
  upper->reserve(kPageSize);
  pages_.insert(pages_.begin() + static_cast<std::ptrdiff_t>(place) + 1, upper);
  page.erase(half, page.end());
  return page.back().key < key ? *upper : page;
}

void TPropertyTable::Put(std::string key, const boost::shared_ptr<TCIMPropertyDecl>& declaration) {
  if (pages_.empty()) {
    pages_.push_back(boost::make_shared<TPage>(1, TEntry{std::move(key), declaration}));
    return;
  }
  TPage& page = PageWithRoom(key);
  const auto place = PlaceIn(page, key);
  if (place != page.end() && place->key == key) {
    place->declaration = declaration;
  } else {
    page.insert(place, {std::move(key), declaration});
  }
}

}  // namespace vsk::detail
