#include <vskcore/model/ICIMAllowQualifiers.h>

ICIMAllowQualifiers::ICIMAllowQualifiers() = default;
ICIMAllowQualifiers::~ICIMAllowQualifiers() = default;
