#include "IXmlElement.h"

namespace KelXml {

// Defined here so that the interface's type information lives in the library.
IXmlElement::~IXmlElement() = default;

} // namespace KelXml
