#pragma once

#include "KelXmlGlobal.h"

class QString;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace KelXml {

/// The interface of every element class: read the element from a stream,
/// write it back, check it, explain what is wrong with it, and start afresh.
/// \ingroup framework
class KELXML_EXPORT IXmlElement
{
public:
    virtual ~IXmlElement();

    /// Reads the element whose start tag is the reader's current token, up to
    /// and including its end tag. Structural faults are raised on the reader.
    virtual void processXml(QXmlStreamReader& reader, const QString& elementName) = 0;
    /// Writes the element under the given name. Nothing is checked first.
    virtual void produceXml(QXmlStreamWriter& writer, const QString& elementName) const = 0;
    /// True when the content obeys every rule of the element and its children.
    virtual bool isValid() const = 0;
    /// Explains everything isValid() rejects as nested text; empty when valid.
    virtual QString syntaxError() = 0;
    /// Returns the element to its constructed state.
    virtual void reset() = 0;
};

} // namespace KelXml
