#include <vskcore/model/ICIMElement.h>

ICIMElement::ICIMElement() = default;
ICIMElement::~ICIMElement() = default;
