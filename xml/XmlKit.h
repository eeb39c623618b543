#pragma once

// What every element of the vocabulary shares: the names of the version and
// unit attributes, the one supported version, and the common write steps of
// elements that carry them. Internal to the library and not installed; its
// symbols are exported for the library's tests.

#include "XmlText.h"

#include <QString>
#include <QXmlStreamWriter>

namespace KelXml {

namespace XmlKit {

// Names and values that the whole vocabulary shares.
KELXML_EXPORT extern const QString versionAttribute;   // "version"
KELXML_EXPORT extern const QString unitAttribute;      // "unit"
KELXML_EXPORT extern const QString defaultVersion;     // "1.0", the only supported version
KELXML_EXPORT extern const XmlText defaultVersionText; // the same, for the elements to share

inline bool isSupportedVersion(const QString& version)
{
    return sameText(version, defaultVersion);
}

// Writes <name version="..." unit="...">text</name>.
KELXML_EXPORT void writeValueElement(QXmlStreamWriter& writer, const QString& name,
                                     const QString& version, const QString& unit,
                                     const QString& text);
// Writes <name version="...">text</name>.
KELXML_EXPORT void writeValueElement(QXmlStreamWriter& writer, const QString& name,
                                     const QString& version, const QString& text);
// Writes the start tag of an element with children and its version attribute.
KELXML_EXPORT void writeStartElement(QXmlStreamWriter& writer, const QString& name,
                                     const QString& version);

} // namespace XmlKit

} // namespace KelXml
