#include "XmlNameAllMultiType.h"

#include "XmlLayout.h"

namespace KelXml {

namespace {
const QString nameElement = QStringLiteral("Name");
} // namespace

// Reading starts on the next token, wherever the reader stands; the names
// held are kept and the names read are appended. Either "All", which deletes
// the names held and whose content is skipped, or any number of "Name".
const XmlLayout& XmlNameAllMultiType::layout()
{
    using Self = XmlNameAllMultiType;
    static const XmlLayout layout =
        XmlLayout("XmlNameAllMultiType", XmlElementReader::ElementWording, XmlLayout::NoVersion,
                  {
                      XmlField::oneOf({XmlField::marker("All").writtenWhen(&Self::all),
                                       XmlField::list("Name", &Self::m_names)},
                                      ""),
                  })
            .withoutPositionTest();
    return layout;
}

XmlNameAllMultiType::XmlNameAllMultiType()
    : XmlComposite(layout())
    , m_initialized(false)
{}

void XmlNameAllMultiType::setAll()
{
    m_initialized = true;
    m_names.clear();
}

void XmlNameAllMultiType::setObjNames(const QList<XmlObjNameType*>& names)
{
    m_names.assignCopies(names);
    m_initialized = true;
}

void XmlNameAllMultiType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // A choice read to the end tag initializes the selection.
    if (readElement(reader, elementName))
        m_initialized = true;
}

void XmlNameAllMultiType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_initialized, QStringLiteral("Uninitialized."));
    // Named here: finding each name's row would scan the list for it.
    checks.children(m_names.list(), &nameElement);
}

void XmlNameAllMultiType::reset()
{
    m_initialized = false;
    XmlComposite::reset();
}

} // namespace KelXml
