#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMDateTime.h>

#include <boost/make_shared.hpp>

#include "model/datetime/TCIMDateTimeImpl.h"

using std::string;

TCIMDateTime::TCIMDateTime() : impl_(boost::make_shared<TCIMDateTimeImpl>()) {}

TCIMDateTime::TCIMDateTime(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hour, unsigned short minute, unsigned short second,
                           unsigned int microseconds, short utcOffset)
    : TCIMDateTime() {
  impl_->Set(year, month, day, hour, minute, second, microseconds, utcOffset);
}

TCIMDateTime::TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
                           unsigned short seconds, unsigned int microseconds)
    : TCIMDateTime() {
  impl_->Set(days, hours, minutes, seconds, microseconds);
}

TCIMDateTime::TCIMDateTime(const string& text) : TCIMDateTime() { impl_->Set(text); }

TCIMDateTime::TCIMDateTime(const TCIMDateTime& other)
    : impl_(boost::make_shared<TCIMDateTimeImpl>(*other.impl_)) {}

TCIMDateTime& TCIMDateTime::operator=(const TCIMDateTime& other) {
  *impl_ = *other.impl_;
  return *this;
}

TCIMDateTime::~TCIMDateTime() = default;

void TCIMDateTime::Set(unsigned short year, unsigned short month, unsigned int day,
                       unsigned short hour, unsigned short minute, unsigned short second,
                       unsigned int microseconds, short utcOffset) {
  impl_->Set(year, month, day, hour, minute, second, microseconds, utcOffset);
}

void TCIMDateTime::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                       unsigned short seconds, unsigned int microseconds) {
  impl_->Set(days, hours, minutes, seconds, microseconds);
}

void TCIMDateTime::Set(const string& text) { impl_->Set(text); }
void TCIMDateTime::Clear() { impl_->Clear(); }

bool TCIMDateTime::IsNull() const { return impl_->IsNull(); }
bool TCIMDateTime::IsInterval() const { return impl_->IsInterval(); }

unsigned short TCIMDateTime::GetYear() const { return impl_->GetYear(); }
unsigned short TCIMDateTime::GetMonth() const { return impl_->GetMonth(); }
unsigned int TCIMDateTime::GetDay() const { return impl_->GetDay(); }
unsigned short TCIMDateTime::GetHour() const { return impl_->GetHour(); }
unsigned short TCIMDateTime::GetMinute() const { return impl_->GetMinute(); }
unsigned short TCIMDateTime::GetSecond() const { return impl_->GetSecond(); }
unsigned int TCIMDateTime::GetMicroSeconds() const { return impl_->GetMicroSeconds(); }
unsigned short TCIMDateTime::GetUTCOffset() const { return impl_->GetUTCOffset(); }

bool TCIMDateTime::operator==(const TCIMDateTime& other) const {
  return impl_->Equals(*other.impl_);
}
bool TCIMDateTime::operator<(const TCIMDateTime& other) const {
  return impl_->IsLess(*other.impl_);
}

TCIMDateTime TCIMDateTime::operator+(const TCIMDateTime& other) const {
  return impl_->Plus(*other.impl_);
}
TCIMDateTime TCIMDateTime::operator-(const TCIMDateTime& other) const {
  return impl_->Minus(*other.impl_);
}

string TCIMDateTime::ToString() const { return impl_->ToString(); }
string TCIMDateTime::ToUIString() const { return impl_->ToUIString(); }

std::int64_t TCIMDateTime::GetDifference(TCIMDateTime&, TCIMDateTime&) {
  throw TVSKException(vskStatusNotImplemented);
}
